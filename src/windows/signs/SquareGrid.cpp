#include "windows/signs/SquareGrid.hpp"

#include <QResizeEvent>
#include <algorithm>

namespace karvel {

namespace {

constexpr int kGap = 3;       // logical pixels between keys
constexpr int kMoreDown = 8;  // the gaps between rows may be larger by so many logical pixels
constexpr int kSmallestSide = 20;
constexpr int kUsualSide = 64;

int rowsFor(std::size_t keys, int columns)
{
    return (static_cast<int>(keys) + columns - 1) / columns;
}

int lengthOf(int side, int count)
{
    return side * count + kGap * (count - 1);
}

}  // namespace

void SquareGrid::add(QWidget* key)
{
    key->setParent(this);
    keys_.push_back(key);
    key->setFocusPolicy(Qt::ClickFocus);
    key->installEventFilter(this);
    if (stop_ == nullptr) {
        stopAt(*key);
    }
    key->show();
    if (!testAttribute(Qt::WA_PendingResizeEvent)) {
        arrange();
    }
}

void SquareGrid::stopAt(QWidget& key)
{
    if (stop_ != nullptr) {
        stop_->setFocusPolicy(Qt::ClickFocus);
    }
    stop_ = &key;
    stop_->setFocusPolicy(Qt::StrongFocus);
}

bool SquareGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        stopAt(*static_cast<QWidget*>(watched));
    } else if (event->type() == QEvent::HideToParent && watched == stop_) {
        stopAt(*keys_.front());
    }
    return QWidget::eventFilter(watched, event);
}

bool SquareGrid::moveFocus(QWidget* from, int key)
{
    const auto found = std::ranges::find(keys_, from);
    if (found == keys_.end()) {
        return false;
    }
    int last = static_cast<int>(keys_.size()) - 1;
    while (last > 0 && keys_[static_cast<std::size_t>(last)]->isHidden()) {
        --last;  // a card with few signs hides its last keys
    }
    int to = static_cast<int>(found - keys_.begin());
    switch (key) {
        case Qt::Key_Left:
            --to;
            break;
        case Qt::Key_Right:
            ++to;
            break;
        case Qt::Key_Up:
            to -= columns_;
            break;
        case Qt::Key_Down:
            to += columns_;
            break;
        case Qt::Key_Home:
            to = 0;
            break;
        case Qt::Key_End:
            to = last;
            break;
        default:
            return false;
    }
    if (to >= 0 && to <= last) {
        keys_[static_cast<std::size_t>(to)]->setFocus(Qt::TabFocusReason);
    }
    return true;
}

QSize SquareGrid::sizeHint() const
{
    const int rows = rows_ > 0 ? rows_ : 4;
    const int columns = rowsFor(keys_.size(), rows);
    return {lengthOf(kUsualSide, columns), lengthOf(kUsualSide, rows)};
}

QSize SquareGrid::minimumSizeHint() const
{
    const int rows = rows_ > 0 ? rows_ : 4;
    return {lengthOf(kSmallestSide, rowsFor(keys_.size(), rows)), lengthOf(kSmallestSide, rows)};
}

void SquareGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

/// The gap between `count` squares in a line `length` long, logical pixels.
qreal SquareGrid::gap(int length, int side, int count) const
{
    const qreal even = count > 1 ? static_cast<qreal>(length - side * count) / (count - 1) : kGap;
    return std::clamp<qreal>(even, kGap, std::max(widestGap_, kGap));
}

void SquareGrid::arrange()
{
    if (keys_.empty()) {
        return;
    }
    int side = 0;
    const int count = static_cast<int>(keys_.size());
    const int fewest = rows_ > 0 ? rowsFor(keys_.size(), rows_) : 1;
    const int most = rows_ > 0 ? fewest : count;
    for (int columns = fewest; columns <= most; ++columns) {
        const int rows = rowsFor(keys_.size(), columns);
        const int fits = std::min((width() + kGap) / columns, (height() + kGap) / rows) - kGap;
        // Of several numbers of columns that give the largest side, the first is taken that fills the width.
        const bool tooFew = widestGap_ > 0 && width() - side * columns_ > widestGap_ * (columns_ - 1);
        if (std::min(fits, largestSide_) > side || (tooFew && fits >= largestSide_)) {
            side = std::clamp(fits, 1, largestSide_);
            columns_ = columns;
        }
    }
    side = std::max(side, 1);
    const int rows = rowsFor(keys_.size(), columns_);
    const qreal across = gap(width(), side, columns_);
    const int down = static_cast<int>(std::min(across + kMoreDown, gap(height(), side, rows)));
    const qreal left = (width() - side * columns_ - across * (columns_ - 1)) / 2;
    const int top = widestGap_ > 0 ? 0 : (height() - side * rows - down * (rows - 1)) / 2;
    for (int i = 0; i < count; ++i) {
        const int x = qRound(left + i % columns_ * (side + across));
        keys_[static_cast<std::size_t>(i)]->setGeometry(x, top + i / columns_ * (side + down), side, side);
    }
}

}  // namespace karvel
