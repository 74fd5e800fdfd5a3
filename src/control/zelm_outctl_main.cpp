#include "control/zelm_outctl.hpp"

int main(int argc, char** argv)
{
    return main_wrapper(argc, argv);
}
