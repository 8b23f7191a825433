#include "windows/signs/AnswerList.hpp"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "app/EntryList.hpp"
#include "base/SignCode.hpp"
#include "windows/signs/PhraseFit.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/Theme.hpp"
#include "writing/Svg.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kBlock = 32;          // height of a block of signs
constexpr int kSmallestBlock = 20;  // in a long entry
constexpr int kDots = 18;           // the width of the mark of an entry that goes on
constexpr int kRow = 42;
constexpr int kTriangle = 22;  // the width in which the mark of a closed word stands
constexpr int kGap = 10;

constexpr double kMark = 0.4;  // the share of colour in the background of a sign that matched

// Shares of the width; the note takes the rest.
constexpr double kSignsShare = 0.30;
constexpr double kTranslationShare = 0.30;
constexpr double kTransliterationShare = 0.16;

class AnswerRow : public QStyledItemDelegate {
  public:
    AnswerRow(Desktop& desktop, AnswerModel& model, QObject* parent)
        : QStyledItemDelegate(parent), desktop_(desktop), model_(model)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override
    {
        return {200, std::max(kRow, option.fontMetrics.height() + 8)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        painter->save();
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QColor ground = option.palette.color(selected ? QPalette::Highlight : QPalette::Base);
        painter->fillRect(option.rect, ground);
        QColor ink = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        if (const Answer* const answer = model_.answer(index.row())) {
            paintAnswer(*painter, option.rect, index.row(), *answer, ink, ground);
        } else {
            ink = between(ink, ground, 0.35);
            paintRest(*painter, option.rect, ink, ground);
        }
        painter->setPen(between(ground, ink, 0.15));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(focusPen(ground));
            painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        }
        painter->restore();
    }

  private:
    static void text(QPainter& painter, QRect place, const QString& text)
    {
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
    }

    void paintAnswer(QPainter& painter, QRect row, int number, const Answer& answer, const QColor& ink,
                     const QColor& ground) const
    {
        painter.setPen(ink);
        if (const std::size_t further = model_.furtherSpellings(number); further > 0) {
            painter.drawText(QRect(row.left() + 4, row.top(), kTriangle, row.height()), Qt::AlignVCenter,
                             model_.isOpen(number) ? QStringLiteral("▾") : QStringLiteral("▸"));
        }
        const int left = row.left() + kTriangle + (model_.isSpelling(number) ? kTriangle : 0);
        const int signs = static_cast<int>(row.width() * kSignsShare);
        const int translation = static_cast<int>(row.width() * kTranslationShare);
        const int reading = static_cast<int>(row.width() * kTransliterationShare);
        paintSigns(painter, {left, row.top(), row.left() + signs - left - kGap, row.height()},
                   answer.entry->signs, model_.answers().marks(), ink, ground);
        QRect place(row.left() + signs, row.top(), translation - kGap, row.height());
        painter.setPen(ink);
        text(painter, place, qtext(answer.entry->translation));
        place.moveLeft(row.left() + signs + translation);
        place.setWidth(reading - kGap);
        QFont italic = painter.font();
        italic.setItalic(true);
        painter.setFont(italic);
        text(painter, place, model_.transliteration(answer));
        italic.setItalic(false);
        painter.setFont(italic);
        place.moveLeft(place.left() + reading);
        place.setWidth(row.right() - place.left() - kGap / 2);
        text(painter, place, qtext(answer.entry->note));
    }

    void paintRest(QPainter& painter, QRect row, const QColor& ink, const QColor& ground) const
    {
        const int signs = static_cast<int>(row.width() * kSignsShare);
        paintSigns(painter, {row.left() + kTriangle, row.top(), signs - kTriangle - kGap, row.height()},
                   model_.rest(), {}, ink, ground);
        painter.setPen(ink);
        text(painter, row.adjusted(signs, 0, 0, 0), QStringLiteral("qui non comincia nessuna parola"));
    }

    /// The signs in blocks. `ground` is the colour of the row.
    void paintSigns(QPainter& painter, QRect place, const std::string& codes, const SignMarks& asked,
                    const QColor& ink, const QColor& ground) const
    {
        if (codes.empty()) {
            return;
        }
        const PhraseLook look{.ink = ink};
        const std::string shown =
            signsThatFit(codes, Shown::Beginning, place.width() - kDots, kSmallestBlock, look, desktop_);
        const bool all = shown.size() == codes.size();
        place.adjust(0, 2, 0, -2);
        const QRect signs = all ? place : place.adjusted(0, 0, -kDots, 0);
        const QRectF covered = paintPhrase(painter, signs, shown, kBlock, look, desktop_);
        const std::vector<bool> marked = asked.of(codes);
        if (std::ranges::find(marked, true) != marked.end()) {
            painter.save();
            painter.setClipPath(marks(covered, shown, look, marked));
            painter.fillRect(covered, between(ground, kSelection, kMark));
            paintPhrase(painter, signs, shown, kBlock, look, desktop_);
            painter.restore();
        }
        if (!all) {
            painter.setPen(look.ink);
            painter.drawText(QRectF(covered.right(), place.top(), kDots, place.height()), Qt::AlignCenter,
                             QStringLiteral("…"));
        }
    }

    /// The places of the signs that matched, in the picture of the phrase that covers `covered`.
    QPainterPath marks(const QRectF& covered, const std::string& codes, const PhraseLook& look,
                       const std::vector<bool>& marked) const
    {
        constexpr double kRoom = kPictureMargin / 2;  // around the ink
        const auto placement = LayoutPainter::of(desktop_).placementOf(codes, look);
        const qreal scale = covered.height() / (placement->height + 2 * kPictureMargin);
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        for (std::size_t i = 0; i < std::min(marked.size(), placement->signs.size()); ++i) {
            if (!marked[i]) {
                continue;
            }
            const Box& box = placement->signs[i].box;
            path.addRect((box.x + kPictureMargin - kRoom) * scale + covered.left(),
                         (box.y + kPictureMargin - kRoom) * scale + covered.top(),
                         (box.width + 2 * kRoom) * scale, (box.height + 2 * kRoom) * scale);
        }
        return path;
    }

    Desktop& desktop_;
    AnswerModel& model_;
};

}  // namespace

AnswerList::AnswerList(Desktop& desktop, QWidget* parent) : QListView(parent)
{
    setModel(&model_);
    setItemDelegate(new AnswerRow(desktop, model_, this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setAccessibleName(QStringLiteral("voci trovate"));
    connect(this, &QListView::doubleClicked, this, &AnswerList::chosen);
}

const DictionaryEntry* AnswerList::current() const
{
    const Answer* const answer = model_.answer(currentIndex().row());
    return answer == nullptr ? nullptr : answer->entry.get();
}

void AnswerList::toStart()
{
    if (model_.rowCount() > 0) {
        setCurrentIndex(model_.index(0));
        scrollToTop();
    }
}

void AnswerList::setEmptyText(const QString& text)
{
    emptyText_ = text;
    setAccessibleDescription(model_.rowCount() == 0 ? text : QString());
    viewport()->update();
}

void AnswerList::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    if (model_.rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(kTriangle, kGap, -kTriangle, -kGap),
                         Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
    }
}

void AnswerList::copy() const
{
    if (const DictionaryEntry* const entry = current()) {
        auto* const copied = new QMimeData;
        copied->setText(qtext(plainRow(*entry)));
        copied->setHtml(QStringLiteral("<table>") + qtext(htmlRow(*entry)) + QStringLiteral("</table>"));
        QApplication::clipboard()->setMimeData(copied);
    }
}

/// The keys of the list belong to it, not to the items of a menu.
bool AnswerList::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (key.matches(QKeySequence::Copy) || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void AnswerList::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (event->modifiers() & Qt::ControlModifier) {
                emit signsWanted();
            } else {
                emit chosen();
            }
            return;
        case Qt::Key_Left:
        case Qt::Key_Right:
            open(event->key() == Qt::Key_Right);
            return;
        default:
            QListView::keyPressEvent(event);
    }
}

void AnswerList::open(bool open)
{
    // The list stays where it is: it would follow the current row, which for a moment is another word's.
    const int top = verticalScrollBar()->value();
    const int row = model_.setOpen(currentIndex().row(), open);
    verticalScrollBar()->setValue(top);
    if (row >= 0) {
        setCurrentIndex(model_.index(row));
    }
}

/// A click on the mark of a word opens or closes it.
void AnswerList::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    const QModelIndex clicked = indexAt(event->pos());
    if (clicked.isValid() && event->pos().x() < kTriangle && model_.furtherSpellings(clicked.row()) > 0) {
        model_.setOpen(clicked.row(), !model_.isOpen(clicked.row()));
    }
}

}  // namespace karvel
