#include "schema/create_emitter.hpp"

#include "schema/tables.hpp"

namespace {

template <const auto& ROWS> class Emit : public EmitJson {
    Document emitJson() const override { return members(PACKED<ROWS>); }
};

// A name that is declared can't stand in parentheses.
// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define DRIVER(word, kind, table, Emitter, Consumer) using Emitter = Emit<fields::table>;
#include "schema/drivers.def"

template <typename Emitter> std::shared_ptr<EmitJson> make()
{
    return std::make_shared<Emitter>();
}

constexpr struct {
    std::string_view driver;
    std::shared_ptr<EmitJson> (*make)();
} EMITTERS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) {#word, make<Emitter>},
#include "schema/drivers.def"
};

}  // namespace

std::shared_ptr<EmitJson> createEmitter(const std::string& driver)
{
    for (const auto& row : EMITTERS)
        if (driver == row.driver)
            return row.make();
    return make<EmitChannel>();
}
