#include "windows/signs/PhraseStrip.hpp"

#include <QPainter>
#include <algorithm>

#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

PhraseStrip::PhraseStrip(Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PhraseStrip::setCodes(const std::string& codes)
{
    codes_ = codes;
    QString spoken;
    for (const std::string_view code : splitCodes(codes_)) {
        spoken += (spoken.isEmpty() ? QString() : QStringLiteral(", ")) + qtext(signCaption(code));
    }
    setAccessibleName(QStringLiteral("segni: ") + spoken);
    setToolTip(spoken);
    update();
}

void PhraseStrip::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int kMargin = 6;
    QPainter painter(this);
    const QColor surface = paletteFor(colour(desktop_.session().colours().display)).color(QPalette::Window);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(surface);
    painter.drawRoundedRect(rect(), 4, 4);
    const auto pieces = splitCodes(codes_);
    if (pieces.empty()) {
        return;
    }
    const int step =
        std::min(height() - 2 * kMargin + 4, (width() - 2 * kMargin) / static_cast<int>(pieces.size()));
    const int side = std::max(4, step - 4);
    painter.setPen(inkOn(surface));
    int left = kMargin;
    for (const std::string_view code : pieces) {
        const QPointF centre(left + side / 2.0, height() / 2.0);
        if (!desktop_.pictures().draw(painter, desktop_.session().images().path(code), centre, side)) {
            painter.drawText(QRect(left, 0, side, height()), Qt::AlignCenter, qtext(code));
        }
        left += step;
    }
}

}  // namespace karvel
