#include "schema/create_consumer.hpp"

#include "schema/tables.hpp"

namespace {

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

// A name that is declared can't stand in parentheses.
// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define DRIVER(word, kind, table, Emitter, Consumer) using Consumer = Consume<fields::table>;
#include "schema/drivers.def"

template <typename Consumer> std::shared_ptr<JsonConsumer> make(const std::string& text)
{
    return std::make_shared<Consumer>(text);
}

constexpr struct {
    std::string_view driver;
    std::shared_ptr<JsonConsumer> (*make)(const std::string& text);
} CONSUMERS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) {#word, make<Consumer>},
#include "schema/drivers.def"
};

}  // namespace

std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text)
{
    for (const auto& row : CONSUMERS)
        if (driver == row.driver)
            return row.make(text);
    return make<ConsumerChannel>(text);
}
