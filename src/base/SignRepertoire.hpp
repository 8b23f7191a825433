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
    /// Phonetic values in the ASCII transliteration and numerals in figures, the usual one first; may be
    /// empty.
    std::vector<std::string_view> values;
    unsigned uses = 0;  ///< entries of the shipped dictionary that are written with it

    /// The place of `value` among the values, letter case mattering: 0 for the usual one. Nothing when the
    /// sign does not have it.
    [[nodiscard]] std::optional<std::size_t> placeOf(std::string_view value) const;
};

/// The signs that the palette offers.
class SignRepertoire {
  public:
    /// The program's own repertoire.
    [[nodiscard]] static const SignRepertoire& standard();

    /// Reads a table: a header line, then code, Unicode number, Gardiner number, description and values
    /// separated by tabs; several values are separated by "/". `uses` has a line for each sign that the
    /// dictionary uses: code, tab, number of entries. Both must outlive the repertoire. Lines that are no
    /// signs are passed over.
    explicit SignRepertoire(std::string_view table, std::string_view uses = {});

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
    std::unordered_map<std::string, std::size_t> gardiner_;  ///< as written, and also in upper case
};

/// What a person reads of a sign in one line: "g09 · M23 · carice · sw, nsw · U+131D3". Just the code for an
/// unknown one.
[[nodiscard]] std::string signCaption(std::string_view code);

}  // namespace karvel
