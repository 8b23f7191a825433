#pragma once

#include <cstdint>
#include <optional>

#include "text/FieldReader.hpp"

namespace karvel {

struct EntryCount {
    std::int64_t entries = 0;
    std::optional<RuntimeError> failure;  ///< what ended the count before the end of the file
};

/// The total that "Visualizza codice" shows: one for every five fields read.
/// Kept: a record has four fields, and people compare this figure with the one they noted years ago.
/// A last group of fewer than five fields is counted and then fails with error 62.
[[nodiscard]] EntryCount countEntries(ByteSource& dictionary);

}  // namespace karvel
