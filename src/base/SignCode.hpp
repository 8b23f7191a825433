#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

/// A sign is named by three characters, a category letter and a key number from 01 to 53.
inline constexpr std::size_t kCodeLength = 3;
inline constexpr std::size_t kKeys = 53;
inline constexpr std::size_t kPages = 14;

/// The categories in page order; j and k are not used.
inline constexpr std::string_view kCategories = "abcdefghilmnop";

/// The key for a sign that the user could not read; it is no sign itself.
inline constexpr std::string_view kMissingSign = "p47";

/// The code of key `key` (0 to 52) on `page` (1 to 14).
[[nodiscard]] std::string signCode(std::size_t page, std::size_t key);

/// True for a category letter followed by 01 to 53.
[[nodiscard]] bool isSignCode(std::string_view code);

/// True for one or more codes joined without separators.
[[nodiscard]] bool isSignSequence(std::string_view codes);

/// `codes` cut into pieces of three characters; a shorter last piece is kept.
[[nodiscard]] std::vector<std::string_view> splitCodes(std::string_view codes);

}  // namespace karvel
