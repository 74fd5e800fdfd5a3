// What a driver answers to one request.
#pragma once

#include <cstdint>
#include <vector>

#include "driver_state.hpp"

struct Answer {
    std::vector<std::vector<unsigned char>> packets;  // in the order of sending
    std::uint64_t delay_ms = 0;                       // how long the first of them waits
    bool hang_up = false;                             // close the connection once they are sent
};

// Carries the request out and says what to send back. What is no request gets no answer.
Answer answer_request(DriverState& state, const std::vector<unsigned char>& request);
