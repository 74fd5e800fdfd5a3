#include "schema/create_emitter.hpp"

#include "schema/emit/emit_channel.hpp"
#include "schema/emit/emit_fbdev.hpp"
#include "schema/emit/emit_x11.hpp"

namespace {

template <typename Emitter> std::shared_ptr<EmitJson> make()
{
    return std::make_shared<Emitter>();
}

constexpr struct {
    const char* driver;
    std::shared_ptr<EmitJson> (*make)();
} EMITTERS[] = {
    {"fbdev", make<EmitFbdev>},
    {"x11", make<EmitX11>},
};

}  // namespace

std::shared_ptr<EmitJson> createEmitter(const std::string& driver)
{
    for (const auto& row : EMITTERS)
        if (driver == row.driver)
            return row.make();
    return make<EmitChannel>();
}
