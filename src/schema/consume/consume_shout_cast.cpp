#include "schema/consume/consume_shout_cast.hpp"

#include "schema/fields/encoder_keys.hpp"
#include "schema/fields/shout_cast_fields.hpp"

void ConsumeShoutCast::createItems()
{
    create_items(SHOUT_CAST_START_FIELDS, top());
    driver(top());
    create_items(SHOUT_CAST_ITEM_FIELDS, top());
    enc(top());
    create_items(SHOUT_CAST_AUDIO_FIELDS, top());
    create_items(SHOUT_CAST_NORMALIZER_FIELDS, top());
    create_items(SHOUT_CAST_STATUS_FIELDS, top());
}

// Unlike the audio outputs, the document's own text counts.
void ConsumeShoutCast::driver(Params params)
{
    create_item("driver", params.string("driver").description("Driver to run output with"));
}

void ConsumeShoutCast::enc(Params params)
{
    params.push("enc");
    for (std::size_t i = 0; i < ENCODERS; ++i) {
        if (params.document["enc"][i].is_null())
            continue;
        const std::string base = std::to_string(i);
        Params encoder = params;
        encoder.push(base);
        enc_members(encoder, base);
    }
}

void ConsumeShoutCast::enc_members(const Params& params, const std::string& base)
{
    const std::string key_prefix = encoder_key_prefix(base);
    for (const ShoutCastEncoderKey& key : SHOUT_CAST_ENCODER_KEYS) {
        Params member = params;
        create_item(key_prefix + key.flat_key, member.string(key.consumed_key, key.default_text));
    }
}
