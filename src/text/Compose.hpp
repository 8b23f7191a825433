#pragma once

#include <string>
#include <string_view>

namespace karvel {

/// `utf8` with every letter and combining mark that the code page has as one character joined to that
/// character: "a" and U+0300 become "à". Text from other programs may hold an accented letter in two parts,
/// which would equal nothing in the dictionary. All other text stays as it is.
[[nodiscard]] std::string composed(std::string_view utf8);

}  // namespace karvel
