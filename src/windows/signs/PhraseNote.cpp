#include "windows/signs/PhraseNote.hpp"

#include <QPainter>
#include <algorithm>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kSide = 24;       // of a sign
constexpr int kReadable = 140;  // of the text

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

/// The text takes the width that it needs, up to half, or more where that is too little to read; the signs
/// stand before it, the last ones when there are too many.
void PhraseNote::paintEvent(QPaintEvent* /*event*/)
{
    if (text_.isEmpty()) {
        return;
    }
    constexpr int kGap = 8;
    QPainter painter(this);
    const QColor paper = paletteFor(colour(desktop_.session().colours().display)).color(QPalette::Window);
    const auto pieces = splitCodes(codes_);
    const int textWidth =
        std::min({fontMetrics().horizontalAdvance(text_) + 2, std::max(kReadable, width() / 2), width()});
    const int room = std::max(0, width() - textWidth - kGap) / (kSide + 2);
    const int shown = std::min(static_cast<int>(pieces.size()), room);
    int left = width() - textWidth - kGap - shown * (kSide + 2);
    if (shown > 0) {
        painter.fillRect(left, 0, shown * (kSide + 2), height(), paper);
        painter.setPen(inkOn(paper));
    }
    for (auto piece = pieces.end() - shown; piece != pieces.end(); ++piece, left += kSide + 2) {
        const QRect cell(left, 0, kSide + 2, height());
        if (!desktop_.pictures().draw(painter, desktop_.session().images().path(*piece),
                                      QRectF(cell).center(), kSide)) {
            painter.drawText(cell, Qt::AlignCenter, qtext(*piece));
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(width() - textWidth, 0, textWidth, height()), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text_, Qt::ElideMiddle, textWidth));
}

}  // namespace karvel
