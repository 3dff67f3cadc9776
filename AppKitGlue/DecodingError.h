// What went wrong when a JSON record was read or written.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace appkitglue {

/// Why a JSON document could not be read.
struct DecodingError {
    /// Where in the document: member names joined by dots, element numbers (from 0) in brackets, such as
    /// `allPreviewPaths.Dark[2]`. Empty for the document as a whole.
    std::string codingPath;
    /// What should have stood there, such as `a string`.
    std::string expected;
    /// What stood there, such as `a number` or `nothing`.
    std::string found;
    /// How many bytes of the document precede the fault; only known for faults of the JSON text itself.
    std::optional<std::size_t> byteOffset;

    /// One line of text for a person: path, expected, found, offset.
    std::string description() const;
    friend bool operator==(const DecodingError&, const DecodingError&) = default;
};

/// Why a value could not be written as JSON.
struct EncodingError {
    /// Where in the value, written as in `DecodingError`.
    std::string codingPath;
    /// What JSON cannot express there, such as `a string that is not UTF-8`.
    std::string found;

    /// One line of text for a person.
    std::string description() const;
    friend bool operator==(const EncodingError&, const EncodingError&) = default;
};

} // namespace appkitglue
