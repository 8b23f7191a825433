#include "windows/signs/PhraseNote.hpp"

#include <QPainter>
#include <algorithm>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"
#include "windows/signs/PhraseFit.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

constexpr int kBlock = 23;  // height of a block of signs, logical pixels

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
    const std::string& codes = desktop_.session().display().DisplayCodes();
    const std::size_t count = codes.size() / kCodeLength;
    const QString text = codes.empty() ? QString()
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

/// The text takes the width that it needs, up to half; the signs stand before it in blocks, the last ones
/// when there are too many.
void PhraseNote::paintEvent(QPaintEvent* /*event*/)
{
    if (text_.isEmpty()) {
        return;
    }
    constexpr int kGap = 8;
    QPainter painter(this);
    const int textWidth = std::min(fontMetrics().horizontalAdvance(text_) + 2, width() / 2);
    const qreal room = width() - textWidth - kGap;
    const PhraseLook look{.ink = palette().color(QPalette::WindowText)};
    const std::string shown = signsThatFit(codes_, Shown::End, room, kBlock, look, desktop_);
    const qreal wanted = phraseSize(shown, kBlock, look, desktop_).width();
    if (wanted <= room) {
        paintPhrase(painter, {room - wanted, 0, wanted, 1.0 * height()}, shown, kBlock, look, desktop_);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(width() - textWidth, 0, textWidth, height()), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text_, Qt::ElideMiddle, textWidth));
}

}  // namespace karvel
