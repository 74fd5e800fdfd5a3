// The document of an internet_mpeg output: up to three encoders that send streams over the network.
#pragma once

#include <string>

#include "schema/emit_json.hpp"

class EmitInternetMpeg : public EmitJson {
public:
    Document emitJson() const override;

private:
    // One encoder and its groups. `base` is its number, counted from "0".
    json11::Json enc(const std::string& base) const;
    json11::Json enc_audio(const std::string& base) const;
    json11::Json enc_video(const std::string& base) const;
    json11::Json enc_ps(const std::string& base) const;
    json11::Json enc_ts(const std::string& base) const;
    json11::Json enc_iptv(const std::string& base) const;

    // One numbered ASI output of an encoder. `number` is counted from "1".
    json11::Json asi(const std::string& base, const std::string& number) const;
};
