#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/FieldReader.hpp"

namespace karvel {

/// What is wrong with a dictionary file, in words that let a person mend it by hand.
struct Fault {
    std::uint64_t line = 0;  ///< where the first doubtful record begins, from 1
    std::string reason;      ///< Italian
};

/// A record with the signs and the translation of one that stands before it. Nothing is wrong with that, but
/// a search shows it as one answer more.
struct Double {
    std::uint64_t line = 0;   ///< where the record begins, from 1
    std::uint64_t first = 0;  ///< where the one before it begins
};

struct Verification {
    std::uint64_t records = 0;  ///< whole records read, up to the fault if there is one
    std::optional<Fault> fault;
    std::vector<Double> doubles;  ///< in the order of the file
};

/// Reads a dictionary as the searches do and tells the first record that cannot be right: an unclosed quote,
/// a cut record, signs that are no sequence of codes. Doubles are looked for among the first ten million
/// records. Throws RuntimeError when the device fails.
[[nodiscard]] Verification verify(ByteSource& dictionary);

}  // namespace karvel
