// What a check found in one file, and how it is told.
#pragma once

#include <cstddef>
#include <json11.hpp>
#include <string>
#include <string_view>
#include <vector>

struct Finding {
    std::string text;
    std::string member = {};  // its path in a document, with dots, if it is about one
    std::size_t line = 0;     // from 1 up, if it is about one
    std::size_t column = 0;   // likewise
};

// Findings of one file: as many as anybody reads.
class Findings {
public:
    static constexpr std::size_t LIMIT = 1000;

    void add(Finding finding);
    void add_at_line(std::size_t line, std::string text) { add({std::move(text), {}, line}); }
    void add_of_member(std::string path, std::string text) { add({std::move(text), std::move(path)}); }

    void sort_by_line();

    // Whether there was one more than the limit, so that looking for more is idle.
    bool has_more() const { return m_has_more; }

    // The findings in their order; a last one says so if there were more.
    std::vector<Finding> all() const;

private:
    std::vector<Finding> m_findings;
    bool m_has_more = false;
};

// "FILE:LINE: ..." or "FILE: path.of.member: ...", and the same as JSON.
std::string as_line(const std::string& file, const Finding& finding);
json11::Json as_json(const std::string& file, const Finding& finding);

// Such a text as far as it fits a line; and the same in quotes, with "..." if that is not all.
std::string beginning_of(std::string_view text);
std::string in_quotes(std::string_view text);
