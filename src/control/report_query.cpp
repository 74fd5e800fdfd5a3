#include "control/report_query.hpp"

#include <map>
#include <sys/stat.h>

#include "control/request_packet.hpp"
#include "control/run_state.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::uint64_t SECOND_US = 1000000;
constexpr std::uint64_t BACK_OFF_US = 10 * SECOND_US;  // on top of the second between two attempts
constexpr std::uint64_t POLL_US = SECOND_US;

CommSocket connection;
std::string connection_path;

// When a socket was tried last; 0 once an exchange has come to its end. A time in the future holds off
// further attempts.
std::map<std::string, std::uint64_t> connect_last_attempt;

void progress(const char* text)
{
    if (verbose)
        std::fputs(text, stderr_write);
}

bool is_socket(const char* path)
{
    struct stat state {};
    return ::stat(path, &state) == 0 && S_ISSOCK(state.st_mode);
}

bool is_held_off(const std::string& path)
{
    const auto attempt = connect_last_attempt.find(path);
    return attempt != connect_last_attempt.end() && monotonic_clock_us() < attempt->second + SECOND_US;
}

// Gives the query up and holds off further attempts.
void back_off(const std::string& path)
{
    connect_last_attempt[path] = monotonic_clock_us() + BACK_OFF_US;
    connection.reset();
}

// A time limit below 0 has run out from the start: only 0 waits for ever.
bool is_time_up()
{
    return per_item_timeout != 0 && monotonic_clock_us() >= next_timeout;
}

// 1 when connected, otherwise what the query returns.
int connect_to(const std::string& path)
{
    if (verbose)
        std::fprintf(stderr_write, "Connecting to %s\n", path.c_str());
    connection.reset(comm_socket_v4_create());
    if (!connection)
        return 0;
    const std::uint64_t started = monotonic_clock_us();
    connect_last_attempt[path] = started;
    const std::int64_t limit_us =
        static_cast<std::int64_t>(per_item_timeout) * static_cast<std::int64_t>(SECOND_US);
    comm_socket_v4_set_connect_timeout(connection.get(), limit_us);
    comm_socket_v4_set_connect_timeout_routine(connection.get(), limit_us);
    if (comm_socket_v4_connect_to(connection.get(), path.c_str()) == 0) {
        connection_path = path;
        return 1;
    }
    back_off(path);
    progress("Connection failed\n");
    if (static_cast<std::int64_t>(started) + limit_us > static_cast<std::int64_t>(monotonic_clock_us()))
        return 0;
    progress("Timeout\n");
    return -1;
}

enum class Exchange { DONE, FAILED, TIME_UP };

Exchange send_request(comm_socket_v4_packet* packet)
{
    int sent = 0;
    while ((sent = comm_socket_v4_packet_send_to_server(connection.get(), packet)) == 0) {
        if (is_time_up())
            return Exchange::TIME_UP;
        comm_socket_v4_wait_for_client_to_server_writeable(connection.get(), monotonic_clock_us() + POLL_US);
    }
    return sent > 0 ? Exchange::DONE : Exchange::FAILED;
}

Exchange receive_reply(CommPacket& reply)
{
    for (;;) {
        if (is_time_up())
            return Exchange::TIME_UP;
        if (comm_socket_v4_idle(connection.get()) < 0)
            return Exchange::FAILED;
        comm_socket_v4_client_from_server_readable(connection.get(), monotonic_clock_us() + POLL_US);
        reply.reset(comm_socket_v4_client_get_packet_from_server(connection.get()));
        if (reply && is_reply(*reply))
            return Exchange::DONE;
    }
}

void warn_of_entry(char type, const char* name)
{
    std::fprintf(stderr_write,
        "WARNING: media item report function returns item that is not status (type '%c') '%s'\n", type, name);
}

// The first report of a key drops what the list held; a key that is reported again gains a line.
void merge_status(InfoList& list, char letter, const char* key, const char* value)
{
    infolist_item& item = list[key];
    if (!item.reported)
        item.value.clear();
    if (!item.value.empty())
        item.value += '\n';
    item.value += value;
    item.marker = letter;
    item.reported = true;
}

void merge_entry(InfoList& list, const comm_socket_v4_entry& entry)
{
    if (!entry.in_table) {
        std::fprintf(stderr_write, "Problem reading\n");
        return;
    }
    if (!entry.name || !entry.value)
        return;
    switch (entry.name[0]) {
    case '*':
    case '&': merge_status(list, entry.name[0], entry.name + 1, entry.value); break;
    case '>':
        std::fprintf(stderr_write,
            "WARNING: media item report function returns page '%s'. Pages are unsupported.\n",
            entry.name + 1);
        break;
    case '?': warn_of_entry('?', entry.name + 1); break;
    default: warn_of_entry('=', entry.name); break;
    }
}

void merge_reply(InfoList& list, const comm_socket_v4_packet* reply)
{
    const std::size_t entries = comm_socket_v4_packet_entries(reply);
    for (std::size_t i = 0; i < entries; ++i)
        merge_entry(list, comm_socket_v4_packet_entry(reply, i));
}

}  // namespace

int do_list_send_command(const char* path, InfoList& list)
{
    if (!path || connection_path != path)
        connection.reset();
    if (!path || !is_socket(path) || is_held_off(path))
        return 0;
    reset_timeout();
    if (connection) {
        if (verbose)
            std::fprintf(stderr_write, "Re-using connection to %s\n", path);
    } else if (const int connected = connect_to(path); connected != 1) {
        return connected;
    }
    const CommPacket request = begin_request("report");
    if (!request) {
        back_off(path);
        return 0;
    }
    comm_socket_v4_packet_write_end(request.get());
    CommPacket reply;
    Exchange exchange = send_request(request.get());
    if (exchange == Exchange::DONE)
        exchange = receive_reply(reply);
    if (exchange == Exchange::TIME_UP) {
        connection.reset();
        return 0;
    }
    if (exchange == Exchange::DONE)
        merge_reply(list, reply.get());
    connect_last_attempt[path] = 0;
    return exchange == Exchange::DONE ? 1 : 0;
}
