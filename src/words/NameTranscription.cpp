#include "words/NameTranscription.hpp"

#include "text/CodePage.hpp"
#include "text/Compose.hpp"

namespace karvel {

namespace {

/// The signs of A to Z.
constexpr std::array<std::string_view, 26> kLetters = {
    "p19", "c31", "n38", "c18", "g03", "f21", "f22", "h19", "p34", "f22", "n38", "d06", "e16",
    "h11", "n13", "i27", "h05", "b47", "l35", "o19", "e44", "e44", "e44", "l46", "p34", "h49"};

struct Group {
    std::string_view letters;
    std::string_view code;
    std::size_t consumed;  ///< letters
};

/// Tried in this order before the single letters.
///
/// Kept: the groups take different numbers of letters. A vowel that only softens the consonant before it is
/// still heard in a name, so it is written as well; SH is one sound, and its H is not.
constexpr std::array<Group, 8> kGroups = {{{"SCI", "h15", 2},
                                           {"SCE", "h15", 2},
                                           {"SH", "h15", 2},
                                           {"CI", "n20", 1},
                                           {"CE", "n20", 1},
                                           {"GH", "o03", 1},
                                           {"GU", "o03", 1},
                                           {"GO", "o03", 1}}};

}  // namespace

std::string transcribe(std::string_view name)
{
    const std::string upper = upperCase(composed(name));
    std::string codes;
    for (std::string_view rest = upper; !rest.empty();) {
        std::size_t consumed = 0;
        for (const Group& group : kGroups) {
            if (rest.starts_with(group.letters)) {
                codes += group.code;
                consumed = group.consumed;
                break;
            }
        }
        if (consumed == 0) {
            if (rest[0] >= 'A' && rest[0] <= 'Z') {
                codes += kLetters[static_cast<std::size_t>(rest[0] - 'A')];
            }
            consumed = 1;
        }
        rest.remove_prefix(consumed);
    }
    return codes;
}

void showTranscription(std::string_view name, DisplayLine& display, LastResult& last)
{
    last.foundCodes = transcribe(name);
    display.clearPictures(0, DisplayLine::kCells - 1);
    display.showFrom0(last.foundCodes);
}

}  // namespace karvel
