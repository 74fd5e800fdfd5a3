#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
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

constexpr struct Factory {
    std::string_view driver;
    decltype(&make_emitter<EmitChannel>) emitter;
    decltype(&make_consumer<ConsumerChannel>) consumer;
} FACTORIES[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) {#word, make_emitter<Emitter>, make_consumer<Consumer>},
#include "schema/drivers.def"
};

const Factory& factory_of(std::string_view driver)
{
    for (const Factory& factory : FACTORIES)
        if (driver == factory.driver)
            return factory;
    return factory_of("channel");
}

}  // namespace

std::shared_ptr<EmitJson> createEmitter(const std::string& driver)
{
    return factory_of(driver).emitter();
}

std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text)
{
    return factory_of(driver).consumer(text);
}
