#include "answer.hpp"

#include <csignal>
#include <cstdio>
#include <string_view>
#include <unistd.h>
#include <utility>

#include "corruption.hpp"
#include "misbehaviour.hpp"
#include "platform/packet.hpp"
#include "report.hpp"
#include "settings/settings_file.hpp"

namespace {

void set(DriverState& state, const packet::Reader& request)
{
    const char* const key = request.argument(0).value;
    const char* const value = request.argument(1).value;
    if (!key || !value || *key == '\0')
        return;
    if (is_live_command(key))
        state.last_command = std::string(key) + "=" + value;
    else if (*value == '\0')
        state.settings.erase(key);
    else
        state.settings[key] = value;
}

// A packet that no client may take for the reply, whatever it says.
std::vector<unsigned char> flagged_packet(std::uint8_t flags)
{
    packet::Writer writer;
    writer.begin("report", flags, 0);
    writer.add("*flagged packet", "1");
    writer.finish();
    return writer.bytes();
}

std::vector<unsigned char> reply(
    DriverState& state, const packet::Reader& request, const Misbehaviour& misbehaviour)
{
    const std::string_view command = request.command();
    packet::Writer writer;
    writer.begin(command, 0, request.sequence());
    if (command == "report") {
        ++state.reports;
        write_report(writer, state, misbehaviour);
    }
    writer.finish();
    std::vector<unsigned char> bytes = writer.bytes();
    if (command == "report" && !misbehaviour.corrupt.empty() &&
        !corrupt_packet(bytes, misbehaviour.corrupt, state.reports))
        std::fprintf(stderr, "no such corruption: %s\n", misbehaviour.corrupt.c_str());
    return bytes;
}

}  // namespace

Answer answer_request(DriverState& state, const std::vector<unsigned char>& bytes)
{
    const packet::Reader request(bytes);
    Answer answer;
    if ((request.flags() & packet::FLAG_REQUEST) == 0)
        return answer;
    const std::string_view command = request.command();
    if (command == "set")
        set(state, request);
    const Misbehaviour misbehaviour(state.settings);
    if (misbehaviour.crash_on_report && command == "report")
        ::kill(::getpid(), SIGKILL);
    answer.delay_ms = misbehaviour.answer_delay_ms;
    answer.hang_up = misbehaviour.hang_up || misbehaviour.hang_up_mid;
    if (misbehaviour.hang_up_mid)
        answer.packets.push_back(flagged_packet(packet::FLAG_EVENT));
    if (answer.hang_up || misbehaviour.never_answer)
        return answer;
    for (std::uint64_t i = 0; i < misbehaviour.flagged_packets; ++i)
        answer.packets.push_back(flagged_packet(i % 2 == 0 ? packet::FLAG_EVENT : packet::FLAG_REQUEST));
    answer.packets.push_back(reply(state, request, misbehaviour));
    return answer;
}
