#include "schema/consume/consume_channel.hpp"

#include "schema/fields/channel.hpp"

namespace {

// A section that is no object is no section.
Document known_sections(Document document)
{
    std::erase_if(
        document, [](const auto& member) { return member.first != "name" && !member.second.is_object(); });
    return document;
}

}  // namespace

void ConsumerChannel::createItems()
{
    if (!document().empty())
        create_items(PACKED<fields::CHANNEL>, known_sections(document()));
}
