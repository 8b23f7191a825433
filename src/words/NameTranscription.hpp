#pragma once

#include <array>
#include <string>
#include <string_view>

#include "compose/DisplayLine.hpp"
#include "dictionary/DictionaryEntry.hpp"

namespace karvel {

/// The sign codes of a personal name, UTF-8, letter group by letter group; letter case does not matter, and
/// whatever is no letter of the plain alphabet adds nothing.
[[nodiscard]] std::string transcribe(std::string_view name);

/// What Enter does in the name box: puts the signs of `name` into the display cells, the first twelve of
/// them; the phrase stays as it is. The codes are left in `last.foundCodes`.
void showTranscription(std::string_view name, DisplayLine& display, LastResult& last);

/// A sign of the chart beside the name box.
struct PhoneticSign {
    std::string_view code;
    std::string_view letters;   ///< what it stands for, as the chart words it
    std::string_view appended;  ///< what a click on it adds to the name
};

/// The chart: every sign that a transcription can give, in the order of the letters.
inline constexpr std::array<PhoneticSign, 24> kPhoneticSigns = {{
    {"p19", "A", "A"},           {"c31", "B", "B"},       {"n38", "C  K", "C"}, {"n20", "CI  CE", "CI"},
    {"c18", "D", "D"},           {"g03", "E", "E"},       {"f21", "F", "F"},    {"f22", "G  J", "G"},
    {"o03", "GH  GO  GU", "GH"}, {"h19", "H", "H"},       {"p34", "I  Y", "I"}, {"d06", "L", "L"},
    {"e16", "M", "M"},           {"h11", "N", "N"},       {"n13", "O", "O"},    {"i27", "P", "P"},
    {"h05", "Q", "Q"},           {"b47", "R", "R"},       {"l35", "S", "S"},    {"h15", "SH  SCI  SCE", "SH"},
    {"o19", "T", "T"},           {"e44", "U  V  W", "U"}, {"l46", "X", "X"},    {"h49", "Z", "Z"},
}};

}  // namespace karvel
