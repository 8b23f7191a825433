#include "windows/ColourButton.hpp"

#include <QPainter>

#include "windows/support/Theme.hpp"

namespace karvel {

ColourButton::ColourButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void ColourButton::setColour(const QColor& colour)
{
    colour_ = colour;
    update();
}

void ColourButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = inkOn(colour_);
    const QRectF face = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(colour_);
    // The frame makes the button visible on a window of its colour, and is stronger under the pointer.
    painter.setPen(QPen(between(colour_, ink, underMouse() ? 0.9 : 0.45), 1));
    painter.drawRoundedRect(face, 4, 4);
    painter.setPen(ink);
    painter.drawText(rect().translated(isDown() ? 1 : 0, isDown() ? 1 : 0), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ink, 1, Qt::DashLine));
        painter.drawRoundedRect(face.adjusted(4, 4, -4, -4), 2, 2);
    }
}

}  // namespace karvel
