#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "writing/Layout.hpp"

namespace karvel {

/// The layout in Manuel de Codage with Gardiner numbers, in its normal form: "-" between blocks, ":" above,
/// "*" beside, which binds tighter, brackets only where they are needed, no blanks, a cartouche as <-...->.
/// The missing sign, and every other without a number, is "?".
[[nodiscard]] std::string manuelDeCodage(const Layout& layout);

/// Reads Manuel de Codage: "-" or blanks between blocks, ":", "*", "(" and ")", "<-" and "->" around
/// a cartouche, "?" for the missing sign; signs are Gardiner numbers or sign codes. Nothing when it is not
/// well formed or names a sign that the repertoire lacks; `fault` then tells why, in Italian.
[[nodiscard]] std::optional<Layout> readManuelDeCodage(std::string_view text, std::string& fault);

}  // namespace karvel
