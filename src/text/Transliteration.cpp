#include "text/Transliteration.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "text/CodePage.hpp"

namespace karvel {

namespace {

constexpr std::string_view kLetters = "AabdDfghHxXiyjklmnpqrsStTwz";
constexpr std::string_view kBetweenLetters = " .-=,()[]_";

struct Printed {
    char32_t character;
    char letter;
};

/// The letters of the common fonts and keyboards, capitals of names included.
constexpr std::array kPrinted = {
    Printed{0xA723, 'A'}, Printed{0xA722, 'A'}, Printed{0x02BE, 'A'}, Printed{0x021D, 'A'},
    Printed{0xA725, 'a'}, Printed{0xA724, 'a'}, Printed{0x02BF, 'a'}, Printed{0x02BD, 'a'},
    Printed{0x1E25, 'H'}, Printed{0x1E24, 'H'}, Printed{0x1E2B, 'x'}, Printed{0x1E2A, 'x'},
    Printed{0x1E96, 'X'}, Printed{0x0161, 'S'}, Printed{0x0160, 'S'}, Printed{0x1E6F, 'T'},
    Printed{0x1E6E, 'T'}, Printed{0x1E71, 't'}, Printed{0x1E0F, 'D'}, Printed{0x1E0E, 'D'},
    Printed{0x1E33, 'q'}, Printed{0x1E32, 'q'}, Printed{0x015B, 's'}, Printed{0x015A, 's'},
    Printed{0xA7BD, 'i'}, Printed{0xA7BC, 'i'}, Printed{0x1EC9, 'i'}, Printed{0x1EC8, 'i'},
    Printed{0x00EF, 'y'}, Printed{0x1E6D, 'd'}, Printed{0x2E17, '='}, Printed{0x00B7, '.'},
    Printed{0x2019, 'i'}, Printed{0x2010, '-'}, Printed{0x2011, '-'},
};

/// A plain letter followed by a combining mark: dot, line, breve below, caron, hook.
constexpr std::array<std::pair<std::u32string_view, char>, 11> kMarked = {{
    {U"h\u0323", 'H'},
    {U"h\u032E", 'x'},
    {U"h\u0331", 'X'},
    {U"s\u030C", 'S'},
    {U"t\u0331", 'T'},
    {U"t\u032D", 't'},
    {U"d\u0331", 'D'},
    {U"k\u0323", 'q'},
    {U"s\u0301", 's'},
    {U"i\u0357", 'i'},
    {U"i\u0309", 'i'},
}};

constexpr std::array<std::pair<char, std::string_view>, 8> kMarks = {{
    {'A', "ꜣ"},
    {'a', "ꜥ"},
    {'H', "ḥ"},
    {'x', "ḫ"},
    {'X', "ẖ"},
    {'S', "š"},
    {'T', "ṯ"},
    {'D', "ḏ"},
}};

char32_t small(char32_t character)
{
    return character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character;
}

char markedLetter(char32_t letter, char32_t mark)
{
    for (const auto& [pair, ascii] : kMarked) {
        if (pair[0] == small(letter) && pair[1] == mark) {
            return ascii;
        }
    }
    return 0;
}

char printedLetter(char32_t character)
{
    const auto* const found = std::ranges::find(kPrinted, character, &Printed::character);
    return found == kPrinted.end() ? '\0' : found->letter;
}

/// Whether `word` has a letter or mark of printed transliteration. Punctuation, such as the curved
/// apostrophe of Italian, is none.
bool hasMarks(std::string_view word)
{
    for (std::size_t at = 0; at < word.size();) {
        const char32_t character = nextCharacter(word, at);
        if (character > 0xFF && (character < 0x2000 || character > 0x2FFF)) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::string asciiTransliteration(std::string_view text)
{
    std::string ascii;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        std::size_t behind = at;
        const char32_t mark = at < text.size() ? nextCharacter(text, behind) : 0;
        if (const char letter = markedLetter(character, mark)) {
            ascii += letter;
            at = behind;
        } else if (const char plain = printedLetter(character)) {
            ascii += plain;
        } else if (character < 0x0300 || character > 0x036F) {  // other marks change no consonant
            appendCharacter(ascii, character);
        }
    }
    return ascii;
}

std::string asciiWords(std::string_view text)
{
    std::string words;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t blank = text.find(' ', at);
        const std::string_view word =
            text.substr(at, blank == std::string_view::npos ? blank : blank + 1 - at);
        const std::string ascii = asciiTransliteration(word);
        words += hasMarks(word) && isAsciiTransliteration(ascii) ? std::string_view(ascii) : word;
        at += word.size();
    }
    return words;
}

bool isAsciiTransliteration(std::string_view text)
{
    return std::ranges::all_of(text, [](char byte) {
        return kLetters.find(byte) != std::string_view::npos ||
               kBetweenLetters.find(byte) != std::string_view::npos || (byte >= '0' && byte <= '9');
    });
}

std::string printedTransliteration(std::string_view field)
{
    if (!isAsciiTransliteration(field)) {
        return std::string(field);
    }
    std::string printed;
    for (const char letter : field) {
        const auto* const found =
            std::ranges::find(kMarks, letter, &std::pair<char, std::string_view>::first);
        if (found == kMarks.end()) {
            printed += letter;
        } else {
            printed += found->second;
        }
    }
    return printed;
}

std::string transliterationKey(std::string_view text)
{
    std::string key;
    for (char letter : asciiTransliteration(text)) {
        if (kBetweenLetters.find(letter) != std::string_view::npos) {
            continue;
        }
        if (letter >= 'A' && letter <= 'Z' && kLetters.find(letter) == std::string_view::npos) {
            letter = static_cast<char>(small(static_cast<char32_t>(letter)));
        }
        key += letter == 'z' ? 's' : letter == 'y' || letter == 'j' ? 'i' : letter;
    }
    return key;
}

std::string smallLetters(std::string key)
{
    for (char& letter : key) {
        letter = static_cast<char>(small(static_cast<unsigned char>(letter)));
    }
    return key;
}

}  // namespace karvel
