#include "windows/signs/PhraseNote.hpp"

#include <QPainter>
#include <algorithm>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "windows/signs/PhraseFit.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kAround = 5;      // above a block of signs and below it
constexpr int kReadable = 140;  // width of the text

}  // namespace

PhraseNote::PhraseNote(Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop)
{
    setObjectName(QStringLiteral("Frase"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(&desktop_, &Desktop::changed, this, &PhraseNote::showPhrase);
    showPhrase();
}

void PhraseNote::showPhrase()
{
    const DisplayLine& display = desktop_.session().display();
    const std::string& codes = display.DisplayCodes();
    const std::size_t count = codes.size() / kCodeLength;
    // While nothing at all is shown, the display itself says how to begin.
    const bool blank = std::ranges::all_of(display.cells(), &DisplayLine::Cell::blank);
    const QString text = codes.empty() ? (blank ? QString() : QStringLiteral("Frase: vuota"))
                                       : QStringLiteral("Frase: %1 (%2)")
                                             .arg(qtext(gardinerOf(codes)),
                                                  count == 1 ? QStringLiteral("1 segno")
                                                             : QStringLiteral("%1 segni").arg(count));
    codes_ = codes;
    text_ = text;
    setAccessibleName(text_.isEmpty() ? QStringLiteral("frase vuota") : text_);
    setToolTip(text_);
    update();
}

/// The text takes the width that it needs, up to half, or more where that is too little to read. The signs
/// stand before it in blocks, the last ones when there are too many.
void PhraseNote::paintEvent(QPaintEvent* /*event*/)
{
    if (text_.isEmpty()) {
        return;
    }
    constexpr int kGap = 8;
    const int block = height() - 2 * kAround;
    QPainter painter(this);
    const int textWidth =
        std::min({fontMetrics().horizontalAdvance(text_) + 2, std::max(kReadable, width() / 2), width()});
    const qreal free = width() - textWidth - kGap;
    const PhraseLook look{.ink = palette().color(QPalette::WindowText)};
    const std::string shown = signsThatFit(codes_, Shown::End, free, block, look, desktop_);
    const qreal wanted = phraseSize(shown, block, look, desktop_).width();
    if (wanted <= free) {
        paintPhrase(painter, {free - wanted, 0, wanted, 1.0 * height()}, shown, block, look, desktop_);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(width() - textWidth, 0, textWidth, height()), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text_, Qt::ElideMiddle, textWidth));
}

}  // namespace karvel
