#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

/// Phrases in the forms that other programs use.

/// The Unicode hieroglyphs of `codes`; a sign that has none, the missing sign among them, becomes "?".
[[nodiscard]] std::string unicodeOf(std::string_view codes);

/// The Gardiner numbers of `codes` joined by "-"; likewise "?".
[[nodiscard]] std::string gardinerOf(std::string_view codes);

struct ReadPhrase {
    std::vector<std::string> codes;    ///< of the signs known, in order
    std::vector<std::string> unknown;  ///< what was not known, each once, in order
};

/// Reads Unicode hieroglyphs, Gardiner numbers separated by "-", ":", "*", brackets or blanks, or the
/// system's codes, in any mixture. Characters that only arrange hieroglyphs are ignored.
[[nodiscard]] ReadPhrase readPhrase(std::string_view utf8);

/// The codes of a phrase given as Gardiner numbers joined by "-"; nothing when one of them is unknown, and
/// `unknown` is then that number.
[[nodiscard]] std::optional<std::string> codesOfGardiner(std::string_view phrase, std::string& unknown);

}  // namespace karvel
