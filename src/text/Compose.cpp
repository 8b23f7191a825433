#include "text/Compose.hpp"

#include <array>

#include "text/CodePage.hpp"

namespace karvel {

namespace {

/// The letters that a combining mark can follow, and the characters that result, in the same order.
struct Mark {
    char32_t mark;
    std::string_view letters;
    std::u32string_view results;
};

constexpr std::array<Mark, 8> kMarks = {{{0x300, "AEIOUaeiou", U"ÀÈÌÒÙàèìòù"},
                                         {0x301, "AEIOUYaeiouy", U"ÁÉÍÓÚÝáéíóúý"},
                                         {0x302, "AEIOUaeiou", U"ÂÊÎÔÛâêîôû"},
                                         {0x303, "ANOano", U"ÃÑÕãñõ"},
                                         {0x308, "AEIOUYaeiouy", U"ÄËÏÖÜŸäëïöüÿ"},
                                         {0x30A, "Aa", U"Åå"},
                                         {0x30C, "SZsz", U"ŠŽšž"},
                                         {0x327, "Cc", U"Çç"}}};

/// The character for `letter` with the combining mark `mark`; 0 when the code page has none.
char32_t joined(char letter, char32_t mark)
{
    for (const Mark& each : kMarks) {
        if (each.mark == mark) {
            const std::size_t at = each.letters.find(letter);
            return at == std::string_view::npos ? 0 : each.results[at];
        }
    }
    return 0;
}

}  // namespace

std::string composed(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        const char32_t mark = nextCharacter(utf8, at);
        if (const char32_t whole = text.empty() ? 0 : joined(text.back(), mark)) {
            text.pop_back();
            appendCharacter(text, whole);
        } else {
            text += utf8.substr(begin, at - begin);
        }
    }
    return text;
}

}  // namespace karvel
