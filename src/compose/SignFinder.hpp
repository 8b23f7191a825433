#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/SignRepertoire.hpp"

namespace karvel {

/// Finds signs by what a person knows of them: a Gardiner number, a code, a value, a word of the description.
/// Holds no state but the order in which signs were used.
class SignFinder {
  public:
    /// `repertoire` must outlive the finder.
    explicit SignFinder(const SignRepertoire& repertoire = SignRepertoire::standard());

    /// The signs that fit `wanted` (UTF-8), best first, at most `most`: by Gardiner number or code; by a
    /// description that is `wanted`, then one that is `wanted` with more in parentheses; by value, the sign's
    /// usual one before its rarer ones; then the rest. Among equals the one used last comes first, then the
    /// one that more entries of the dictionary are written with, then the order of the repertoire. Nothing
    /// for an empty text.
    [[nodiscard]] std::vector<const SignInfo*> find(std::string_view wanted, std::size_t most = 60) const;

    /// The sign `code` has just been used.
    void used(const std::string& code) { used_[code] = ++clock_; }

  private:
    /// A sign's texts as they are compared.
    struct Entry {
        const SignInfo* sign;
        std::string gardiner;                   ///< upper case
        std::vector<std::string> upperValues;   ///< upper case
        std::vector<std::string> descriptions;  ///< upper case without accents; with other names too
    };
    struct Wanted {
        std::string asTyped;  ///< transliteration letters turned to ASCII
        std::string upper;    ///< upper case without accents
        std::string number;   ///< the same without blanks: "G 17" is a Gardiner number
    };

    [[nodiscard]] static unsigned rank(const Entry& entry, const Wanted& wanted);
    [[nodiscard]] static unsigned rankOfRest(const Entry& entry, const Wanted& wanted);
    [[nodiscard]] unsigned long lastUse(const SignInfo& sign) const;

    std::vector<Entry> entries_;
    std::unordered_map<std::string, unsigned long> used_;
    unsigned long clock_ = 0;
};

}  // namespace karvel
