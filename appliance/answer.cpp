#include "answer.hpp"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <unistd.h>
#include <utility>

#include "corruption.hpp"
#include "driver_status.hpp"
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

bool is_odd(std::string_view value)
{
    return std::any_of(value.begin(), value.end(),
        [](unsigned char byte) { return byte < ' ' || byte == '=' || byte == 0x7f; });
}

// Which of the requests it is that may be left unanswered; empty for a report.
std::string_view kind_of(const DriverState& state, const packet::Reader& request)
{
    const std::string_view command = request.command();
    const char* const key = request.argument(0).value;
    const char* const value = request.argument(1).value;
    if (command != "set" || !key || !value)
        return command == "report" ? "" : "word";
    if (*key == '\0')
        return "no-key";
    if (is_live_command(key))
        return "command";
    if (*value == '\0')
        return "no-value";
    const auto statuses = driver_status(state);
    const bool is_reported = std::any_of(
        statuses.begin(), statuses.end(), [&](const StatusEntry& each) { return each.key == key; });
    return is_reported ? "reported" : is_odd(value) ? "odd-value" : "unknown";
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
        if (misbehaviour.leak_bytes > 0)
            state.leaked.emplace_back(static_cast<std::size_t>(misbehaviour.leak_bytes), 'x');
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
    const bool answers_everything = setting_text(state.settings, "sim answer everything") == "1";
    if ((request.flags() & packet::FLAG_REQUEST) == 0 && !answers_everything)
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
    if (answer.hang_up || misbehaviour.never_answer ||
        (!misbehaviour.unanswered.empty() && misbehaviour.unanswered == kind_of(state, request)))
        return answer;
    answer.hang_up = misbehaviour.hang_up_after;
    for (std::uint64_t i = 0; i < misbehaviour.flagged_packets; ++i)
        answer.packets.push_back(flagged_packet(i % 2 == 0 ? packet::FLAG_EVENT : packet::FLAG_REQUEST));
    answer.packets.push_back(reply(state, request, misbehaviour));
    return answer;
}
