#include "schema/consume/consume_internet_mpeg.hpp"

#include "schema/fields/encoder_keys.hpp"
#include "schema/fields/internet_mpeg_codec_fields.hpp"
#include "schema/fields/internet_mpeg_delivery_fields.hpp"
#include "schema/fields/internet_mpeg_fields.hpp"
#include "schema/fields/internet_mpeg_mux_fields.hpp"

void ConsumeInternetMpeg::createItems()
{
    enc(top());
    create_items(INTERNET_MPEG_FIELDS, top());
}

void ConsumeInternetMpeg::enc(Params params)
{
    params.push("enc");
    for (std::size_t i = 0; i < ENCODERS; ++i) {
        if (params.document["enc"][i].is_null())
            continue;
        const std::string base = std::to_string(i);
        Params encoder = params;
        encoder.push(base);
        enc_asi(encoder, i);
        enc_audio(encoder, base);
        enc_video(encoder, base);
        enc_ps(encoder, base);
        enc_ts(encoder, base);
        enc_iptv(encoder, base);
        create_items(ENC_ASI_FIELDS, encoder, encoder_key_prefix(base));
    }
}

void ConsumeInternetMpeg::enc_asi(Params params, std::size_t i)
{
    const std::string base = std::to_string(i);
    params.push("asi");
    for (std::size_t j = 0; j < NUMBERED_ASI_OUTPUTS; ++j) {
        // Output j of every encoder hangs on output j of encoder j, so both places are j and none is i.
        if (params.document["enc"][j]["asi"][j].is_null())
            continue;
        Params output = params;
        output.push(std::to_string(j));
        create_items(ASI_FIELDS, output, asi_key_prefix(base, std::to_string(j + 1)));
    }
}

void ConsumeInternetMpeg::enc_audio(Params params, const std::string& base)
{
    params.push("audio");
    create_items(ENC_AUDIO_FIELDS, params, encoder_key_prefix(base));
}

void ConsumeInternetMpeg::enc_video(Params params, const std::string& base)
{
    params.push("video");
    create_items(ENC_VIDEO_FIELDS, params, encoder_key_prefix(base));
}

void ConsumeInternetMpeg::enc_ps(Params params, const std::string& base)
{
    params.push("ps");
    create_items(ENC_PS_FIELDS, params, encoder_key_prefix(base));
}

void ConsumeInternetMpeg::enc_ts(Params params, const std::string& base)
{
    params.push("ts");
    create_items(ENC_TS_FIELDS, params, encoder_key_prefix(base));
}

void ConsumeInternetMpeg::enc_iptv(Params params, const std::string& base)
{
    params.push("iptv");
    create_items(ENC_IPTV_FIELDS, params, encoder_key_prefix(base));
}
