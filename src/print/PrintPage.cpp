#include "print/PrintPage.hpp"

#include <algorithm>

#include "base/SignCode.hpp"

namespace karvel {

void PrintPage::fill(std::string_view codes, const SignImages& images, Pictures& pictures,
                     const LastResult& last)
{
    clearSigns();
    std::size_t cell = 0;
    for (const std::string_view code : splitCodes(codes.substr(0, kCells * kCodeLength))) {
        const std::string path = images.path(code);
        pic_[cell++] = {.code = std::string(code),
                        .path = pictures.canLoad(path) ? path : std::string(),
                        .visible = true};
    }
    phrase_ = codes;
    setText(last);
}

void PrintPage::clearSigns()
{
    pic_.fill({});
}

void PrintPage::setText(const LastResult& last)
{
    translation_ = last.translation;
    note_ = last.note;
    searched_ = last.phrase;
}

SheetBox PrintPage::cellBox(std::size_t cell, int width) const
{
    constexpr int kRow = static_cast<int>(kCells - 1) * kCellStep + kCellSide;
    const auto fitted = [width](int measure) { return width < kRow ? measure * width / kRow : measure; };
    return {.left = fitted(static_cast<int>(cell) * kCellStep),
            .top = rowTop_,
            .width = fitted(kCellSide),
            .height = fitted(kCellSide)};
}

SheetBox PrintPage::textBox(int width, int height) const
{
    const int top = labelTop_ + kLabelInset;
    return {.left = 0, .top = top, .width = width, .height = std::max(0, height - top)};
}

}  // namespace karvel
