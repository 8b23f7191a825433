#include "base/SignRepertoire.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

#include "base/SignCode.hpp"

namespace karvel {

extern const std::string_view kSignTable;  // made at build time from the sources of the data

namespace {

std::array<std::string_view, 5> columnsOf(std::string_view line)
{
    std::array<std::string_view, 5> columns;
    for (std::string_view& column : columns) {
        const std::size_t tab = std::min(line.find('\t'), line.size());
        column = line.substr(0, tab);
        line.remove_prefix(std::min(tab + 1, line.size()));
    }
    return columns;
}

std::optional<SignInfo> signOf(std::string_view line)
{
    const auto [code, unicode, gardiner, description, values] = columnsOf(line);
    std::uint32_t character = 0;
    if (!isSignCode(code) || !unicode.starts_with("U+")) {
        return std::nullopt;
    }
    std::from_chars(unicode.data() + 2, unicode.data() + unicode.size(), character, 16);
    return SignInfo{code, character, gardiner, description, values};
}

std::string capitals(std::string_view number)
{
    std::string upper(number);
    for (char& letter : upper) {
        if (letter >= 'a' && letter <= 'z') {
            letter = static_cast<char>(letter - 'a' + 'A');
        }
    }
    return upper;
}

}  // namespace

SignRepertoire::SignRepertoire(std::string_view table)
{
    while (!table.empty()) {
        const std::size_t end = std::min(table.find('\n'), table.size());
        if (const auto sign = signOf(table.substr(0, end))) {
            codes_.emplace(sign->code, signs_.size());
            characters_.emplace(sign->character, signs_.size());
            gardiner_.emplace(sign->gardiner, signs_.size());
            signs_.push_back(*sign);
        }
        table.remove_prefix(std::min(end + 1, table.size()));
    }
    for (std::size_t i = 0; i < signs_.size(); ++i) {
        gardiner_.emplace(capitals(signs_[i].gardiner), i);
    }
}

const SignRepertoire& SignRepertoire::standard()
{
    static const SignRepertoire repertoire(kSignTable);
    return repertoire;
}

const SignInfo* SignRepertoire::byCode(std::string_view code) const
{
    const auto found = codes_.find(code);
    return found == codes_.end() ? nullptr : &signs_[found->second];
}

const SignInfo* SignRepertoire::byCharacter(char32_t character) const
{
    const auto found = characters_.find(character);
    return found == characters_.end() ? nullptr : &signs_[found->second];
}

const SignInfo* SignRepertoire::byGardiner(std::string_view number) const
{
    auto found = gardiner_.find(std::string(number));
    if (found == gardiner_.end()) {
        found = gardiner_.find(capitals(number));
    }
    return found == gardiner_.end() ? nullptr : &signs_[found->second];
}

std::string signCaption(std::string_view code)
{
    std::string caption(code);
    const SignInfo* const sign = SignRepertoire::standard().byCode(code);
    if (sign == nullptr) {
        return caption == "p47" ? caption + " · segno mancante" : caption;
    }
    for (const std::string_view part : {sign->gardiner, sign->description, sign->values}) {
        if (!part.empty()) {
            caption += " · ";
            caption += part;
        }
    }
    char unicode[16];
    std::snprintf(unicode, sizeof unicode, " · U+%X", static_cast<unsigned>(sign->character));
    return caption + unicode;
}

}  // namespace karvel
