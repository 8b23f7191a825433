#include "windows/support/Icons.hpp"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <algorithm>

namespace karvel {

namespace {

/// The symbols are drawn in a square with this side.
constexpr qreal kField = 24;

QPainterPath arrow(qreal tip, qreal back)
{
    QPainterPath path;
    path.moveTo(back, 5);
    path.lineTo(tip, 12);
    path.lineTo(back, 19);
    path.closeSubpath();
    return path;
}

QPainterPath cross(qreal x, qreal y, qreal half)
{
    QPainterPath path;
    path.moveTo(x - half, y - half);
    path.lineTo(x + half, y + half);
    path.moveTo(x + half, y - half);
    path.lineTo(x - half, y + half);
    return path;
}

QPainterPath lens(bool plus)
{
    QPainterPath path;
    path.addEllipse(QPointF(10, 10), 6.5, 6.5);
    path.moveTo(15, 15);
    path.lineTo(21, 21);
    if (plus) {
        path.moveTo(7, 10);
        path.lineTo(13, 10);
        path.moveTo(10, 7);
        path.lineTo(10, 13);
    }
    return path;
}

QPainterPath lines()
{
    QPainterPath path;
    for (const qreal y : {6.0, 12.0, 18.0}) {
        path.moveTo(4, y);
        path.lineTo(4.5, y);
        path.moveTo(9, y);
        path.lineTo(21, y);
    }
    return path;
}

QPainterPath bin()
{
    QPainterPath path;
    path.moveTo(4, 7);
    path.lineTo(20, 7);
    path.moveTo(9, 7);
    path.lineTo(9, 4);
    path.lineTo(15, 4);
    path.lineTo(15, 7);
    path.moveTo(6, 7);
    path.lineTo(7, 20);
    path.lineTo(17, 20);
    path.lineTo(18, 7);
    path.moveTo(10, 11);
    path.lineTo(10, 16);
    path.moveTo(14, 11);
    path.lineTo(14, 16);
    return path;
}

QPainterPath signBeingDeleted()
{
    QPainterPath path;
    path.moveTo(8, 5);
    path.lineTo(21, 5);
    path.lineTo(21, 19);
    path.lineTo(8, 19);
    path.lineTo(2, 12);
    path.closeSubpath();
    path.addPath(cross(14, 12, 3));
    return path;
}

QPainterPath bookWithPlus()
{
    QPainterPath path;
    path.moveTo(13, 20);
    path.lineTo(6, 20);
    path.cubicTo(3.5, 20, 3.5, 16.5, 6, 16.5);
    path.lineTo(17, 16.5);
    path.lineTo(17, 3);
    path.lineTo(6, 3);
    path.cubicTo(4.5, 3, 4, 4, 4, 5);
    path.lineTo(4, 18);
    path.moveTo(19, 17);
    path.lineTo(19, 23);
    path.moveTo(16, 20);
    path.lineTo(22, 20);
    return path;
}

void draw(QPainter& painter, Symbol symbol, const QColor& ink)
{
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto filled = [&](const QPainterPath& path) {
        painter.setBrush(ink);
        painter.drawPath(path);
        painter.setBrush(Qt::NoBrush);
    };
    switch (symbol) {
        case Symbol::Left:
            return filled(arrow(8, 16));
        case Symbol::Right:
            return filled(arrow(16, 8));
        case Symbol::Start:
            painter.drawLine(QPointF(5, 5), QPointF(5, 19));
            return filled(arrow(9, 18));
        case Symbol::End:
            painter.drawLine(QPointF(19, 5), QPointF(19, 19));
            return filled(arrow(15, 6));
        case Symbol::DeleteSign:
            return painter.drawPath(signBeingDeleted());
        case Symbol::ClearAll:
        case Symbol::Bin:
            return painter.drawPath(bin());
        case Symbol::Magnify:
            return painter.drawPath(lens(true));
        case Symbol::AddToDictionary:
            return painter.drawPath(bookWithPlus());
        case Symbol::Search:
            return painter.drawPath(lens(false));
        case Symbol::List:
            return painter.drawPath(lines());
        case Symbol::Cross:
            return painter.drawPath(cross(12, 12, 6));
    }
}

/// Draws its symbol only when it is shown, at the size and resolution that it then needs.
class SymbolEngine : public QIconEngine {
  public:
    SymbolEngine(Symbol symbol, const QColor& ink) : symbol_(symbol), ink_(ink) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        QColor ink = ink_;
        if (mode == QIcon::Disabled) {
            ink.setAlpha(90);
        }
        const qreal side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center() - QPointF(side, side) / 2);
        painter->scale(side / kField, side / kField);
        draw(*painter, symbol_, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolEngine(symbol_, ink_); }

  private:
    Symbol symbol_;
    QColor ink_;
};

}  // namespace

QIcon symbolIcon(Symbol symbol, const QColor& ink)
{
    return QIcon(new SymbolEngine(symbol, ink));
}

}  // namespace karvel
