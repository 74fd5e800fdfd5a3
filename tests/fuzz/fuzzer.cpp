// One of the targets, for the fuzzer. PARSE is its function.
#include "fuzz/targets.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    PARSE({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
