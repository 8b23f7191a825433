#pragma once

#include <string>
#include <string_view>

#include "base/UserInterface.hpp"
#include "print/PrintPage.hpp"

namespace karvel {

/// The menu "Stampa": fills `page`, or says that nothing is composed. True when the print window may open.
[[nodiscard]] bool preparePrint(PrintPage& page, std::string_view codes, const SignImages& images,
                                Pictures& pictures, const LastResult& last, UserInterface& ui);

/// What the user chooses before the print: with or without the text, and how far down the sheet.
/// All positions are in units of 1/1440 inch.
class PrintWindow {
  public:
    static constexpr int kLowestWithText = 4483;
    static constexpr int kLowestSignsOnly = 5698;  ///< the sheet needs no room for the text
    static constexpr int kPreviewTextDrop = 600;   ///< of the preview's text below its row of signs
    /// The preview's text begins so far below the top of its label: where it will lie on the page.
    static constexpr int kPreviewTextInset =
        PrintPage::kLabelDrop + PrintPage::kLabelInset - kPreviewTextDrop;

    /// `page` must outlive the window.
    explicit PrintWindow(PrintPage& page) : page_(page) {}

    [[nodiscard]] bool textIncluded() const { return textIncluded_; }
    /// What the toggle button offers: always the other choice.
    [[nodiscard]] std::string_view toggleCaption() const
    {
        return textIncluded_ ? "Stampa solo geroglifici" : "Geroglifici più testo";
    }
    /// The scroll bar's range and value. Kept: the range follows the choice only at the next scroll, so that
    /// the row never jumps while the user compares the two sheets.
    [[nodiscard]] int maximum() const { return maximum_; }
    [[nodiscard]] int position() const { return position_; }
    [[nodiscard]] int previewRowTop() const { return position_; }
    [[nodiscard]] int previewTextTop() const { return position_ + kPreviewTextDrop; }

    /// What the user should know about the text on a page `height` high, a line for each; often empty.
    [[nodiscard]] std::string remarks(int height) const;

    void toggleText();

    /// The scroll bar stands at `value`; beyond the range that is now in force it is moved back into it.
    void scrolled(int value);

    /// The print button: asks where there is no text although it is wanted. True when the page is to be
    /// printed.
    [[nodiscard]] bool startPrint(const LastResult& last, UserInterface& ui);

    /// The window closes.
    void close() { page_.clearSigns(); }

  private:
    PrintPage& page_;
    bool textIncluded_ = true;
    int maximum_ = kLowestWithText;
    int position_ = 0;
};

}  // namespace karvel
