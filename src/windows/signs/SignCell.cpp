#include "windows/signs/SignCell.hpp"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "base/SignRepertoire.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

SignCell::SignCell(PictureStore& pictures, QWidget* parent) : QAbstractButton(parent), pictures_(pictures)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SignCell::setCell(const DisplayLine::Cell& cell, bool selected)
{
    cell_ = cell;
    selected_ = selected;
    const QString caption = cell.blank() ? QString() : qtext(signCaption(cell.code));
    setToolTip(caption);
    setAccessibleName(cell.blank() ? QStringLiteral("cella vuota") : QStringLiteral("segno ") + caption);
    setAccessibleDescription(selected ? QStringLiteral("selezionato per la cancellazione") : QString());
    update();
}

void SignCell::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor surface = palette().color(QPalette::Window);
    const QColor ink = inkOn(surface);
    const QRectF area = QRectF(rect());
    painter.fillRect(rect(), surface);
    // A faint line at the bottom shows where a sign can stand.
    painter.setPen(QPen(outlineOn(surface, 0.25), 1));
    painter.drawLine(QPointF(6, height() - 3.5), QPointF(width() - 6, height() - 3.5));
    if (!cell_.blank()) {
        constexpr int kMargin = 10;           // logical pixels around the sign
        constexpr qreal kNotOfPhrase = 0.55;  // opacity of a sign that only shows a result
        painter.setOpacity(cell_.ofPhrase() ? 1 : kNotOfPhrase);
        pictures_.draw(painter, cell_.path, area.center(), std::min(width(), height()) - kMargin);
        painter.setOpacity(1);
    }
    if (cell_.border) {
        painter.setPen(QPen(ink, 1));
        painter.drawRect(area.adjusted(1.5, 1.5, -1.5, -1.5));
    }
    if (selected_) {
        painter.setPen(QPen(kSelection, 3));
        painter.drawRect(area.adjusted(2.5, 2.5, -2.5, -2.5));
    }
    if (hasFocus()) {
        painter.setPen(QPen(ink, 1, Qt::DashLine));
        painter.drawRect(area.adjusted(4.5, 4.5, -4.5, -4.5));
    }
}

}  // namespace karvel
