#include "schema/emit/emit_internet_mpeg.hpp"

#include "schema/fields/encoder_keys.hpp"
#include "schema/fields/internet_mpeg_codec_fields.hpp"
#include "schema/fields/internet_mpeg_delivery_fields.hpp"
#include "schema/fields/internet_mpeg_fields.hpp"
#include "schema/fields/internet_mpeg_mux_fields.hpp"

using json11::Json;

Document EmitInternetMpeg::emitJson() const
{
    Document document = fields(INTERNET_MPEG_FIELDS);
    document["enc"] = Json::array{enc("0"), enc("1"), enc("2")};
    return document;
}

Json EmitInternetMpeg::enc(const std::string& base) const
{
    Json::object members = fields(ENC_ASI_FIELDS, encoder_key_prefix(base));
    members["audio"] = enc_audio(base);
    members["video"] = enc_video(base);
    members["ps"] = enc_ps(base);
    members["ts"] = enc_ts(base);
    members["iptv"] = enc_iptv(base);
    members["asi"] = Json::array{asi(base, "1"), asi(base, "2"), asi(base, "3")};
    return members;
}

Json EmitInternetMpeg::enc_audio(const std::string& base) const
{
    return fields(ENC_AUDIO_FIELDS, encoder_key_prefix(base));
}

Json EmitInternetMpeg::enc_video(const std::string& base) const
{
    return fields(ENC_VIDEO_FIELDS, encoder_key_prefix(base));
}

Json EmitInternetMpeg::enc_ps(const std::string& base) const
{
    return fields(ENC_PS_FIELDS, encoder_key_prefix(base));
}

Json EmitInternetMpeg::enc_ts(const std::string& base) const
{
    return fields(ENC_TS_FIELDS, encoder_key_prefix(base));
}

Json EmitInternetMpeg::enc_iptv(const std::string& base) const
{
    return fields(ENC_IPTV_FIELDS, encoder_key_prefix(base));
}

Json EmitInternetMpeg::asi(const std::string& base, const std::string& number) const
{
    return fields(ASI_FIELDS, asi_key_prefix(base, number));
}
