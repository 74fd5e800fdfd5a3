// The document of a drmkms output: a channel on a display through Linux DRM/KMS.
#pragma once

#include "schema/emit_json.hpp"

class EmitDrmkms : public EmitJson {
public:
    Document emitJson() const override;

private:
    std::pair<std::string, json11::Json> kms() const;
    std::pair<std::string, json11::Json> kms_connector() const;
    json11::Json kms_connector_card_select() const;
};
