#include <algorithm>

#include "zelmctl/check/driver/faults.hpp"
#include "zelmctl/check/driver/limits.hpp"
#include "zelmctl/check/findings.hpp"

namespace {

const std::string KEY = "zelmctl check";  // that no driver knows
const std::string ODD_VALUE = "a=b\x01\x1b\t\r\n\xff";

// Has the driver's client ask that. Empty if it is answered, or what it is and what came instead.
std::string fault_of_request(
    Trial& trial, const char* what, std::string_view command, const std::vector<std::string>& arguments = {})
{
    const Heard heard = trial.ask(command, arguments);
    if (heard.is_answer())
        return {};
    if (const std::string end = trial.what_became(); !end.empty())
        return "asked " + std::string(what) + " " + end + "; whoever asks stops the item";
    return std::string(what) +
           (heard.hung_up ? " is hung up on; whoever asks gets no answer"
                          : " isn't answered within " + std::to_string(seconds_of(ANSWER_LIMIT_US)) +
                                " seconds; whoever asks waits for it");
}

std::string fault_of_set(Trial& trial, const std::string& key, const std::string& value, const char* what)
{
    return fault_of_request(trial, what, "set", {key, value});
}

// The value that is reported under that key.
std::optional<std::string> reported(Trial& trial, const std::string& key)
{
    for (const ReportedEntry& entry : entries_of(trial.ask("report").packet))
        if (!entry.name.empty() && entry.name.substr(1) == key)
            return entry.value;
    return {};
}

// A setting that it reports once, so that it can be set to what it is.
std::optional<ReportedEntry> reported_setting(const std::vector<ReportedEntry>& entries)
{
    for (const ReportedEntry& entry : entries) {
        const auto same = [&](const ReportedEntry& other) { return other.name == entry.name; };
        if (entry.name.size() > 1 && entry.name.front() == '*' && !entry.value.empty() &&
            std::count_if(entries.begin(), entries.end(), same) == 1)
            return entry;
    }
    return {};
}

}  // namespace

std::string faults::sequence(Trial& trial)
{
    const Heard& heard = trial.first_report();
    return heard.answered == heard.asked
               ? ""
               : "the reply doesn't repeat the sequence number; a client that looks waits for another";
}

std::string faults::flags(Trial& trial)
{
    return trial.first_report().is_flagged
               ? "it sends a request, or a reply with the flag of an event; the tools drop such packets"
               : "";
}

std::string faults::survives_report(Trial& trial)
{
    const std::string end = trial.first_report().hung_up ? trial.what_became() : "";
    return end.empty() ? "" : "asked for a report " + end + "; the first listing stops the item";
}

std::string faults::keeps_connection(Trial& trial)
{
    return trial.first_report().hung_up ? "it hangs up instead of answering; the tools show the item as hung"
                                        : "";
}

std::string faults::report(Trial& trial)
{
    return trial.first_report().is_answer()
               ? ""
               : "a report isn't answered within " + std::to_string(seconds_of(ANSWER_LIMIT_US)) +
                     " seconds; the tools show the item as hung";
}

std::string faults::next_request(Trial& trial)
{
    std::string fault;
    for (const char* which : {"the first request", "the second request", "the third request"})
        if (fault.empty())
            fault = fault_of_request(trial, which, "report");
    return fault;
}

std::string faults::no_request(Trial& trial)
{
    trial.driver().first_client().send(::no_request());
    const Heard heard = trial.ask("report");
    return !heard.is_answer() || heard.answered == heard.asked
               ? ""
               : "it answers a packet without the flag of a request; two that do so never end";
}

std::string faults::other_word(Trial& trial)
{
    return fault_of_request(trial, "an unknown command word", "zelmctl-check");
}

std::string faults::set_reported(Trial& trial)
{
    const auto setting = reported_setting(trial.first_entries());
    return setting ? fault_of_set(
                         trial, setting->name.substr(1), setting->value, "a set of a key that it reports")
                   : "";
}

std::string faults::set_unknown(Trial& trial)
{
    return fault_of_set(trial, KEY, "1", "a set of an unknown key");
}

std::string faults::set_no_key(Trial& trial)
{
    const std::string fault = fault_of_set(trial, "", "1", "a set of the empty key");
    return fault.empty() && reported(trial, "") ? "the empty key is a setting; no file can hold it" : fault;
}

std::string faults::set_no_value(Trial& trial)
{
    std::string fault = fault_of_set(trial, KEY, "1", "a set of an unknown key");
    if (fault.empty())
        fault = fault_of_set(trial, KEY, "", "a set of an empty value");
    return fault.empty() && reported(trial, KEY).value_or("") == "1"
               ? "an empty value doesn't remove the setting; listings tell another than the file has"
               : fault;
}

std::string faults::set_command(Trial& trial)
{
    const std::string fault = fault_of_set(trial, "+" + KEY, "1", "a set of a command");
    return fault.empty() && reported(trial, "+" + KEY) ? "a command becomes a setting; no file can hold it"
                                                       : fault;
}

std::string faults::set_odd_value(Trial& trial)
{
    return fault_of_set(trial, KEY, ODD_VALUE, "a set with \"=\" and control bytes in the value");
}

std::string faults::nothing_set(Trial& trial)
{
    DriverUnderTest& bare = trial.bare();
    if (!bare.comes_up())
        return "without a setting it doesn't come up; a new item can't be started";
    return bare.first_client().ask("report", {}, from_now(ANSWER_LIMIT_US)).is_answer()
               ? ""
               : "without a setting a report isn't answered; a new item is shown as hung";
}

std::string faults::letters(Trial& trial)
{
    for (const ReportedEntry& entry : trial.first_entries()) {
        const bool is_known = entry.name.starts_with('*') || entry.name.starts_with('&');
        if (!is_known || entry.name.size() == 1)
            return "it reports " + in_quotes(entry.name) + "; the tools warn of it or show no key";
    }
    return {};
}

std::string faults::line_feeds(Trial& trial)
{
    trial.ask("set", {KEY, ODD_VALUE});
    for (const auto& [name, value] : entries_of(trial.ask("report").packet))
        if ((name + value).find('\n') != std::string::npos)
            return "the entry " + in_quotes(name) + " holds a line feed; listings break there";
    return {};
}

std::string faults::manifest(Trial& trial)
{
    const zelm_config_list& manifest = *trial.program().manifest;
    for (const ReportedEntry& entry : trial.first_entries()) {
        const std::string key = entry.name.substr(std::min<std::size_t>(1, entry.name.size()));
        if (std::none_of(manifest.begin(), manifest.end(), [&](const auto& row) { return row.first == key; }))
            return "it reports " + in_quotes(key) + ", of which the manifest says nothing";
    }
    return {};
}
