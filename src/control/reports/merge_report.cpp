#include "control/reports/merge_report.hpp"

#include <algorithm>
#include <cstring>

namespace {

// What a line of a listing, or a warning, has beside its texts; roughly.
constexpr std::size_t BESIDE_TEXTS = 8;

struct ReportedLine {
    std::string_view text;
    char letter;
};
using ReportedLines = std::vector<std::pair<std::string_view, ReportedLine>>;

bool is_status(const comm_socket_v4_entry& entry)
{
    return entry.name && entry.value && (entry.name[0] == '*' || entry.name[0] == '&');
}

// A listing repeats the key with each line of its value.
std::size_t added_by(const comm_socket_v4_entry& entry)
{
    const std::size_t name = entry.name ? std::strlen(entry.name) : 0;
    if (!is_status(entry))
        return name + BESIDE_TEXTS;
    const std::string_view value = entry.value;
    const auto feeds = static_cast<std::size_t>(std::count(value.begin(), value.end(), '\n'));
    return value.size() + (feeds + 1) * (name + BESIDE_TEXTS);
}

// Stops counting where it is too much, since counting takes its time too.
std::size_t added_by(const comm_socket_v4_packet* reply)
{
    const std::size_t entries = comm_socket_v4_packet_entries(reply);
    std::size_t added = 0;
    for (std::size_t i = 0; i < entries && added <= REPORT_LIMIT; ++i)
        added += added_by(comm_socket_v4_packet_entry(reply, i));
    return added;
}

// A status entry becomes a line, and what is neither that nor missing is odd.
void sort_entry(const comm_socket_v4_entry& entry, ReportedLines& lines, std::vector<OddEntry>& odd)
{
    if (!entry.in_table) {
        odd.push_back({0, {}});
        return;
    }
    if (!entry.name || !entry.value)
        return;
    switch (entry.name[0]) {
    case '*':
    case '&': lines.push_back({entry.name + 1, {entry.value, entry.name[0]}}); break;
    case '>':
    case '?': odd.push_back({entry.name[0], entry.name + 1}); break;
    default: odd.push_back({'=', entry.name}); break;
    }
}

std::string_view append(std::string& kept, std::string_view text)
{
    kept += text;
    return std::string_view(kept).substr(kept.size() - text.size());
}

// The lines by their keys, with those of one key joined. The texts move to `kept`, which has room for them.
ReportedLines joined(ReportedLines lines, std::string& kept)
{
    std::stable_sort(lines.begin(), lines.end(),
        [](const auto& one, const auto& other) { return one.first < other.first; });
    ReportedLines values;
    for (const auto& [key, line] : lines) {
        if (values.empty() || values.back().first != key)
            values.push_back({append(kept, key), {append(kept, ""), line.letter}});
        ReportedLine& value = values.back().second;
        const std::size_t begin = kept.size() - value.text.size();
        if (!value.text.empty())
            kept += '\n';
        kept += line.text;
        value = {std::string_view(kept).substr(begin), line.letter};
    }
    return values;
}

}  // namespace

std::optional<std::vector<OddEntry>> merge_report(InfoList& list, const comm_socket_v4_packet* reply)
{
    const std::size_t added = added_by(reply);
    if (added > REPORT_LIMIT)
        return {};
    ReportedLines lines;
    std::vector<OddEntry> odd;
    const std::size_t entries = comm_socket_v4_packet_entries(reply);
    for (std::size_t i = 0; i < entries; ++i)
        sort_entry(comm_socket_v4_packet_entry(reply, i), lines, odd);
    std::string& kept = list.keep({});
    kept.reserve(added);
    list.update(joined(std::move(lines), kept), [](infolist_item& item, const ReportedLine& value, bool) {
        item.value = value.text;
        item.marker = value.letter;
    });
    return odd;
}
