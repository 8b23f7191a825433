#include "windows/signs/SquareGrid.hpp"

#include <QResizeEvent>
#include <algorithm>

namespace karvel {

namespace {

constexpr int kGap = 3;  // logical pixels between keys
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
    key->show();
    if (!testAttribute(Qt::WA_PendingResizeEvent)) {
        arrange();
    }
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

void SquareGrid::arrange()
{
    if (keys_.empty()) {
        return;
    }
    int bestSide = 0;
    const int count = static_cast<int>(keys_.size());
    const int fewest = rows_ > 0 ? rowsFor(keys_.size(), rows_) : 1;
    const int most = rows_ > 0 ? fewest : count;
    for (int columns = fewest; columns <= most; ++columns) {
        const int rows = rowsFor(keys_.size(), columns);
        const int side = std::min((width() + kGap) / columns, (height() + kGap) / rows) - kGap;
        if (side > bestSide) {
            bestSide = side;
            columns_ = columns;
        }
    }
    const int side = std::clamp(bestSide, 1, largestSide_);
    const int rows = rowsFor(keys_.size(), columns_);
    const int left = (width() - lengthOf(side, columns_)) / 2;
    const int top = (height() - lengthOf(side, rows)) / 2;
    for (int i = 0; i < count; ++i) {
        keys_[static_cast<std::size_t>(i)]->setGeometry(left + i % columns_ * (side + kGap),
                                                        top + i / columns_ * (side + kGap), side, side);
    }
}

}  // namespace karvel
