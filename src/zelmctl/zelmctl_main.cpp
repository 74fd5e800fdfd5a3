#include "zelmctl/zelmctl.hpp"

int main(int argc, char** argv)
{
    return zelmctl(argc, argv);
}
