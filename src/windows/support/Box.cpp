#include "windows/support/Box.hpp"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>
#include <cmath>

#include "windows/support/ScreenFit.hpp"

namespace karvel {

namespace {

// Logical pixels.
constexpr int kNarrowest = 240;
constexpr int kWidest = 560;
constexpr int kAroundText = 130;  // the height of the buttons and the margins
constexpr int kBesideText = 120;  // the width of the icon and the margins
constexpr int kGap = 8;           // between the box and a window that it must not cover

/// Gives the view the size that its text needs within `area`.
void fitToText(QTextEdit& view, QSize area)
{
    QTextDocument& text = *view.document();
    const int widest = std::clamp(area.width() - kBesideText, kNarrowest, kWidest);
    int longest = 0;
    for (QTextBlock line = text.begin(); line.isValid(); line = line.next()) {
        longest = std::max(longest, view.fontMetrics().horizontalAdvance(line.text()));
    }
    const int width = std::clamp(longest + 2, kNarrowest, widest);
    view.setLineWrapMode(QTextEdit::FixedPixelWidth);
    view.setLineWrapColumnOrWidth(width);
    const int height = static_cast<int>(std::ceil(text.size().height()));
    const int highest = std::min(area.height() * 2 / 3, area.height() - kAroundText);
    const bool scrolls = height > highest;
    view.setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    view.setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::ClickFocus);
    view.setFixedSize(scrolls ? width + view.verticalScrollBar()->sizeHint().width() : width,
                      scrolls ? highest : height);
}

QTextEdit* textView(QWidget* parent, const QString& text)
{
    auto* const view = new QTextEdit(parent);
    view->setObjectName(QStringLiteral("boxText"));
    view->setAccessibleName(QStringLiteral("messaggio"));
    view->setReadOnly(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setFrameShape(QFrame::NoFrame);
    view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QPalette palette = view->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
    view->setPalette(palette);
    view->document()->setDocumentMargin(0);
    view->setPlainText(text);
    return view;
}

}  // namespace

void Box::showText(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    setTextFormat(Qt::PlainText);  // an entry may contain what looks like markup
    setText(text);
    // The toolkit's label neither breaks a long word nor scrolls: a view takes its place.
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* const grid = qobject_cast<QGridLayout*>(layout());
    if (label == nullptr || grid == nullptr || grid->indexOf(label) < 0) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 1;
    int columns = 1;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->removeWidget(label);
    label->hide();
    view_ = textView(this, text);
    fitToText(*view_, usableArea(*this).size());
    grid->addWidget(view_, row, column, rows, columns, Qt::AlignLeft | Qt::AlignVCenter);
}

void Box::showEvent(QShowEvent* event)
{
    QMessageBox::showEvent(event);
    stepAside();
}

/// Moves the box beside a window that it must not cover.
void Box::stepAside()
{
    const QRect area = usableArea(*this);
    for (const QWidget* const other : QApplication::topLevelWidgets()) {
        const QRect there = other->frameGeometry();
        if (!other->isVisible() || !other->property(kKeepVisible).toBool() || !there.intersects(geometry())) {
            continue;
        }
        const int top = std::max(area.top(), std::min(y(), area.bottom() + 1 - height()));
        for (const int left : {there.right() + 1 + kGap, there.left() - kGap - width()}) {
            if (left >= area.left() && left + width() <= area.right() + 1) {
                move(left, top);
                return;
            }
        }
    }
}

/// The text scrolls with its keys while a button has the focus.
void Box::keyPressEvent(QKeyEvent* event)
{
    const bool page = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    if (page && view_ != nullptr) {
        view_->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                                                      ? QAbstractSlider::SliderPageStepSub
                                                      : QAbstractSlider::SliderPageStepAdd);
        return;
    }
    QMessageBox::keyPressEvent(event);
}

}  // namespace karvel
