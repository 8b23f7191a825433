#include "windows/signs/MagnifiedPhrase.hpp"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "base/SignRepertoire.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kSmallest = 72;
constexpr int kLargest = 190;
constexpr int kStep = 4;
constexpr int kGap = 8;
constexpr int kMargin = 12;

}  // namespace

MagnifiedPhrase::MagnifiedPhrase(PictureStore& pictures, QWidget* parent)
    : QWidget(parent), pictures_(pictures), side_(kLargest)
{
    setObjectName(QStringLiteral("frase"));
}

void MagnifiedPhrase::setSigns(std::vector<Sign> signs)
{
    if (signs_ != signs) {
        signs_ = std::move(signs);
        QString name = QStringLiteral("frase ingrandita:");
        for (const Sign& sign : signs_) {
            name += QLatin1Char(' ') + qtext(sign.code);
        }
        setAccessibleName(name);
    }
    update();
}

int MagnifiedPhrase::captionHeight() const
{
    return fontMetrics().height() + 2;
}

int MagnifiedPhrase::columns(int side, int width) const
{
    return std::max(1, (width - 2 * kMargin + kGap) / (side + kGap));
}

int MagnifiedPhrase::heightFor(int side, int width) const
{
    const int rows = (static_cast<int>(signs_.size()) + columns(side, width) - 1) / columns(side, width);
    return 2 * kMargin + rows * (side + captionHeight() + kGap) - kGap;
}

void MagnifiedPhrase::fit(QSize view)
{
    side_ = kLargest;
    while (side_ > kSmallest && heightFor(side_, view.width()) > view.height()) {
        side_ -= kStep;
    }
    resize(view.width(), std::max(view.height(), heightFor(side_, view.width())));
    update();
}

QRect MagnifiedPhrase::cell(std::size_t sign) const
{
    const int inRow = columns(side_, width());
    const int row = static_cast<int>(sign) / inRow;
    const int column = static_cast<int>(sign) % inRow;
    return {kMargin + column * (side_ + kGap), kMargin + row * (side_ + captionHeight() + kGap), side_,
            side_ + captionHeight()};
}

void MagnifiedPhrase::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QColor surface = palette().color(QPalette::Window);
    painter.fillRect(event->rect(), surface);
    painter.setPen(inkOn(surface));
    if (signs_.empty()) {
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Il display è vuoto."));
        return;
    }
    for (std::size_t i = 0; i < signs_.size(); ++i) {
        const QRect place = cell(i);
        if (!place.intersects(event->rect())) {
            continue;
        }
        const QPointF centre(place.left() + side_ / 2.0, place.top() + side_ / 2.0);
        pictures_.draw(painter, signs_[i].path, centre, side_);
        painter.drawText(place, Qt::AlignHCenter | Qt::AlignBottom, qtext(signs_[i].code));
    }
}

bool MagnifiedPhrase::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* const help = static_cast<QHelpEvent*>(event);
    for (std::size_t i = 0; i < signs_.size(); ++i) {
        if (cell(i).contains(help->pos())) {
            QToolTip::showText(help->globalPos(), qtext(signCaption(signs_[i].code)), this, cell(i));
            return true;
        }
    }
    QToolTip::hideText();
    return true;
}

}  // namespace karvel
