#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "text/FieldReader.hpp"

namespace karvel {

/// What is wrong with a dictionary file, in words that let a person mend it by hand.
struct Fault {
    std::uint64_t line = 0;  ///< where the first doubtful record begins, from 1
    std::string reason;      ///< Italian
};

struct Verification {
    std::uint64_t records = 0;  ///< whole records read, up to the fault if there is one
    std::optional<Fault> fault;
};

/// Reads a dictionary as the searches do and tells the first record that cannot be right: an unclosed quote,
/// a cut record, signs that are no sequence of codes. Throws RuntimeError when the device fails.
[[nodiscard]] Verification verify(ByteSource& dictionary);

}  // namespace karvel
