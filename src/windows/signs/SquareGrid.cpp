#include "windows/signs/SquareGrid.hpp"

#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <array>
#include <cmath>

#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kSmallestSide = 20;
constexpr int kUsualSide = 64;
constexpr int kAboveCaption = 3;
constexpr int kBelowCaption = 8;  // more than above it, so that a caption clearly belongs to its key

int rowsFor(std::size_t keys, int columns)
{
    return (static_cast<int>(keys) + columns - 1) / columns;
}

int lengthOf(int side, int gap, int count)
{
    return side * count + gap * (count - 1);
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
            to -= plan_.columns;
            break;
        case Qt::Key_Down:
            to += plan_.columns;
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
    return {lengthOf(kUsualSide, kGap, columns), lengthOf(kUsualSide, kGap, rows)};
}

QSize SquareGrid::minimumSizeHint() const
{
    const int rows = rows_ > 0 ? rows_ : 4;
    return {lengthOf(kSmallestSide, kGap, rowsFor(keys_.size(), rows)), lengthOf(kSmallestSide, kGap, rows)};
}

void SquareGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

/// The layout with so many columns, its squares as large as fits.
SquareGrid::Plan SquareGrid::planFor(int columns) const
{
    Plan plan{.columns = columns, .rows = rowsFor(keys_.size(), columns)};
    const int fits = std::min((width() + kGap) / columns, (height() + kGap) / plan.rows) - kGap;
    plan.side = std::clamp(fits, 1, largestSide_);
    if (!fillsArea_) {
        return plan;
    }
    const auto gap = [](int length, int part, int count) {
        return count > 1 ? static_cast<qreal>(length - part * count) / (count - 1) : 0;
    };
    const int line = fontMetrics().height();
    const int spare = height() / plan.rows - plan.side - kAboveCaption - kBelowCaption;
    plan.captionLines = captions_.empty() ? 0 : std::clamp(spare / line, 0, 2);
    plan.across = gap(width(), plan.side, columns);
    plan.down = gap(height(), plan.side + captionHeight(plan.captionLines), plan.rows);
    return plan;
}

int SquareGrid::captionHeight(int lines) const
{
    return lines == 0 ? 0 : kAboveCaption + lines * fontMetrics().height();
}

/// How uneven a layout is that fills the area: the difference of its gaps, and the places left empty.
qreal SquareGrid::unevenness(const Plan& plan) const
{
    return std::abs(plan.across - plan.down) + plan.columns * plan.rows - static_cast<int>(keys_.size());
}

SquareGrid::Plan SquareGrid::bestPlan() const
{
    const int count = static_cast<int>(keys_.size());
    const int fewest = rows_ > 0 ? rowsFor(keys_.size(), rows_) : 1;
    const int most = rows_ > 0 ? fewest : count;
    Plan best = planFor(fewest);
    int largest = best.side;
    for (int columns = fewest + 1; columns <= most; ++columns) {
        const Plan plan = planFor(columns);
        largest = std::max(largest, plan.side);
        if (plan.side > best.side) {
            best = plan;
        }
    }
    for (int columns = fewest; fillsArea_ && columns <= most; ++columns) {
        const Plan plan = planFor(columns);
        const bool nearlyLargest = plan.side >= largest - largest / 16;
        if (nearlyLargest && unevenness(plan) < unevenness(best)) {
            best = plan;
        }
    }
    return best;
}

void SquareGrid::arrange()
{
    if (keys_.empty()) {
        return;
    }
    plan_ = bestPlan();
    const qreal across = plan_.side + plan_.across;
    const qreal down = plan_.side + captionHeight(plan_.captionLines) + plan_.down;
    const int left = fillsArea_ ? 0 : (width() - lengthOf(plan_.side, kGap, plan_.columns)) / 2;
    const int top = fillsArea_ ? 0 : (height() - lengthOf(plan_.side, kGap, plan_.rows)) / 2;
    for (int i = 0; i < static_cast<int>(keys_.size()); ++i) {
        const int column = i % plan_.columns;
        const int row = i / plan_.columns;
        keys_[static_cast<std::size_t>(i)]->setGeometry(left + qRound(column * across),
                                                        top + qRound(row * down), plan_.side, plan_.side);
    }
    update();
}

void SquareGrid::setCaption(std::size_t key, const Caption& caption)
{
    const bool first = captions_.empty();
    captions_.resize(keys_.size());
    if (captions_[key] != caption) {
        captions_[key] = caption;
        update();
    }
    if (first) {
        arrange();
    }
}

/// At the left and the right edge of the grid a long caption begins or ends with its key.
void SquareGrid::paintEvent(QPaintEvent* event)
{
    if (plan_.captionLines == 0) {
        return;
    }
    QPainter painter(this);
    const QColor surface = palette().color(QPalette::Window);
    const std::array<QColor, 2> inks = {inkOn(surface), outlineOn(surface, 0.7)};
    const QFontMetrics metrics = fontMetrics();
    const int widest = plan_.side + static_cast<int>(plan_.across) - 2 * kGap;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const QRect key = keys_[i]->geometry();
        const int first = std::max(0, key.center().x() - widest / 2);
        const int space = std::min(width(), key.center().x() + widest / 2) - first;
        int top = key.bottom() + kAboveCaption;
        if (!event->rect().intersects({first, top, space, captionHeight(plan_.captionLines)})) {
            continue;
        }
        for (std::size_t part = 0; part < static_cast<std::size_t>(plan_.captionLines); ++part) {
            const QString text = metrics.elidedText(captions_[i][part], Qt::ElideRight, space);
            const int length = metrics.horizontalAdvance(text);
            const int left =
                std::clamp(key.center().x() - length / 2, first, std::max(first, first + space - length));
            painter.setPen(inks[part]);
            painter.drawText(left, top + metrics.ascent(), text);
            top += metrics.height();
        }
    }
}

}  // namespace karvel
