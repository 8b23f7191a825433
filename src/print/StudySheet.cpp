#include "print/StudySheet.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "writing/Grouping.hpp"

namespace karvel {

namespace {

// All measures are in units of 1/1440 inch.
constexpr double kPhraseBlock = 640;  // the height of a block in the phrase, 32 points
constexpr double kWordBlock = 480;    // in a word
constexpr double kBetweenParts = 280;
constexpr double kBetweenWords = 200;
constexpr double kColumnGap = 280;    // between the signs of a word and its text
constexpr double kSignsShare = 0.45;  // of the width: the most that the signs of a word take

/// A line that has no place on a page yet.
struct Line {
    StudyPiece piece;
    double height = 0;  ///< down to where the next line begins
};

using Lines = std::vector<Line>;

/// The signs of `codes` in lines no wider than `width`, blocks `blockHeight` high.
Lines signLines(std::string_view codes, double width, double blockHeight)
{
    const double scale = blockHeight / kBlockHeight;
    const Placement all = place(blocksOf(codes), {.length = width / scale});
    const double step = kBlockHeight + kBetweenLines;
    Lines lines(static_cast<std::size_t>(std::lround((all.height + kBetweenLines) / step)));
    for (Line& line : lines) {
        line.height = step * scale;
        line.piece.blockHeight = blockHeight;
        line.piece.signs.height = kBlockHeight;
    }
    for (PlacedSign sign : all.signs) {
        const double middle = sign.box.y + sign.box.height / 2;
        const auto number =
            std::min(static_cast<std::size_t>(std::max(0.0, middle) / step), lines.size() - 1);
        sign.box.y -= static_cast<double>(number) * step;
        Placement& line = lines[number].piece.signs;
        line.width = std::max(line.width, sign.box.x + sign.box.width);
        line.signs.push_back(std::move(sign));
    }
    return lines;
}

/// The end of the character of `text` that begins at `at`.
std::size_t nextCharacter(std::string_view text, std::size_t at)
{
    do {
        ++at;
    } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80);
    return at;
}

/// How much of `text` fits into `width`: whole words, or as many characters as fit where the first word alone
/// is too wide; at least one character.
std::size_t fitting(std::string_view text, double width, StudyFont font, const TextWidth& textWidth)
{
    std::size_t fits = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at + 1), text.size());
        if (textWidth(text.substr(0, end), font) > width) {
            break;
        }
        fits = at = end;
    }
    if (fits == 0) {
        fits = nextCharacter(text, 0);
        for (std::size_t end = nextCharacter(text, fits);
             end <= text.size() && textWidth(text.substr(0, end), font) <= width;
             end = nextCharacter(text, end)) {
            fits = end;
        }
    }
    return fits;
}

void addLine(Lines& lines, std::string_view text, StudyFont font)
{
    Line line;
    line.piece.text = text;
    line.piece.font = font;
    line.height = lineStep(font);
    lines.push_back(std::move(line));
}

/// `text` in lines no wider than `width`. Nothing for an empty text.
void addText(Lines& lines, std::string_view text, double width, StudyFont font, const TextWidth& textWidth)
{
    while (!text.empty()) {
        std::string_view paragraph = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(paragraph.size() + 1, text.size()));
        do {
            const std::size_t fits = fitting(paragraph, width, font, textWidth);
            addLine(lines, paragraph.substr(0, fits), font);
            paragraph.remove_prefix(std::min(fits, paragraph.size()));
            paragraph.remove_prefix(std::min(paragraph.find_first_not_of(' '), paragraph.size()));
        } while (!paragraph.empty());
    }
}

Lines textLines(const StudyText& text, double width, const TextWidth& textWidth)
{
    Lines lines;
    addText(lines, text.transliteration, width, StudyFont::Transliteration, textWidth);
    addText(lines, text.translation, width, StudyFont::Translation, textWidth);
    addText(lines, text.note, width, StudyFont::Note, textWidth);
    return lines;
}

double heightOf(const Lines& lines)
{
    double height = 0;
    for (const Line& line : lines) {
        height += line.height;
    }
    return height;
}

/// The place where the next line goes, and the pages up to there.
class Pages {
  public:
    explicit Pages(double height) : height_(height) {}

    /// Leaves space above the next line, but not at the top of a page.
    void leave(double room) { top_ += top_ > 0 ? room : 0; }

    /// What comes next, `height` high, begins on a new page where it would otherwise not stand on one.
    void keepTogether(double height)
    {
        if (top_ > 0 && top_ + height > height_ && height <= height_) {
            turn();
        }
    }

    /// Puts the lines below each other, from where the next line goes.
    void add(Lines lines, double left)
    {
        for (Line& line : lines) {
            if (top_ > 0 && top_ + line.height > height_) {
                turn();
            }
            line.piece.left = left;
            line.piece.top = top_;
            top_ += line.height;
            pages_.resize(std::max(pages_.size(), page_ + 1));
            pages_[page_].push_back(std::move(line.piece));
        }
    }

    /// Puts two columns beside each other; what comes next goes below the longer one.
    void addBeside(Lines first, Lines second, double left)
    {
        const std::pair start(page_, top_);
        add(std::move(first), 0);
        const std::pair end(page_, top_);
        std::tie(page_, top_) = start;
        add(std::move(second), left);
        std::tie(page_, top_) = std::max(end, std::pair(page_, top_));
    }

    [[nodiscard]] std::vector<StudyPage> take()
    {
        pages_.resize(std::max<std::size_t>(pages_.size(), 1));
        return std::move(pages_);
    }

  private:
    void turn()
    {
        ++page_;
        top_ = 0;
    }

    double height_;
    std::vector<StudyPage> pages_;
    std::size_t page_ = 0;
    double top_ = 0;
};

}  // namespace

int fontHeight(StudyFont font)
{
    return font == StudyFont::Note ? 180 : 240;  // 9 and 12 points
}

int lineStep(StudyFont font)
{
    return fontHeight(font) * 4 / 3;
}

std::vector<StudyPage> layOut(const StudySheet& sheet, int width, int height, const TextWidth& textWidth)
{
    Pages pages(height);
    Lines remark;
    addText(remark, sheet.remark, width, StudyFont::Note, textWidth);
    pages.add(std::move(remark), 0);
    pages.leave(kBetweenWords);
    for (const std::string& line : sheet.lines) {
        pages.add(signLines(line, width, kPhraseBlock), 0);
    }
    for (const StudyText& text : sheet.texts) {
        Lines lines = textLines(text, width, textWidth);
        pages.leave(kBetweenWords);
        pages.keepTogether(heightOf(lines));
        pages.add(std::move(lines), 0);
    }
    pages.leave(kBetweenParts);
    std::vector<Lines> signs;
    double column = 0;
    for (const StudyWord& word : sheet.words) {
        signs.push_back(signLines(word.signs, width * kSignsShare, kWordBlock));
        for (const Line& line : signs.back()) {
            column = std::max(column, line.piece.signs.width * kWordBlock / kBlockHeight);
        }
    }
    column += kColumnGap;
    for (std::size_t i = 0; i < sheet.words.size(); ++i) {
        Lines text = textLines(sheet.words[i].text, width - column, textWidth);
        pages.keepTogether(std::max(heightOf(signs[i]), heightOf(text)));
        pages.addBeside(std::move(signs[i]), std::move(text), column);
        pages.leave(kBetweenWords);
    }
    return pages.take();
}

}  // namespace karvel
