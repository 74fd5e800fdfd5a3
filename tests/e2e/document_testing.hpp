// What the tests of documents share: the document that the tools print, and looks at parts of it.
#pragma once

#include "e2e/sandbox_testing.hpp"
#include "unit/schema_testing.hpp"

// The document that the command line prints.
inline json11::Json document_of(const std::string& command_line)
{
    return parsed(output_of(command_line));
}

// Each member of the part stands in the document with that value; arrays must be of the same length.
inline void expect_shown(const json11::Json& document, const json11::Json& part, const std::string& where)
{
    for (const auto& [key, value] : part.object_items())
        expect_shown(document[key], value, std::string(where).append(".").append(key));
    for (std::size_t i = 0; i < part.array_items().size(); ++i)
        expect_shown(document[i], part[i], where + "." + std::to_string(i));
    if (part.is_array()) {
        EXPECT_EQ(document.array_items().size(), part.array_items().size()) << where;
    } else if (!part.is_object()) {
        EXPECT_EQ(document, part) << where;
    }
}
