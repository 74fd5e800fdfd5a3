// How a flat text and a member of a document are each other, by name. The faces of each stand in codings.hpp:
// text to JSON, JSON to text, and which JSON it is.
//
// What a row's null text is depends on its coding:
//
//     constants            the constant
//     TIMED_VALUE, RATIO   what the parts are that are null
//     FRAME_RATE           what the parts are that are null or missing
//     ALIGNMENT            the same, in both directions
//     MAP_MODE, LAYER      the mode or kind that a null one is
//     KEPT_NUMBER, SIZE, POSITION, METER, paths
//                          nothing, so it is empty
//     all others           what a null writes. The empty one writes "0" of numbers and booleans, and
//                          empties texts and what is nullable
#pragma once

#include <cstdint>

enum class Coding : std::uint8_t {
    TEXT,               // a string
    NULLABLE_TEXT,      // a string, null for the empty text and for the null text
    DASHED_TEXT,        // a string, in which "if no audio" gets hyphens on its way out
    BOOLEAN,            // true exactly for "1"
    NULLABLE_BOOLEAN,   // the same, null for the empty text
    INTEGER,            // 0 for a text that is none
    NULLABLE_INTEGER,   // the same, null for the empty text
    COUNT,              // an integer from 1 up, null for every other text
    NUMBER,             // 0 for a text that is none
    NULLABLE_NUMBER,    // the same, null for the empty text
    OPTIONAL_NUMBER,    // the same, no member for the empty text
    KEPT_NUMBER,        // null for the empty text, but a null keeps what is stored
    CONSTANT,           // the same text, whatever is stored or given
    NULLABLE_CONSTANT,  // the same, but a null empties the key
    PATH,               // an array of the parts between "/"
    ABSOLUTE_PATH,      // the same without the part in front of the first "/"; null for the empty text
    DEVICE,             // an index, or else a name
    TIMED_VALUE,        // count and units, such as "90s"; {} for the empty text
    WHOLE_TIMED_VALUE,  // the same, read only where both stand
    RATIO,              // width and height, such as "16:9"; {} for the empty text; read only where both stand
    FRAME_RATE,         // numerator, denominator and kind, such as "25:1p"; null for the empty text
    SIZE,               // width and height, such as "50 33.5"
    POSITION,           // x and y, such as "10 -20"
    ALIGNMENT,          // vertical and horizontal, such as "top left"; read wherever its object stands
    MAP_MODE,           // "linear", or "decibelm" and an intensity
    METER,              // an array of levels, such as "-18.5, -inf"; never read
    LAYER,              // which region is in front: its kind, and a part or an index for some kinds
    THREE_WAY_ON,       // "0", "-1" and else: off, on, forced. Whether it is on; reads "force" beside it too,
                        // and nothing where that is missing
    THREE_WAY_FORCED,   // whether it is forced; THREE_WAY_ON reads it
};

inline constexpr Coding LAST_CODING = Coding::THREE_WAY_FORCED;
