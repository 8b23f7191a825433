#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "writing/Placement.hpp"

namespace karvel {

/// What the signs say. UTF-8; a line feed begins a new line.
struct StudyText {
    std::string transliteration{};  ///< in the letters of Egyptologists
    std::string translation{};
    std::string note{};
};

struct StudyWord {
    std::string signs;  ///< sign codes without separators
    StudyText text{};
};

/// What a study sheet holds. Everything but `lines` may be empty.
struct StudySheet {
    std::string remark{};  ///< in small letters above everything
    /// Sign codes. Each begins a new line of signs, and is broken into more where it is too long.
    std::vector<std::string> lines{};
    std::vector<StudyText> texts{};  ///< of the whole, below the signs
    std::vector<StudyWord> words{};  ///< below each other: signs at the left, text at the right
};

enum class StudyFont { Transliteration, Translation, Note };

/// The height of a font and the distance from one of its lines to the next, in units of 1/1440 inch.
[[nodiscard]] int fontHeight(StudyFont font);
[[nodiscard]] int lineStep(StudyFont font);

/// A line of signs or of text on a page. Lengths are in units of 1/1440 inch, counted from the corner of the
/// printable part of the page.
struct StudyPiece {
    double left = 0;
    double top = 0;
    Placement signs;         ///< one line of blocks; without signs the piece is text
    double blockHeight = 0;  ///< of those signs
    std::string text;
    StudyFont font = StudyFont::Translation;
};

using StudyPage = std::vector<StudyPiece>;

/// The width of a line of text in a font, in units of 1/1440 inch.
using TextWidth = std::function<double(std::string_view, StudyFont)>;

/// Lays the sheet out on pages `width` wide and `height` high. Lines are broken between blocks of signs and
/// between words of text. A word of the sheet stands whole on a page, unless it is higher than one. There is
/// always a first page, and every page but that of an empty sheet holds something, however small it is.
[[nodiscard]] std::vector<StudyPage> layOut(const StudySheet& sheet, int width, int height,
                                            const TextWidth& textWidth);

}  // namespace karvel
