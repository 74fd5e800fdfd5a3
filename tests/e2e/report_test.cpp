// The live report of a running item in the listing: whatever a driver answers, or doesn't, the listing comes
// within its time and says what is so.
#include <algorithm>

#include "e2e/sandbox_testing.hpp"
#include "platform/comm.hpp"
#include "platform/socket_io.hpp"

using namespace std::string_literals;

namespace {

using Clock = std::chrono::steady_clock;

class Report : public Appliance {
protected:
    static void start_main(const std::string& settings)
    {
        output_of("rm -rf /mnt/main/tv/outputs/.main.metadir");
        write_file(OUTPUTS + "main", "driver=x11\n" + settings);
        bring_up("zelm_outctl", "main");
    }

    static Outcome list(const std::string& switches = "--timeout 1")
    {
        return sh(
            "zelm_outctl -c list -o main --no-manifest " + switches +
            " >/run/listing; status=$?; sed -E 's/(pid|uptime|frames rendered)=[0-9.]+$/\\1=N/' /run/listing; "
            "exit $status");
    }
};

std::size_t count_of(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST_F(Report, ARunningItemIsListedWithWhatItReports)
{
    start_main("title=Driver\nlast error=old\n");
    const std::string file =
        "#multiline\ntitle=File\ntitle=of two lines\nfullscreen=1\nlast notes=from the file\n"
        "driver=x11\nlast error=in the file\n";
    write_file(OUTPUTS + "main", file);
    EXPECT_EQ(list().out, "main{\n"
                          "\t*\tactive=1\n"
                          "\t*\tdriver=x11\n"
                          "\t&\tframes rendered=N\n"
                          "\t=\tfullscreen=1\n"
                          "\t*\tlast error=\n"
                          "\t<..\tlast notes=opened display :0\n"
                          "\t*\tlast notes=Xv port 63, format I420\n"
                          "\t*\tpid=N\n"
                          "\t<..\trecent events=settings read\n"
                          "\t...\trecent events=socket bound\n"
                          "\t*\trecent events=serving\n"
                          "\t&\treports answered=1\n"
                          "\t*\trunning=1\n"
                          "\t*\ttitle=Driver\n"
                          "\t*\tuptime=N\n"
                          "\t*\tusing fullscreen=0\n"
                          "\t*\tusing shm=1\n"
                          "\t*\tusing x11 server=:0\n"
                          "\t*\tusing xv=1\n"
                          "\t*\txwindow=56623105\n"
                          "}\n");
    EXPECT_EQ(read_file(OUTPUTS + "main"), file) << "a report is never written into the file";
}

// The part of a listing that is one item's.
std::string part_of(const std::string& listing, const std::string& item)
{
    const std::size_t begin = ("\n" + listing).find("\n" + item + "{\n");
    return begin == std::string::npos ? "" : listing.substr(begin, listing.find("\n}\n", begin) - begin + 3);
}

TEST_F(Report, MisbehavingDriversEndInAHangOrInACorrectListingAndHoldUpNoOther)
{
    const std::string odd = "WARNING: media item report function returns ";
    const std::string all_odd = odd + "page 'page one'. Pages are unsupported.\n" +        //
                                odd + "item that is not status (type '?') 'question'\n" +  //
                                odd + "item that is not status (type '=') 'plain'\n" +     //
                                odd + "item that is not status (type '=') ''\n";
    const struct {
        std::string settings;
        const char* running;  // with the entries around it, as far as they matter
        const char* has;      // a line that must be there
        const char* has_not;  // a text that must not be
        std::string err;      // none for lines of "Problem reading"
    } rows[] = {
        {"sim never answer=1\n", "running=1 hang\n", "\t=\tdriver=x11\n", "active", ""},
        {"", "running=1\n", "\t*\tactive=1\n", "hang", ""},
        {"sim no accept=1\n", "running=1 hang\n", "\t*\tpid=", "active", ""},
        {"sim hang up=1\n", "running=1 hang\n", "\t*\tuptime=", "active", ""},
        {"sim hang up mid=1\n", "running=1 hang\n", "\t=\tdriver=x11\n", "\tflagged packet=", ""},
        {"sim answer delay ms=200\n", "running=1\n", "\t*\tactive=1\n", "hang", ""},
        {"sim answer delay ms=5000\n", "running=1 hang\n", "\t=\tdriver=x11\n", "active", ""},
        {"sim odd entries=1\nsim answer delay ms=50\n", "running=1\n", "\t*\t=6\n", "page one=", all_odd},
        {"sim flagged packets=5\n", "running=1\n", "\t*\tactive=1\n", "\tflagged packet=", ""},
        {"sim odd entries=1\n", "running=1\n", "\t&\todd status=5\n", "plain", all_odd},
        {"sim corrupt=short\n", "running=1\n", "\t=\tdriver=x11\n", "active", ""},
        {"sim corrupt=texts\n", "running=1\n", "\t=\tdriver=x11\n", "active", ""},
        {"sim corrupt=no-nul\n", "running=1\n", "\t*\tactive=1\n", "xwindow", ""},
        {"sim corrupt=table\n", "running=1\n", "\t=\tdriver=x11\n", "active", "none"},
        {"sim corrupt=count\n", "running=1\n", "\t*\tdriver=x11\n", "hang", "none"},
        {"sim crash on report=1\n", "running=1 hang\n", "\t=\tdriver=x11\n", "active", ""},
    };
    std::string err;
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const std::string item(1, static_cast<char>('a' + i));
        write_file(OUTPUTS + item, "driver=x11\n" + rows[i].settings);
        bring_up("zelm_outctl", item);
        err += rows[i].err == "none" ? "" : rows[i].err;
    }
    const CommSocket fills_the_backlog(comm_socket_v4_create());
    ASSERT_EQ(comm_socket_v4_connect_to(
                  fills_the_backlog.get(), (OUTPUTS + ".c.metadir/.media.item.active.socket").c_str()),
        0);
    // With few descriptors they take turns, and still none waits for all of the three that hang.
    for (const char* const descriptors : {"24", "1024"}) {
        bring_up("zelm_outctl", "p");
        const Clock::time_point begin = Clock::now();
        const Outcome outcome =
            sh("ulimit -n "s + descriptors + "; zelm_outctl -c list --no-manifest --timeout 2");
        EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5)) << descriptors;
        EXPECT_EQ(outcome.status, 0);
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            const auto& row = rows[i];
            const std::string part = part_of(outcome.out, std::string(1, static_cast<char>('a' + i)));
            EXPECT_EQ(count_of(part, std::string("\t*\t") + row.running), 1U) << row.settings << part;
            EXPECT_EQ(count_of(part, row.has), 1U) << row.settings << part;
            EXPECT_EQ(count_of(part, row.has_not), 0U) << row.settings << part;
        }
        std::string said = outcome.err;
        const std::string problem = "Problem reading\n";
        const std::size_t problems = count_of(said, problem);
        EXPECT_GE(problems, 0xffffU);
        EXPECT_LT(problems, 0xffffU + 30);
        said.erase(std::min(said.find(problem), said.size()), problems * problem.size());
        EXPECT_EQ(said, err) << "in the order of the names";
    }
}

TEST_F(Report, AReplyOfAnySizeIsReadWhole)
{
    start_main("sim big reply bytes=2000000\n");
    EXPECT_EQ(count_of(list("--timeout 5").out, "\t*\tbig=" + std::string(2000000, 'x') + "\n"), 1U);
}

TEST_F(Report, TheTimeLimitIsInDecimalSecondsAndMayBeNone)
{
    const std::pair<std::string, std::string> items[] = {
        {"never", "sim never answer=1"}, {"late", "sim answer delay ms=1100"}, {"prompt", "title=One"}};
    for (const auto& [item, setting] : items) {
        write_file(OUTPUTS + item, "driver=x11\n" + setting + "\n");
        bring_up("zelm_outctl", item);
    }
    const auto expect = [](const std::string& switches, const char* line, double least, double most) {
        const Clock::time_point begin = Clock::now();
        const std::string listing = output_of("zelm_outctl -c list --no-manifest -o " + switches);
        const double took = std::chrono::duration<double>(Clock::now() - begin).count();
        EXPECT_EQ(count_of(listing, line), 1U) << switches << listing;
        EXPECT_GE(took, least) << switches;
        EXPECT_LT(took, most) << switches;
    };
    // In decimal 0x1 is 0, which waits for ever.
    output_of(
        "for t in 0 0x1; do { timeout 1.2 zelm_outctl -c list -o never --timeout $t; echo $? >/run/$t; } & done");
    expect("never --timeout -1", "running=1 hang\n", 0, 0.9);
    expect("prompt --timeout -1", "running=1 hang\n", 0, 0.9);
    // Cut to 32 bits it is 1.
    expect("never --timeout 4294967297", "running=1 hang\n", 1, 2.9);
    expect("late --timeout 0", "\t*\tactive=1\n", 1.1, 9);
    EXPECT_EQ(read_file("/run/0") + read_file("/run/0x1"), "124\n124\n");
}

TEST_F(Report, ProgressIsShownWhenAskedFor)
{
    write_file(OUTPUTS + "main", "driver=x11\n");
    output_of("mkdir /mnt/main/tv/outputs/.main.metadir");
    const std::string connecting = std::string("Connecting to ") + ENTRY + "\n";
    Descriptor listener = socket_at(ENTRY);
    // Bound, and so running to all appearance, but refusing every connection.
    EXPECT_EQ(list("-v --timeout 1").err, connecting + "Connection failed\n");
    EXPECT_EQ(list("-v --timeout 0").err, connecting + "Connection failed\nTimeout\n");
    EXPECT_EQ(list("-v --timeout -1").err, connecting + "Connection failed\nTimeout\n");
    EXPECT_EQ(list("--timeout 0").err, "");

    // With no room for one more connection, connecting itself takes the whole time.
    ASSERT_EQ(::listen(listener.get(), 0), 0);
    const CommSocket waiting(comm_socket_v4_create());
    ASSERT_EQ(comm_socket_v4_connect_to(waiting.get(), ENTRY), 0);
    const Clock::time_point begin = Clock::now();
    EXPECT_EQ(list("-v --timeout 1").err, connecting + "Connection failed\nTimeout\n");
    EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(990));
    listener.reset();

    start_main("");
    EXPECT_EQ(list("-v").err, connecting);
    EXPECT_EQ(list("").err, "");
}

}  // namespace
