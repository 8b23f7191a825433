#include "base/SignRepertoire.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

#include "base/SignCode.hpp"

namespace karvel {

// Made at build time from the tables of the data.
extern const std::string_view kSignTable;
extern const std::string_view kSignUses;

namespace {

/// Takes what stands before the next `separator` from the front of `text`, and the separator too.
std::string_view takePart(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::array<std::string_view, 5> columnsOf(std::string_view line)
{
    std::array<std::string_view, 5> columns;
    for (std::string_view& column : columns) {
        column = takePart(line, '\t');
    }
    return columns;
}

std::optional<SignInfo> signOf(std::string_view line)
{
    auto [code, unicode, gardiner, description, values] = columnsOf(line);
    std::uint32_t character = 0;
    if (!isSignCode(code) || !unicode.starts_with("U+")) {
        return std::nullopt;
    }
    std::from_chars(unicode.data() + 2, unicode.data() + unicode.size(), character, 16);
    SignInfo sign{code, character, gardiner, description, {}};
    while (!values.empty()) {
        if (const std::string_view value = takePart(values, '/'); !value.empty()) {
            sign.values.push_back(value);
        }
    }
    return sign;
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

std::optional<std::size_t> SignInfo::placeOf(std::string_view value) const
{
    const auto found = std::ranges::find(values, value);
    return found == values.end() ? std::nullopt : std::optional<std::size_t>(found - values.begin());
}

SignRepertoire::SignRepertoire(std::string_view table, std::string_view uses)
{
    while (!table.empty()) {
        if (const auto sign = signOf(takePart(table, '\n'))) {
            codes_.emplace(sign->code, signs_.size());
            characters_.emplace(sign->character, signs_.size());
            gardiner_.emplace(sign->gardiner, signs_.size());
            signs_.push_back(*sign);
        }
    }
    while (!uses.empty()) {
        std::string_view count = takePart(uses, '\n');
        if (const auto sign = codes_.find(takePart(count, '\t')); sign != codes_.end()) {
            std::from_chars(count.data(), count.data() + count.size(), signs_[sign->second].uses);
        }
    }
    for (std::size_t i = 0; i < signs_.size(); ++i) {
        gardiner_.emplace(capitals(signs_[i].gardiner), i);
    }
}

const SignRepertoire& SignRepertoire::standard()
{
    static const SignRepertoire repertoire(kSignTable, kSignUses);
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
        return code == kMissingSign ? caption + " · segno mancante" : caption;
    }
    for (const std::string_view part : {sign->gardiner, sign->description}) {
        caption += " · ";
        caption += part;
    }
    for (const std::string_view value : sign->values) {
        caption += value == sign->values.front() ? " · " : ", ";
        caption += value;
    }
    char unicode[16];
    std::snprintf(unicode, sizeof unicode, " · U+%X", static_cast<unsigned>(sign->character));
    return caption + unicode;
}

}  // namespace karvel
