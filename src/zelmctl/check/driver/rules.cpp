#include "zelmctl/check/driver/rules.hpp"

#include "platform/packet_faults.hpp"
#include "zelmctl/check/driver/faults.hpp"

namespace {

using namespace rule;
using packet::Part;

template <Part PART> std::string layout(Trial& trial)
{
    return packet::fault(PART, trial.first_report().packet);
}

constexpr char SOCKET[] = "THE SOCKET";
constexpr char LAYOUT[] = "LAYOUT";
constexpr char REQUESTS[] = "REQUESTS";
constexpr char ENTRIES[] = "ENTRIES OF A REPORT";
constexpr char CLIENTS[] = "CLIENTS";
constexpr char END[] = "THE END";

constexpr RuleSet RUNS = set_of(UP, STAYS);
constexpr RuleSet TALKS = set_of(STAYS, REPORT);
constexpr RuleSet READABLE = set_of(ENDS);
constexpr RuleSet SERVES = set_of(NEXT_REQUEST, SILENT);

constexpr Rule RULES[] = {
    {UP, SOCKET, "It is up within 10 seconds of its start.", {}, faults::up},
    {STAYS, SOCKET, "It runs until it is told to end.", set_of(UP), faults::stays},
    {KIND, SOCKET, "Its socket is of the type SOCK_SEQPACKET.", RUNS, faults::kind},
    {PATH, SOCKET, "It binds with the full path of the entry.", RUNS, faults::path},
    {FOUND, SOCKET, "The entry is the file at which the kernel knows the socket.", set_of(PATH),
        faults::found},
    {LINK, SOCKET, "Where the path is too long, the entry is an absolute link to a short one.", set_of(FOUND),
        faults::link},
    {CLOSED_ON_EXEC, SOCKET, "Its sockets are close-on-exec.", set_of(FOUND, REPORT), faults::closed_on_exec},
    {ENTRY_RIGHTS, SOCKET, "The entry is its user's, and gives others no more than the umask leaves.", RUNS,
        faults::entry_rights},
    {LOCK, SOCKET, "It waits a second at least for the lock of the metadir.", RUNS, faults::lock},
    {LOCK_IN_VAIN, SOCKET, "It doesn't wait for ever for the lock of the metadir.", RUNS,
        faults::lock_in_vain},
    {SECOND_START, SOCKET, "A second start at a served entry ends and changes nothing.", set_of(NEXT_REQUEST),
        faults::second_start},
    {DEAD_ENTRY, SOCKET, "It comes up where a dead predecessor has left its entry.", RUNS,
        faults::dead_entry},
    {ACCEPTS, SOCKET, "It accepts connections at once.", set_of(STAYS, KIND), faults::accepts},

    {SIZE, LAYOUT, "A reply has 103 bytes at least.", TALKS, layout<Part::SIZE>},
    {MAGIC, LAYOUT, "It begins with \"TVP4\".", set_of(SIZE), layout<Part::MAGIC>},
    {LENGTH, LAYOUT, "It tells the length that it has.", set_of(MAGIC), layout<Part::LENGTH>},
    {SEQUENCE, LAYOUT, "It repeats the sequence number of its request.", set_of(LENGTH), faults::sequence},
    {FLAGS, LAYOUT, "No packet has the flag 0x01, and no reply 0x02.", set_of(ACCEPTS), faults::flags},
    {COMMAND, LAYOUT, "The command word is filled up with NULs.", set_of(LENGTH), layout<Part::COMMAND>},
    {TABLE, LAYOUT, "The table lies behind the header and within the packet.", set_of(LENGTH),
        layout<Part::TABLE>},
    {COUNT, LAYOUT, "The packet has room for as many entries as it counts.", set_of(TABLE),
        layout<Part::COUNT>},
    {TEXTS, LAYOUT, "Names and values lie behind the header and within the packet.", set_of(COUNT),
        layout<Part::TEXTS>},
    {ENDS, LAYOUT, "Names and values end in NUL.", set_of(TEXTS), layout<Part::ENDS>},
    {RESERVED, LAYOUT, "The last 8 bytes of an entry are 0.", set_of(COUNT), layout<Part::RESERVED>},

    {SURVIVES_REPORT, REQUESTS, "A report doesn't end it.", set_of(ACCEPTS), faults::survives_report},
    {KEEPS_CONNECTION, REQUESTS, "It answers instead of hanging up.", set_of(SURVIVES_REPORT),
        faults::keeps_connection},
    {REPORT, REQUESTS, "It answers a report within 15 seconds.", set_of(KEEPS_CONNECTION, FLAGS),
        faults::report},
    {NEXT_REQUEST, REQUESTS, "It takes one request after the other on a connection.", TALKS,
        faults::next_request},
    {NO_REQUEST, REQUESTS, "It answers nothing but requests.", set_of(NEXT_REQUEST, SEQUENCE),
        faults::no_request},
    {OTHER_WORD, REQUESTS, "It answers any other command word.", set_of(NEXT_REQUEST), faults::other_word},
    {SET_REPORTED, REQUESTS, "It answers a set of a key that it reports.", set_of(NEXT_REQUEST, ENDS),
        faults::set_reported},
    {SET_UNKNOWN, REQUESTS, "It answers a set of a key that it doesn't know.", set_of(NEXT_REQUEST),
        faults::set_unknown},
    {SET_NO_KEY, REQUESTS, "It answers a set of the empty key and sets nothing.",
        set_of(NEXT_REQUEST, LETTERS), faults::set_no_key},
    {SET_NO_VALUE, REQUESTS, "It answers a set of the empty value, which removes the key.",
        set_of(SET_UNKNOWN, ENDS), faults::set_no_value},
    {SET_COMMAND, REQUESTS, "It answers a command, which becomes no setting.", set_of(NEXT_REQUEST, ENDS),
        faults::set_command},
    {SET_ODD_VALUE, REQUESTS, "It answers a set whose value holds \"=\" and control bytes.",
        set_of(SET_UNKNOWN), faults::set_odd_value},

    {NOTHING_SET, ENTRIES, "It comes up and answers while nothing is set.", TALKS, faults::nothing_set},
    {LETTERS, ENTRIES, "Each name is \"*\" or \"&\" and a key.", READABLE, faults::letters},
    {LINE_FEEDS, ENTRIES, "A value of several lines is as many entries.", set_of(ENDS, SET_ODD_VALUE),
        faults::line_feeds},
    {MANIFEST, ENTRIES, "The manifest has each key that is reported.", READABLE, faults::manifest},

    {SILENT, CLIENTS, "It serves others beside clients that say nothing.", TALKS, faults::silent},
    {SHORT, CLIENTS, "It goes on after a packet without a whole header.", SERVES, faults::short_packet},
    {SPLIT, CLIENTS, "It goes on after half a request.", set_of(SHORT), faults::split},
    {LONG, CLIENTS, "It goes on after a packet of 100 KB.", SERVES, faults::long_packet},
    {GARBLED, CLIENTS, "It goes on after counts and offsets that lead out of the packet.", SERVES,
        faults::garbled},
    {FLOOD, CLIENTS, "It serves others beside a client that asks and doesn't read.", SERVES, faults::flood},
    {HANG_UP, CLIENTS, "It goes on after clients that hang up before their reply.", SERVES, faults::hang_up},
    {AT_ONCE, CLIENTS, "It answers 20 clients at once.", SERVES | set_of(SET_UNKNOWN), faults::at_once},
    {CROWD, CLIENTS, "300 idle clients don't shut out others.", set_of(AT_ONCE), faults::crowd},
    {LONGEST_SILENT, CLIENTS, "Of so many, none is let go that talks.", set_of(CROWD),
        faults::longest_silent},
    {GONE_CLIENTS, CLIENTS, "It closes the connections of clients that have gone.", SERVES | set_of(FOUND),
        faults::gone_clients},
    {GROWTH, CLIENTS, "10000 reports don't let it grow by more than 4 MiB.", set_of(AT_ONCE, FOUND),
        faults::growth},

    {ENDING, END, "SIGTERM ends it within 15 seconds.", set_of(STAYS, KIND), faults::ending},
    {ENTRY_REMOVED, END, "It removes its entry on the way out.", set_of(ENDING), faults::entry_removed},
    {NOTHING_LEFT, END, "None of its processes is left.", set_of(ENDING), faults::nothing_left},
};

constexpr bool are_numbered()
{
    int number = 0;
    for (const Rule& rule : RULES)
        if (rule.number != ++number)
            return false;
    return number + 1 == BEHIND_THE_LAST;
}
static_assert(are_numbered());

}  // namespace

std::span<const Rule> driver_rules()
{
    return RULES;
}
