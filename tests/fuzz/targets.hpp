// Parsers of what others write, each as a function of any bytes. A fuzzer makes up the bytes, and the tests
// replay those that were worth keeping, under corpus.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/io.hpp"

void fuzz_documents(
    std::string_view bytes);  // JSON documents, there and back; the first byte names the driver
void fuzz_manifests(std::string_view bytes);
void fuzz_metadata(std::string_view bytes);
void fuzz_packets(std::string_view bytes);   // an item's reply
void fuzz_settings(std::string_view bytes);  // a settings file, read and rewritten
void fuzz_sockets(std::string_view bytes);   // the kernel's table of sockets, in which names of others stand

inline constexpr struct {
    const char* name;
    void (*parse)(std::string_view bytes);
} FUZZ_TARGETS[] = {
    {"documents", fuzz_documents},
    {"manifests", fuzz_manifests},
    {"metadata", fuzz_metadata},
    {"packets", fuzz_packets},
    {"settings", fuzz_settings},
    {"sockets", fuzz_sockets},
};

// A file of these bytes that has no name, to be read from its beginning, and a path to it.
Descriptor nameless_file(std::string_view bytes);
std::string path_of(const Descriptor& file);

// Ends the process when what must hold does not.
void require(bool holds);
