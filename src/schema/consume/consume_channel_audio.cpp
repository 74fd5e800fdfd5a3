#include "schema/consume/consume_channel.hpp"

namespace {

constexpr char MINIMUM_TEXT[] =
    "Minimum level in dBFS (0=full volume, -6=6dBFS below full). Audio below this level is not amplified";
constexpr char LOWER_TEXT[] =
    "Lower level in dBFS. Audio at or above minimum level is amplified to this level";
constexpr char UPPER_TEXT[] = "Upper level in dBFS. Audio above this level is attenuated down to this level";
constexpr char MAXIMUM_TEXT[] =
    "Hard limit in dBFS. Audio will not exceed this level if normalization is enabled";

}  // namespace

// The meter is a status that a document can't set.
void ConsumerChannel::audio(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "audio");
    audio_channels(params);
    audio_rate(params);
    audio_fetchExtraSample(params);
    audio_normalizer(params);
    audio_ducking_test(params);
    audio_ducking_interval(params);
    audio_ducking_level(params);
    audio_normalizer_enable(params);
    audio_normalizer_attack(params);
    audio_normalizer_decay(params);
    audio_normalizer_passes(params);
    audio_normalizer_filters_bass(params);
    audio_normalizer_filters_treble(params);
    audio_normalizer_filters_sdmode(params);
    audio_normalizer_filters_mapping(params);
}

void ConsumerChannel::audio_channels(Params params)
{
    create_item("audio channels",
        params.integer("channels", "2")
            .description(
                "Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround), 8 (7.1 surround)"));
}

void ConsumerChannel::audio_rate(Params params)
{
    create_item("audio rate", params.integer("rate", "48000").description("Audio sample rate, in Hz"));
}

void ConsumerChannel::audio_fetchExtraSample(Params params)
{
    create_item("fetch audio with extra sample",
        params.boolean("fetchExtraSample", "0")
            .description("Fetch an extra sample in each request to avoid some cases of minor clicking"));
}

// The switch goes out twice: here, before the ducking, and in its place among the normalizer's members.
void ConsumerChannel::audio_normalizer(Params params)
{
    audio_normalizer_enable(std::move(params));
}

void ConsumerChannel::audio_ducking_test(Params params)
{
    create_item("ducking test", params.push("ducking")
                                    .boolean("test", "0")
                                    .description("Test audio ducking (for EAS or other needs)"));
}

void ConsumerChannel::audio_ducking_interval(Params params)
{
    create_item("ducking time interval", params.push("ducking")
                                             .number("interval", "0.300000")
                                             .description("Time period to transition during audio ducking"));
}

void ConsumerChannel::audio_ducking_level(Params params)
{
    create_item("ducking audio level",
        params.push("ducking").number("level", "-24").description("How far to duck the audio"));
}

void ConsumerChannel::audio_normalizer_enable(Params params)
{
    create_item("audio normalizer enable",
        params.push("normalizer").boolean("enable", "1").description("Enable audio normalization"));
}

void ConsumerChannel::audio_normalizer_attack(Params params)
{
    create_item("audio normalizer attack", params.push("normalizer")
                                               .number("attack", "1")
                                               .description("Normalizer attack in ms (recommended: 1ms)"));
}

void ConsumerChannel::audio_normalizer_decay(Params params)
{
    create_item("audio normalizer decay", params.push("normalizer")
                                              .number("decay", "100")
                                              .description("Normalizer decay in ms (recommended: 1000ms)"));
}

void ConsumerChannel::audio_normalizer_passes(Params params)
{
    params.push("normalizer").array("passes").description("The sequence of normalizer passes to run");
    Params first = params;
    Params second = params;
    first.push("0");
    second.push("1");

    const auto add_level = [this](const char* flat_key, Params pass, const char* json_key,
                               const char* default_text, const char* text) {
        create_item(flat_key, pass.number(json_key, default_text).description(text));
    };
    add_level("audio normalizer minimum level", first, "minimum", "-24", MINIMUM_TEXT);
    add_level("audio normalizer lower level", first, "lower", "-6", LOWER_TEXT);
    add_level("audio normalizer upper level", first, "upper", "-3", UPPER_TEXT);
    add_level("audio normalizer upper level 2=", second, "upper", "-3", UPPER_TEXT);

    // A null keeps the limit that is stored, though the filters below are emptied by theirs.
    const auto add_limit = [this](const char* flat_key, Params pass) {
        pass.number("maximum").or_null().description(MAXIMUM_TEXT);
        if (pass.hasKey() && !pass.isNull())
            create_item(flat_key, pass.numberValue());
    };
    add_limit("audio normalizer hard limit level", first);
    add_limit("audio normalizer hard limit level 2=", second);
}

void ConsumerChannel::audio_normalizer_filters_bass(Params params)
{
    create_item("audio normalizer bass filter",
        params.push("normalizer")
            .push("filters")
            .integer("bass")
            .or_null()
            .description("Highpass filter to remove bass from audio normalizer stage, in Hz"));
}

void ConsumerChannel::audio_normalizer_filters_treble(Params params)
{
    create_item("audio normalizer treble filter",
        params.push("normalizer")
            .push("filters")
            .integer("treble")
            .or_null()
            .description("Lowpass filter to remove treble from audio normalizer stage, in Hz"));
}

void ConsumerChannel::audio_normalizer_filters_sdmode(Params params)
{
    create_item("audio normalizer sd-mode", params.push("normalizer")
                                                .push("filters")
                                                .boolean("sdmode", "0")
                                                .description("Enable SD normalization mode"));
}

// Every mode but the linear one is taken for the decibel mode.
void ConsumerChannel::audio_normalizer_filters_mapping(Params params)
{
    params.push("normalizer")
        .push("filters")
        .push("mapping")
        .description(
            "Set audio normalization mapping mode. Decibel (log) mode can provide higher quality at the cost of some additional CPU load");
    Params mode = params;
    mode.string("mode", "linear");
    if (!mode.hasKey())
        return;
    if (mode.stringValue() == "linear")
        create_item("audio normalizer map mode", "linear");
    else
        create_item("audio normalizer map mode", "decibelm" + params.integer("intensity").integerValue());
}
