// Names turned into signs, text between the code page and memory, and phrases pasted from other programs.

#include <array>

#include "Target.hpp"
#include "base/SignCode.hpp"
#include "text/CodePage.hpp"
#include "text/PhraseText.hpp"
#include "words/NameTranscription.hpp"

using namespace karvel;
using fuzz::require;

namespace {

/// Letter after letter, as a person would look them up in the chart.
std::string lookedUp(std::string_view name)
{
    static constexpr std::array<const char*, 26> kChart = {
        "p19", "c31", "n38", "c18", "g03", "f21", "f22", "h19", "p34", "f22", "n38", "d06", "e16",
        "h11", "n13", "i27", "h05", "b47", "l35", "o19", "e44", "e44", "e44", "l46", "p34", "h49"};
    std::u32string letters;
    const std::string upper = upperCase(name);
    for (std::size_t at = 0; at < upper.size();) {
        letters += nextCharacter(upper, at);
    }
    letters.append(2, U'\0');  // nothing, twice: no letter is the last one
    std::string codes;
    for (std::size_t i = 0; i + 2 < letters.size(); ++i) {
        const char32_t letter = letters[i];
        const char32_t second = letters[i + 1];
        const char32_t third = letters[i + 2];
        if (letter == U'S' && second == U'C' && (third == U'I' || third == U'E')) {
            codes += "h15";
            ++i;
        } else if (letter == U'S' && second == U'H') {
            codes += "h15";
            ++i;
        } else if (letter == U'C' && (second == U'I' || second == U'E')) {
            codes += "n20";
        } else if (letter == U'G' && (second == U'H' || second == U'U' || second == U'O')) {
            codes += "o03";
        } else if (letter >= U'A' && letter <= U'Z') {
            codes += kChart[letter - U'A'];
        }
    }
    return codes;
}

void pageKeepsBytes(std::string_view bytes)
{
    const std::string utf8 = decode(bytes);
    require(unencodable(utf8).empty(), "what was read can be written");
    require(encode(utf8) == bytes, "and comes out as it was");
    require(encode(upperCase(utf8)) == upperCaseBytes(bytes), "upper case is the same on both sides");
    require(upperCase(upperCase(utf8)) == upperCase(utf8), "upper case is upper case");
    require(foldedBytes(foldedBytes(bytes)) == foldedBytes(bytes), "folding folds all");
}

void phraseComesBack(std::string_view text)
{
    const ReadPhrase phrase = readPhrase(text);
    std::string codes;
    for (const std::string& code : phrase.codes) {
        require(isSignCode(code), "a pasted sign is a sign");
        codes += code;
    }
    for (const std::string& unknown : phrase.unknown) {
        require(!unknown.empty(), "what was not known can be shown");
    }
    // Signs without a character of their own are copied as "?", which nobody can read back.
    const std::string copied = unicodeOf(codes);
    if (copied.find('?') == std::string::npos) {
        const ReadPhrase again = readPhrase(copied);
        require(again.unknown.empty(), "what was copied is known");
        require(again.codes.size() == phrase.codes.size(), "and as long as it was");
        require(gardinerOf(codes).find('?') != std::string::npos ||
                    readPhrase(gardinerOf(codes)).codes.size() == phrase.codes.size(),
                "by its numbers too");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = fuzz::Input(data, size).rest();
    require(transcribe(text) == lookedUp(text), "a name is written as looked up");
    pageKeepsBytes(text);
    phraseComesBack(text);
    return 0;
}
