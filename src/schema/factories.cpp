#include <algorithm>
#include <iterator>

#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "schema/driver_words.hpp"
#include "schema/tables.hpp"

namespace {

template <const auto& ROWS> class Emit : public EmitJson {
    Document emitJson() const override { return members(PACKED<ROWS>); }
};

template <const auto& ROWS> class Consume : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<ROWS>); }
};

// A section of a channel that is no object is no section.
template <> void Consume<fields::CHANNEL>::createItems()
{
    Document sections = document();
    std::erase_if(
        sections, [](const auto& member) { return member.first != "name" && !member.second.is_object(); });
    if (!document().empty())
        create_items(PACKED<fields::CHANNEL>, sections);
}

// Names that are declared can't stand in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define DRIVER(word, kind, table, Emitter, Consumer)                                                         \
    using Emitter = Emit<fields::table>;                                                                     \
    using Consumer = Consume<fields::table>;
// NOLINTEND(bugprone-macro-parentheses)
#include "schema/drivers.def"

template <typename Emitter> std::shared_ptr<EmitJson> make_emitter()
{
    return std::make_shared<Emitter>();
}

template <typename Consumer> std::shared_ptr<JsonConsumer> make_consumer(const std::string& text)
{
    return std::make_shared<Consumer>(text);
}

constexpr struct Driver {
    std::string_view word;
    ItemKind kind;
    decltype(&make_emitter<EmitChannel>) emitter = nullptr;
    decltype(&make_consumer<ConsumerChannel>) consumer = nullptr;
} DRIVERS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer)                                                         \
    {#word, ItemKind::kind, make_emitter<Emitter>, make_consumer<Consumer>},
#define DRIVER_ALONE(word, kind) {#word, ItemKind::kind},
#include "schema/drivers.def"
};

const Driver& driver_with_document(std::string_view word)
{
    for (const Driver& driver : DRIVERS)
        if (word == driver.word && driver.emitter)
            return driver;
    return driver_with_document("channel");
}

}  // namespace

bool is_driver_word(std::string_view word, ItemKind kind)
{
    return std::any_of(std::begin(DRIVERS), std::end(DRIVERS),
        [&](const Driver& driver) { return driver.word == word && driver.kind == kind; });
}

std::shared_ptr<EmitJson> createEmitter(const std::string& driver)
{
    return driver_with_document(driver).emitter();
}

std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text)
{
    return driver_with_document(driver).consumer(text);
}
