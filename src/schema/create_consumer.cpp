#include "schema/create_consumer.hpp"

#include "schema/consume/consume_channel.hpp"
#include "schema/consume/consume_fbdev.hpp"
#include "schema/consume/consume_x11.hpp"

namespace {

template <typename Consumer> std::shared_ptr<JsonConsumer> make(const std::string& text)
{
    return std::make_shared<Consumer>(text);
}

constexpr struct {
    const char* driver;
    std::shared_ptr<JsonConsumer> (*make)(const std::string& text);
} CONSUMERS[] = {
    {"fbdev", make<ConsumeFbdev>},
    {"x11", make<ConsumeX11>},
};

}  // namespace

std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text)
{
    for (const auto& row : CONSUMERS)
        if (driver == row.driver)
            return row.make(text);
    return make<ConsumerChannel>(text);
}
