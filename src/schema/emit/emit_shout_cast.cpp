#include "schema/emit/emit_shout_cast.hpp"

#include "schema/fields/encoder_keys.hpp"
#include "schema/fields/shout_cast_fields.hpp"

using json11::Json;

Document EmitShoutCast::emitJson() const
{
    Document document{
        {"driver", "shoutcast"},
        {"enc", Json::array{enc("0"), enc("1"), enc("2")}},
    };
    document.merge(fields(SHOUT_CAST_START_FIELDS));
    document.merge(fields(SHOUT_CAST_ITEM_FIELDS));
    document.merge(fields(SHOUT_CAST_AUDIO_FIELDS));
    document.merge(fields(SHOUT_CAST_NORMALIZER_FIELDS));
    document.merge(fields(SHOUT_CAST_STATUS_FIELDS));
    return document;
}

Json EmitShoutCast::enc(const std::string& base) const
{
    const std::string key_prefix = encoder_key_prefix(base);
    Json::object members;
    for (const ShoutCastEncoderKey& key : SHOUT_CAST_ENCODER_KEYS)
        members[key.emitted_key] = value(key_prefix + key.flat_key);
    return members;
}
