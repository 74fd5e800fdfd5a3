// Runs that change the whole appliance take turns.
#pragma once

#include "platform/io.hpp"

class Turn {
public:
    // Waits until no other run of root, or of those who are not root, has the turn, which is said on standard
    // error. False in a test, which has been said, when it can't be had.
    Turn();

    // Children that still end don't keep it.
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    explicit operator bool() const { return static_cast<bool>(m_place); }

private:
    Descriptor m_place;
};
