#include "schema/driver_words.hpp"

#include <algorithm>
#include <iterator>

namespace {

constexpr struct Driver {
    std::string_view word;
    ItemKind kind;
} DRIVERS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) {#word, ItemKind::kind},
#define DRIVER_ALONE(word, kind) {#word, ItemKind::kind},
#include "schema/drivers.def"
};

}  // namespace

bool is_driver_word(std::string_view word, ItemKind kind)
{
    return std::any_of(std::begin(DRIVERS), std::end(DRIVERS),
        [&](const Driver& driver) { return driver.word == word && driver.kind == kind; });
}
