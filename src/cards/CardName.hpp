#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace karvel {

/// In characters; a tab with a longer name could not be read.
inline constexpr std::size_t kLongestCardName = 40;

/// Why `name` cannot be the name of a card, in words for the user; nothing when it can.
///
/// A card's name is a file's name on every system that the cards may be carried to, and a line of the list of
/// cards: no path, no device, none of the files that the cards window keeps for itself, nothing that would be
/// read as two fields of the list.
[[nodiscard]] std::optional<std::string> cardNameRefusal(std::string_view name);

/// Whether both name the same card: the letter case does not matter.
[[nodiscard]] bool sameCard(std::string_view one, std::string_view other);

/// `text` without blanks and other white space around it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

}  // namespace karvel
