#include "text/PhraseText.hpp"

#include <algorithm>

#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace {

constexpr char32_t kFirstHieroglyph = 0x13000;
constexpr char32_t kLastHieroglyph = 0x1342F;
constexpr char32_t kLastArrangement = 0x1345F;  // the characters that arrange hieroglyphs follow them
constexpr char32_t kNoBreakSpace = 0xA0;

void note(std::vector<std::string>& list, const std::string& text)
{
    if (std::ranges::find(list, text) == list.end()) {
        list.push_back(text);
    }
}

bool isWordCharacter(char32_t character)
{
    constexpr std::u32string_view kArranging = U"-:*()<>";
    return character > ' ' && kArranging.find(character) == std::u32string_view::npos &&
           character != kNoBreakSpace;
}

void readWord(const std::string& word, ReadPhrase& phrase)
{
    if (word.empty()) {
        return;
    }
    if (isSignSequence(word)) {
        for (const std::string_view code : splitCodes(word)) {
            phrase.codes.emplace_back(code);
        }
    } else if (const SignInfo* const sign = SignRepertoire::standard().byGardiner(word)) {
        phrase.codes.emplace_back(sign->code);
    } else {
        note(phrase.unknown, word);
    }
}

void readHieroglyph(char32_t character, ReadPhrase& phrase)
{
    if (const SignInfo* const sign = SignRepertoire::standard().byCharacter(character)) {
        phrase.codes.emplace_back(sign->code);
        return;
    }
    std::string text;
    appendCharacter(text, character);
    note(phrase.unknown, text);
}

}  // namespace

std::string unicodeOf(std::string_view codes)
{
    std::string text;
    for (const std::string_view code : splitCodes(codes)) {
        const SignInfo* const sign = SignRepertoire::standard().byCode(code);
        appendCharacter(text, sign != nullptr ? sign->character : U'?');
    }
    return text;
}

std::string gardinerOf(std::string_view codes)
{
    std::string text;
    for (const std::string_view code : splitCodes(codes)) {
        const SignInfo* const sign = SignRepertoire::standard().byCode(code);
        text += text.empty() ? "" : "-";
        text += sign != nullptr ? sign->gardiner : "?";
    }
    return text;
}

ReadPhrase readPhrase(std::string_view utf8)
{
    ReadPhrase phrase;
    std::string word;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        const bool hieroglyph = character >= kFirstHieroglyph && character <= kLastHieroglyph;
        if (!hieroglyph && isWordCharacter(character) &&
            !(character > kLastHieroglyph && character <= kLastArrangement)) {
            appendCharacter(word, character);
            continue;
        }
        readWord(word, phrase);
        word.clear();
        if (hieroglyph) {
            readHieroglyph(character, phrase);
        }
    }
    readWord(word, phrase);
    return phrase;
}

std::optional<std::string> codesOfGardiner(std::string_view phrase, std::string& unknown)
{
    std::string codes;
    for (std::size_t at = 0; at <= phrase.size();) {
        const std::size_t end = std::min(phrase.find('-', at), phrase.size());
        const std::string_view number = phrase.substr(at, end - at);
        const SignInfo* const sign = SignRepertoire::standard().byGardiner(number);
        if (sign == nullptr) {
            unknown = number;
            return std::nullopt;
        }
        codes += sign->code;
        at = end + 1;
    }
    return codes;
}

}  // namespace karvel
