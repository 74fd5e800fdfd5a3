// The words that front ends and scripts depend on: each message with its stream and exit status.
#include "e2e/sandbox_testing.hpp"

namespace {

class Messages : public Appliance {
protected:
    struct Case {
        const char* command_line;
        int status;
        const char* out;
        const char* err;
    };

    static void expect(const Case& row)
    {
        const Outcome outcome = sh(row.command_line);
        EXPECT_EQ(outcome.status, row.status) << row.command_line;
        EXPECT_EQ(outcome.out, row.out) << row.command_line;
        EXPECT_EQ(outcome.err, row.err) << row.command_line;
    }

    template <std::size_t COUNT> static void expect_all(const Case (&rows)[COUNT])
    {
        for (const Case& row : rows)
            expect(row);
    }
};

TEST_F(Messages, OfTheCommandLine)
{
    expect_all({
        {"zelm_outctl", 1, "", "Unknown command \n"},
        {"zelm_outctl -c frob", 1, "", "Unknown command frob\n"},
        {"zelm_outctl -c list -o ..", 1, "", ".. is not a valid name\n"},
        {"zelm_outctl -c list -o a/b", 1, "", "forward slashes not allowed in name\n"},
        {"zelm_outctl -o .. -c frob", 1, "", ".. is not a valid name\n"},
        {"zelm_outctl -c set -o a --json-out", 1, "", "--json-out parameter required\n"},
        {"zelm_outctl -c", 1, "", "--c parameter required\n"},
        {"zelm_outctl -c list ---o", 1, "", "--o parameter required\n"},
        {"zelm_outctl -c create -o a --set", 1, "", "--set parameter required\n"},
        {"zelm_outctl -c stop", 1, "", "You must specify an output\n"},
        {"zelm_chctl -c start", 1, "", "You must specify an output\n"},
        {"zelm_inctl -c restart", 1, "", "You must specify an output\n"},
        {"zelm_routectl -c set --set a=1", 1, "", "You must specify an output\n"},
        {"zelm_outctl -c status", 1, "", "You must specify an output\n"},
        {"zelm_outctl -c status -o all", 1, "", "You must specify an output\n"},
        {"zelm_outctl -c status -o autostart", 1, "", "You must specify an output\n"},
        {"ln -sf /usr/bin/zelm_outctl /run/other; /run/other -c list", 1, "",
            "Error: I don't recognize '/run/other'\n"},
        {"ln -sf /usr/bin/zelm_outctl /run/Zelm_outctl; /run/Zelm_outctl -c list -o ..", 1, "",
            "Error: I don't recognize '/run/Zelm_outctl'\n"},
    });
    EXPECT_FALSE(exists(std::string(OUTPUTS) + "a")) << "a line that lacks a value does nothing";
}

}  // namespace
