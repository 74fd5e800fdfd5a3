#include "schema/consume/consume_channel.hpp"

using json11::Json;

void ConsumerChannel::createItems()
{
    name(document());
    behavior(document());
    reporting(document());
    audio(document());
    video(document());
    caption(document());
    debug(document());
    regions(document());
}

Params ConsumerChannel::section(const Document& document, const std::string& key)
{
    const auto found = document.find(key);
    const bool is_object = found != document.end() && found->second.is_object();
    return Params(is_object ? found->second : Json(Json::object{}));
}

void ConsumerChannel::name(const Document& document)
{
    if (document.empty())
        return;
    create_item("channel name", Params(document).string("name").description(
                                    "if set, gives the channel a name instead of \"channel X\""));
}

void ConsumerChannel::reporting(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "reporting");
    reporting_enable(params);
    reporting_interval(params);
    reporting_service(params);
    reporting_mode(params);
    reporting_lastReport(params);
}

void ConsumerChannel::reporting_enable(Params params)
{
    create_item("reporting log",
        params.boolean("enable", "1").description("Whether to send JSON events to the reporting service"));
}

void ConsumerChannel::reporting_interval(Params params)
{
    create_item("reporting interval",
        params.integer("interval", "5")
            .description("How frequently to send updates to the reporting service in seconds"));
}

void ConsumerChannel::reporting_service(Params params)
{
    create_item("reporting mode",
        params.string("mode").description(
            "Reporting mode. As reporting transitions from one schema to another this indicates which schema"));
}

// No service, be it null or an empty array, is the root directory.
void ConsumerChannel::reporting_mode(Params params)
{
    params.array("service").description("Where to send reporting event data");
    if (params.hasKey())
        create_item("reporting", "/" + params.arrayValue("/"));
}

// The writing side fills the member from "realtime status".
void ConsumerChannel::reporting_lastReport(Params params)
{
    create_item("last report", params.string("lastReport").description("Last reporting event logged"));
}
