// Settings of a shoutcast output from its document.
#pragma once

#include <string>

#include "schema/consume_json.hpp"

class ConsumeShoutCast : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;

private:
    void driver(Params params);
    void enc(Params params);

    // The members of one encoder. `base` is its number as text, counted from "0".
    void enc_members(const Params& params, const std::string& base);
};
