#include "check/zelm_check.hpp"

int main(int argc, char** argv)
{
    return zelm_check(argc, argv);
}
