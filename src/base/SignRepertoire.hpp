#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace karvel {

/// What is known of a sign; all texts live as long as the program.
struct SignInfo {
    std::string_view code;         ///< the system's sign code
    char32_t character = 0;        ///< the Unicode hieroglyph
    std::string_view gardiner;     ///< its number in Gardiner's list
    std::string_view description;  ///< Italian, UTF-8
    std::string_view values;  ///< phonetic values in the ASCII transliteration, parted by "/"; may be empty
};

/// The signs that the palette offers.
class SignRepertoire {
  public:
    /// The program's own repertoire.
    [[nodiscard]] static const SignRepertoire& standard();

    /// Reads a table: a header line, then code, Unicode number, Gardiner number, description and values
    /// parted by tabs. `table` must outlive the repertoire. Lines that are no signs are passed over.
    explicit SignRepertoire(std::string_view table);

    [[nodiscard]] const std::vector<SignInfo>& signs() const { return signs_; }

    /// Nothing for the missing-sign key and for keys without a sign.
    [[nodiscard]] const SignInfo* byCode(std::string_view code) const;

    /// By Gardiner number; the letter case does not matter where no two signs differ by it alone.
    [[nodiscard]] const SignInfo* byGardiner(std::string_view number) const;

    /// By Unicode hieroglyph.
    [[nodiscard]] const SignInfo* byCharacter(char32_t character) const;

  private:
    std::vector<SignInfo> signs_;
    std::unordered_map<std::string_view, std::size_t> codes_;
    std::unordered_map<char32_t, std::size_t> characters_;
    std::unordered_map<std::string, std::size_t> gardiner_;  ///< as written and, below it, in upper case
};

/// What a person reads of a sign in one line: "e16 · G17 · civetta · m · U+13153". Just the code for an
/// unknown one.
[[nodiscard]] std::string signCaption(std::string_view code);

}  // namespace karvel
