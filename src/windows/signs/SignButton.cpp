#include "windows/signs/SignButton.hpp"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>

#include "base/SignRepertoire.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

/// An empty key, cached: all keys of a grid are alike, and drawing its smooth corners is slow.
QPixmap keyFace(QSize size, qreal ratio, const QColor& face, const QColor& outline)
{
    const QString key = QStringLiteral("tasto|%1|%2|%3|%4|%5")
                            .arg(size.width())
                            .arg(size.height())
                            .arg(ratio)
                            .arg(face.rgba())
                            .arg(outline.rgba());
    QPixmap drawn;
    if (QPixmapCache::find(key, &drawn)) {
        return drawn;
    }
    drawn = QPixmap((QSizeF(size) * ratio).toSize());
    drawn.setDevicePixelRatio(ratio);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(face);
    painter.setPen(QPen(outline, 1));
    painter.drawRoundedRect(QRectF(QPointF(0, 0), size).adjusted(1.5, 1.5, -1.5, -1.5), 4, 4);
    QPixmapCache::insert(key, drawn);
    return drawn;
}

}  // namespace

SignButton::SignButton(PictureStore& pictures, QWidget* parent) : QAbstractButton(parent), pictures_(pictures)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SignButton::setSign(const std::string& systemPath, const std::string& code, bool codeAsText)
{
    if (path_ == systemPath && code_ == code && codeAsText_ == codeAsText) {
        return;
    }
    path_ = systemPath;
    code_ = code;
    codeAsText_ = codeAsText;
    const QString caption = qtext(signCaption(code));
    setToolTip(caption);
    setAccessibleName(code.empty() ? QStringLiteral("tasto vuoto") : QStringLiteral("segno ") + caption);
    update();
}

void SignButton::setMarked(bool marked)
{
    if (marked_ == marked) {
        return;
    }
    marked_ = marked;
    setAccessibleDescription(marked ? QStringLiteral("segno trovato") : QString());
    update();
}

void SignButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void SignButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void SignButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    auto* const grid = qobject_cast<SquareGrid*>(parentWidget());
    if (grid == nullptr || !grid->moveFocus(this, event->key())) {
        QAbstractButton::keyPressEvent(event);
    }
}

void SignButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor surface = palette().color(QPalette::Button);
    QColor face = surface;
    if (isDown()) {
        face = between(surface, kAccent, 0.35);
    } else if (underMouse() && isEnabled()) {
        face = between(surface, QColor(255, 255, 255), 0.55);
    } else if (marked_ && !strongContrast()) {
        face = between(surface, kSelection, 0.35);
    }
    painter.drawPixmap(0, 0, keyFace(size(), devicePixelRatioF(), face, outlineOn(surface, 0.28)));

    painter.setPen(inkOn(face));
    const QPointF centre = QRectF(rect()).center() + (isDown() ? QPointF(1, 1) : QPointF(0, 0));
    const bool drawn = !path_.empty() && pictures_.draw(painter, path_, centre, pictureSide());
    if (!drawn && codeAsText_) {
        painter.drawText(rect(), Qt::AlignCenter, qtext(code_));
    }
    if (!QAbstractButton::text().isEmpty()) {
        const QRect band(2, height() - painter.fontMetrics().height() - 4, width() - 4,
                         painter.fontMetrics().height() + 2);
        painter.fillRect(band, kSelection);
        painter.setPen(inkOn(kSelection));
        painter.drawText(band, Qt::AlignCenter, QAbstractButton::text());
    }
    if (hasFocus() || marked_) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(hasFocus() || strongContrast() ? focusPen(surface) : QPen(kSelection, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    }
}

}  // namespace karvel
