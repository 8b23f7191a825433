#include "windows/signs/PrintedSign.hpp"

#include <QPainter>
#include <QtMath>

#include "windows/signs/LayoutPainter.hpp"
#include "windows/support/Desktop.hpp"

namespace karvel {

namespace {

/// The first column that is dark; the width when none is.
int firstInk(const QImage& flat)
{
    for (int x = 0; x < flat.width(); ++x) {
        for (int y = 0; y < flat.height(); ++y) {
            if (qGray(flat.pixel(x, y)) < 128) {
                return x;
            }
        }
    }
    return flat.width();
}

/// The outline, moved and scaled to where the image has the sign.
QPainterPath placed(const SignDrawing& drawing, const QRectF& square)
{
    const QPainterPath path = outlinePath(*drawing.outline);
    const QRectF ink = path.boundingRect();
    const Box image = SignDrawings::imageBox(drawing, {ink.x(), ink.y(), ink.width(), ink.height()});
    QTransform place;
    place.translate(square.center().x(), square.center().y());
    place.scale(square.width() / image.width, -square.height() / image.height);
    place.translate(-ink.center().x(), -ink.center().y());
    return place.map(path);
}

}  // namespace

QImage onGround(const QImage& image, const QColor& ground, QSizeF devicePixels)
{
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(ground);
    QPainter(&flat).drawImage(0, 0, image);
    const QSize pixels(qCeil(devicePixels.width()), qCeil(devicePixels.height()));
    return pixels.width() >= flat.width()
               ? flat
               : flat.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

PrintedSign::PrintedSign(Desktop& desktop, const std::string& code, const std::string& path,
                         const QRectF& square, const QPainter& painter, const QColor& paper)
{
    const SignDrawing& drawing = LayoutPainter::of(desktop).drawings().of(code);
    if (drawing.outline) {
        outline_ = placed(drawing, square);
        left_ = outline_.boundingRect().left();
        return;
    }
    const QImage image = desktop.pictures().image(path);
    if (image.isNull()) {
        return;
    }
    const QSizeF size = QSizeF(image.size()).scaled(square.size(), Qt::KeepAspectRatio);
    place_ = QRectF(square.center() - QPointF(size.width() / 2, size.height() / 2), size);
    image_ = onGround(image, paper, painter.worldTransform().mapRect(place_).size());
    left_ = place_.left() + place_.width() * firstInk(image_) / image_.width();
}

void PrintedSign::paint(QPainter& painter, const QColor& ink, qreal shift) const
{
    if (!image_.isNull()) {
        painter.drawImage(place_.translated(shift, 0), image_);
    } else {
        painter.fillPath(outline_.translated(shift, 0), ink);
    }
}

}  // namespace karvel
