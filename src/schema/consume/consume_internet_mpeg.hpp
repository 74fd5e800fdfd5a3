// Settings of an internet_mpeg output from its document. `base` is the number of an encoder as text,
// counted from "0".
#pragma once

#include <cstddef>
#include <string>

#include "schema/consume_json.hpp"

class ConsumeInternetMpeg : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;

private:
    void enc(Params params);
    void enc_asi(Params params, std::size_t i);
    void enc_audio(Params params, const std::string& base);
    void enc_video(Params params, const std::string& base);
    void enc_ps(Params params, const std::string& base);
    void enc_ts(Params params, const std::string& base);
    void enc_iptv(Params params, const std::string& base);
};
