// Parsers of what others write, each as a function of any bytes. A fuzzer makes up the bytes, and the tests
// replay those that were worth keeping, under corpus.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Of those that know drivers, the first byte tells which one.
void fuzz_appliances(std::string_view bytes);  // the appliance as one file
void fuzz_checks(std::string_view bytes);      // a document, settings or a manifest, for the checker
void fuzz_documents(std::string_view bytes);   // JSON documents, there and back
void fuzz_manifests(std::string_view bytes);
void fuzz_metadata(std::string_view bytes);
void fuzz_packets(std::string_view bytes);   // an item's reply
void fuzz_reports(std::string_view bytes);   // the same, received and merged into a listing
void fuzz_server(std::string_view bytes);    // what a client sends to a driver
void fuzz_settings(std::string_view bytes);  // a settings file, read and rewritten
void fuzz_sockets(std::string_view bytes);   // the kernel's table of sockets, in which names of others stand

inline constexpr struct {
    const char* name;
    void (*parse)(std::string_view bytes);
} FUZZ_TARGETS[] = {
    {"appliances", fuzz_appliances},
    {"checks", fuzz_checks},
    {"documents", fuzz_documents},
    {"manifests", fuzz_manifests},
    {"metadata", fuzz_metadata},
    {"packets", fuzz_packets},
    {"reports", fuzz_reports},
    {"server", fuzz_server},
    {"settings", fuzz_settings},
    {"sockets", fuzz_sockets},
};
