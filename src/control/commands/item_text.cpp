#include "control/commands/item_text.hpp"

#include <algorithm>

#include "control/run_state.hpp"

namespace {

char* put(std::string_view text, char* at)
{
    return std::copy(text.begin(), text.end(), at);
}

// Makes room once for each line: a listing consists of little else.
void append_line(std::string& out, std::string_view mark, std::string_view key, std::string_view text)
{
    const std::size_t begin = out.size();
    out.resize(begin + mark.size() + key.size() + text.size() + 4);
    char* at = out.data() + begin;
    *at++ = '\t';
    at = put(mark, at);
    *at++ = '\t';
    at = put(key, at);
    *at++ = '=';
    at = put(text, at);
    *at = '\n';
}

// The marker stands on the last line; the lines before it say that more follow.
void append_value(std::string& out, std::string_view key, const infolist_item& item)
{
    const std::string_view marker(&item.marker, item.marker == 0 ? 0 : 1);
    std::string_view left = item.value;
    const char* mark = "<..";
    for (std::size_t end = left.find('\n'); end != std::string_view::npos; end = left.find('\n')) {
        append_line(out, mark, key, left.substr(0, end));
        left.remove_prefix(end + 1);
        mark = "...";
    }
    append_line(out, marker, key, left);
}

void append_description(std::string& out, const infolist_item& item)
{
    if (!item.desc.empty())
        out.append(".desc=").append(item.desc).append("\n");
    if (item.s_flag || item.nogui_flag)
        out.append(".flags=")
            .append(item.s_flag ? "!s:" : "")
            .append(item.nogui_flag ? "!nogui:" : "")
            .append("\n");
    if (!item.ui_text.empty())
        out.append(".ui=").append(item.ui_text).append("\n");
}

}  // namespace

void append_item(std::string& out, const std::string& name, const InfoList& list)
{
    out.append(name).append("{\n");
    for (const auto& [key, item] : list) {
        if ((quicksummary || except_quicksummary) && item.quick_summary != quicksummary)
            continue;
        append_value(out, key, item);
        if (show_description)
            append_description(out, item);
    }
    out += "}\n";
}
