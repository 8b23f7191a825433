#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kUndoPath = "C:\\programmi\\Karvel\\Undo.dat";

/// What one undo brings back.
struct UndoState {
    std::string DisplayCodes;
    std::uint8_t DisplayCount = 0;
    std::int16_t FirstVisibleOffset = 0;  ///< characters
    std::int16_t InsertPosition = 0;      ///< characters

    friend bool operator==(const UndoState&, const UndoState&) = default;
};

/// Whether `codes` may be a phrase that a file holds: printable ASCII without quotes, at most 84 signs. The
/// codes need not be known: a favourite from another directory may have put others into the phrase.
[[nodiscard]] bool mayBePhrase(std::string_view codes);

/// Replaces the saved state. Throws RuntimeError; the old one is then still whole.
void saveUndo(const FileSystem& files, const UndoState& state);

/// The saved state. Throws RuntimeError 53 or 76 without a file, 62 when it is cut short, 6 for a number out
/// of its range, 13 for a phrase that is no text or longer than 84 signs.
[[nodiscard]] UndoState loadUndo(const FileSystem& files);

}  // namespace karvel
