#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/Pictures.hpp"
#include "compose/SignImages.hpp"
#include "dictionary/DictionaryEntry.hpp"

namespace karvel {

/// A rectangle on the sheet in units of 1/1440 inch, counted from the corner of its printable part.
struct SheetBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] int right() const { return left + width; }
    [[nodiscard]] int bottom() const { return top + height; }
};

/// The sheet as it is printed: a row of signs, and a block of text below it. All measures are in units of
/// 1/1440 inch.
class PrintPage {
  public:
    static constexpr std::size_t kCells = 12;
    static constexpr int kMargin = 1134;   ///< 20 mm on every side of the paper
    static constexpr int kCellSide = 760;  ///< of a sign
    static constexpr int kCellStep = 800;  ///< from one sign to the next
    /// The label hangs so far below the top of the row, and its text begins so far below its own top: under
    /// the signs.
    static constexpr int kLabelDrop = 300;
    static constexpr int kLabelInset = 480;
    static constexpr int kFontHeight = 240;  ///< 12 points
    static constexpr int kNoteHeight = 180;  ///< 9 points: of the note's font

    struct Cell {
        std::string code;
        std::string path;  ///< of the image, in the system's form; empty when the cell shows nothing
        bool visible = false;
    };

    /// Fills the page from the phrase `codes`: its first twelve signs, and the text found last. An image that
    /// cannot be loaded leaves its cell blank.
    void fill(std::string_view codes, const SignImages& images, Pictures& pictures, const LastResult& last);

    /// Takes the signs away, so that the next print starts from an empty page.
    void clearSigns();

    [[nodiscard]] const std::array<Cell, kCells>& pic() const { return pic_; }

    /// The caption of `Label1`: translation and note, separated by two line feeds.
    [[nodiscard]] std::string text() const { return translation_ + "\n\n" + note_; }
    [[nodiscard]] const std::string& translation() const { return translation_; }
    [[nodiscard]] const std::string& note() const { return note_; }
    void setText(const LastResult& last);
    /// Whether there is nothing to print but line feeds.
    [[nodiscard]] bool textEmpty() const { return translation_.empty() && note_.empty(); }
    /// The codes of the phrase that filled the page, also of the signs that are not printed.
    [[nodiscard]] const std::string& phrase() const { return phrase_; }
    /// Whether the text was found by a search of the phrase that filled the page.
    [[nodiscard]] bool textBelongsToPhrase() const { return searched_ == phrase_; }
    [[nodiscard]] bool labelVisible() const { return labelVisible_; }
    void setLabelVisible(bool visible) { labelVisible_ = visible; }

    [[nodiscard]] int rowTop() const { return rowTop_; }
    void moveRow(int top) { rowTop_ = top; }
    void moveLabel(int top) { labelTop_ = top; }

    /// Where cell `cell` lies on a page `width` wide; on a narrow one the whole row is smaller.
    [[nodiscard]] SheetBox cellBox(std::size_t cell, int width) const;
    /// Whether the text begins on a page `height` high; otherwise it begins at the top of the next one.
    [[nodiscard]] bool textBeginsHere(int height) const
    {
        return labelTop_ + kLabelInset + kFontHeight <= height;
    }
    /// Where the text begins and is wrapped, down to the end of a page `height` high.
    [[nodiscard]] SheetBox textBox(int width, int height) const;

  private:
    std::array<Cell, kCells> pic_;
    std::string translation_;
    std::string note_;
    std::string phrase_;
    std::string searched_;  ///< the codes whose search gave the text
    bool labelVisible_ = true;
    int rowTop_ = 0;
    int labelTop_ = kLabelDrop;
};

}  // namespace karvel
