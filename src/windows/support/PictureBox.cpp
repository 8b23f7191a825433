#include "windows/support/PictureBox.hpp"

#include <QPaintEvent>
#include <QPainter>

namespace karvel {

PictureBox::PictureBox(const QPixmap& picture, QSize size, QWidget* parent)
    : QWidget(parent), picture_(picture), size_(size)
{
    setFixedSize(size);
}

void PictureBox::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (!picture_.isNull()) {
        painter.drawPixmap(rect(),
                           picture_.scaled(pixels, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation));
    }
}

}  // namespace karvel
