#include "platform/packet.hpp"

#include <cstring>
#include <limits>

namespace packet {

bool Writer::begin(std::string_view command, std::uint8_t flags, std::uint64_t sequence)
{
    m_entries.clear();
    m_bytes.assign(HEADER_SIZE, 0);
    if (command.size() >= COUNT_AT - COMMAND_AT)
        return false;
    std::memcpy(m_bytes.data(), MAGIC_BYTES, sizeof MAGIC_BYTES);
    store(m_bytes.data() + SEQUENCE_AT, sequence);
    m_bytes[FLAGS_AT] = flags;
    std::memcpy(m_bytes.data() + COMMAND_AT, command.data(), command.size());
    return true;
}

std::uint32_t Writer::add_text(const char* text)
{
    const auto offset = static_cast<std::uint32_t>(m_bytes.size());
    m_bytes.insert(m_bytes.end(), text, text + std::strlen(text) + 1);
    return offset;
}

bool Writer::add_entry(std::uint32_t name, const char* value)
{
    if (m_entries.size() >= std::numeric_limits<std::uint16_t>::max())
        return false;
    m_entries.push_back({name, add_text(value)});
    return true;
}

bool Writer::add(const char* value)
{
    return add_entry(0, value);
}

bool Writer::add(const char* name, const char* value)
{
    return add_entry(add_text(name), value);
}

void Writer::finish()
{
    const std::size_t table = m_bytes.size();
    m_bytes.resize(table + m_entries.size() * ENTRY_SIZE);
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        store(m_bytes.data() + table + i * ENTRY_SIZE, m_entries[i].name);
        store(m_bytes.data() + table + i * ENTRY_SIZE + 4, m_entries[i].value);
    }
    store(m_bytes.data() + COUNT_AT, static_cast<std::uint16_t>(m_entries.size()));
    store(m_bytes.data() + TABLE_AT, static_cast<std::uint32_t>(table));
    store(m_bytes.data() + LENGTH_AT, static_cast<std::uint32_t>(m_bytes.size()));
}

Reader::Reader(std::span<const unsigned char> bytes) : m_bytes(bytes), m_texts_end(bytes.size())
{
    while (m_texts_end > 0 && m_bytes[m_texts_end - 1] != 0)
        --m_texts_end;
}

std::uint8_t Reader::flags() const
{
    return m_bytes.size() > FLAGS_AT ? m_bytes[FLAGS_AT] : std::uint8_t{0};
}

std::uint64_t Reader::sequence() const
{
    return m_bytes.size() >= SEQUENCE_AT + sizeof(std::uint64_t)
               ? load<std::uint64_t>(m_bytes.data() + SEQUENCE_AT)
               : 0;
}

const char* Reader::command() const
{
    const char* word = text(COMMAND_AT);
    return word && std::strlen(word) < COUNT_AT - COMMAND_AT ? word : "";
}

std::size_t Reader::arguments() const
{
    return m_bytes.size() >= HEADER_SIZE ? load<std::uint16_t>(m_bytes.data() + COUNT_AT) : 0;
}

Reader::Argument Reader::argument(std::size_t index) const
{
    if (index >= arguments())
        return {};
    const std::uint64_t at =
        std::uint64_t{load<std::uint32_t>(m_bytes.data() + TABLE_AT)} + index * ENTRY_SIZE;
    if (at < HEADER_SIZE || at + ENTRY_SIZE > m_bytes.size())
        return {};
    const unsigned char* entry = m_bytes.data() + at;
    return {true, text(load<std::uint32_t>(entry)), text(load<std::uint32_t>(entry + 4))};
}

// An offset of 0 is the packet's own head and stands for no text.
const char* Reader::text(std::uint32_t offset) const
{
    return offset == 0 || offset >= m_texts_end ? nullptr : reinterpret_cast<const char*>(&m_bytes[offset]);
}

}  // namespace packet
