#include "e2e/sandbox_testing.hpp"

namespace {

class JsonSchemas : public Appliance {};

TEST_F(JsonSchemas, TakeWhatIsPrintedAndRefuseWhatIsMisspelt)
{
    EXPECT_EQ(output_of("/usr/bin/python3 " TESTS "/e2e/json_schemas.py"), "");
}

}  // namespace
