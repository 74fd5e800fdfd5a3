// One row of a schema whose two directions agree: which member, which flat key, coded how.
//
// Schemas that are a plain list of keys state their rows once and hand them to both sides. A member
// that one direction treats in a way of its own is no Field: it is written out in that direction's class.
#pragma once

enum class Coding {
    TEXT,              // string; a null in a document is the default
    NULLABLE_TEXT,     // string, null when the flat value is empty; a null empties the flat key
    BOOLEAN,           // true exactly for "1"; a null is the default
    NULLABLE_BOOLEAN,  // the same, null when empty; a null empties
    INTEGER,           // 0 when it can't be read; a null is the default
    NUMBER,            // likewise
    NULLABLE_NUMBER,   // null when empty; a null empties
    CONSTANT,          // always the text of the row, whatever is stored or given; a null empties
};

struct Field {
    // The description is for the reader of the schema. The tool shows it to nobody and keeps it nowhere.
    constexpr Field(const char* json, const char* flat, Coding as, const char* default_or_constant,
        const char* /*description*/)
        : json_key(json), flat_key(flat), coding(as), text(default_or_constant)
    {
    }

    const char* json_key;
    const char* flat_key;
    Coding coding;
    const char* text;  // the default, or the constant
};
