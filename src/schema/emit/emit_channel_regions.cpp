#include "schema/composite_text.hpp"
#include "schema/emit/emit_channel.hpp"
#include "schema/region_defs.hpp"
#include "schema/schema_params.hpp"

using json11::Json;

namespace {

// The two words of a pair. A word that the text lacks is empty.
std::vector<std::string> two_words(const std::string& text)
{
    std::vector<std::string> words = split(text, " ");
    words.resize(2);
    return words;
}

}  // namespace

Json EmitChannel::regions() const
{
    return Json::object{
        {"main", regions_main()},
        {"item", region(region_key_map("item"), false)},
        {"urgent", region(region_key_map("urgent"), false)},
        {"music", region(region_key_map("background music"), true)},
        {"alerts",
            Json::object{
                {"text", region(region_key_map("eas scroll text"), false)},
                {"media", region(region_key_map("eas av"), false)},
            }},
        {"global", regions_global()},
    };
}

Json EmitChannel::regions_main() const
{
    const std::string& layer = value("main layer");
    if (layer == "item" || layer == "urgent" || layer == "music")
        return Json::object{{"kind", layer}};
    if (layer == "text" || layer == "media")
        return Json::object{{"kind", "alerts"}, {"part", layer}};
    return Json::object{{"kind", "global"}, {"index", layer}};
}

Json EmitChannel::regions_global() const
{
    Json::array items;
    for (std::size_t i = 1; i <= GLOBAL_ITEMS; ++i)
        items.push_back(region(region_key_map("global item " + std::to_string(i)), false));
    return items;
}

Json EmitChannel::region(const Document& keys, bool with_policy) const
{
    const Json tree(keys);
    const auto key = [&tree](const JsonPath& member) { return reduce(tree, member).string_value(); };
    Json::object members{
        {"enable", boolean(key({"enable"}))},
        {"media",
            Json::object{
                {"path", path(key({"media", "path"}))},
                {"loop", boolean(key({"media", "loop"}))},
                {"mimeType", value(key({"media", "mimeType"}))},
                {"leafPath", path(key({"media", "leafPath"}))},
                {"leafMimeType", value(key({"media", "leafMimeType"}))},
                {"context", region_count(key({"media", "context"}))},
                {"played", region_count(key({"media", "played"}))},
                {"state", value(key({"media", "state"}))},
            }},
        {"audio",
            Json::object{
                {"enable", boolean(key({"audio", "enable"}))},
                {"volume", number(key({"audio", "volume"}))},
                {"force", boolean(key({"audio", "force"}))},
                {"rendering", boolean(key({"audio", "rendering"}))},
            }},
        {"video",
            Json::object{
                {"enable", boolean(key({"video", "enable"}))},
                {"geometry",
                    Json::object{
                        {"size", region_pair(key({"video", "geometry", "size"}), "width", "height")},
                        {"position", region_pair(key({"video", "geometry", "position"}), "x", "y")},
                    }},
                {"force", boolean(key({"video", "force"}))},
                {"align", region_alignment(key({"video", "align"}))},
                {"rendering", boolean(key({"video", "rendering"}))},
            }},
    };
    if (with_policy) {
        const std::string& policy = value("background music default policy");
        members["policy"] = policy == "if no audio" ? "if-no-audio" : policy;
    }
    return members;
}

// What the renderer counts starts at 1; "-1" and 0 stand for none.
Json EmitChannel::region_count(const std::string& flat_key) const
{
    const int count = read_integer(value(flat_key));
    return count < 1 ? Json() : Json(count);
}

Json EmitChannel::region_pair(const std::string& flat_key, const char* first, const char* second) const
{
    const std::vector<std::string> words = two_words(value(flat_key));
    return Json::object{{first, read_number(words[0])}, {second, read_number(words[1])}};
}

Json EmitChannel::region_alignment(const std::string& flat_key) const
{
    std::vector<std::string> words = two_words(value(flat_key));
    for (std::string& word : words)
        if (word.empty())
            word = "center";
    return Json::object{{"vertical", words[0]}, {"horizontal", words[1]}};
}
