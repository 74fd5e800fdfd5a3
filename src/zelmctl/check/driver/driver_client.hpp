// A client that may send what no other would, and looks closely at what comes back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/io.hpp"

using PacketBytes = std::vector<unsigned char>;

// A request with its arguments.
PacketBytes request(
    std::string_view command, const std::vector<std::string>& arguments, std::uint64_t sequence);

// A report that nobody asks for, as it lacks the flag of a request.
PacketBytes no_request();

// What came after a request.
struct Heard {
    std::uint64_t asked = 0;     // the number of the request
    std::uint64_t answered = 0;  // that of the packet below
    bool hung_up = false;        // before a reply
    bool is_flagged = false;     // the packet below isn't fit to be sent, by its flags
    PacketBytes packet{};        // the first that is a reply, or isn't fit to be sent; else empty

    bool is_answer() const { return !packet.empty() && !is_flagged; }
};

class DriverClient {
public:
    // Without waiting. False with errno set.
    bool connect(const std::string& entry);
    // The same, where the driver may be slow to accept.
    bool connect_by(const std::string& entry, std::uint64_t deadline_us);
    bool is_connected() const { return static_cast<bool>(m_socket); }

    // One packet as it stands, without waiting. Above 0 sent, 0 not now, below 0 failed.
    int send(const PacketBytes& bytes) const;
    // The same, where it may take a little. False if it couldn't be.
    bool send_by(const PacketBytes& bytes, std::uint64_t deadline_us) const;

    // Sends the request, and what then comes until its reply or the deadline.
    Heard ask(std::string_view command, const std::vector<std::string>& arguments, std::uint64_t deadline_us);
    bool send_request(
        std::string_view command, const std::vector<std::string>& arguments, std::uint64_t deadline_us);
    Heard listen(std::uint64_t deadline_us);

    // Whether the driver has closed the connection.
    bool is_hung_up() const;

private:
    Descriptor m_socket;
    std::uint64_t m_sequence = 0x7a656c6d0000abcd;  // of the last request, as none would be by chance
};
