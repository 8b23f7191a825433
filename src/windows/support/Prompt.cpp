#include "windows/support/Prompt.hpp"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

#include "windows/support/Box.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kNarrowest = 340;  // logical pixels

QMessageBox::Icon iconOf(Icon icon)
{
    switch (icon) {
        case Icon::None:
            return QMessageBox::NoIcon;
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton standardButton(Button button)
{
    switch (button) {
        case Button::Ok:
            return QMessageBox::Ok;
        case Button::Cancel:
            return QMessageBox::Cancel;
        case Button::Yes:
            return QMessageBox::Yes;
        case Button::No:
            return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

void addButton(QMessageBox& shown, Button button, const QString& caption)
{
    shown.addButton(standardButton(button))->setText(caption);
}

void addButtons(QMessageBox& shown, Buttons buttons)
{
    if (buttons == Buttons::YesNo) {
        addButton(shown, Button::Yes, QStringLiteral("&Sì"));
        addButton(shown, Button::No, QStringLiteral("&No"));
        shown.setEscapeButton(QMessageBox::No);
        return;
    }
    addButton(shown, Button::Ok, QStringLiteral("OK"));
    shown.setEscapeButton(QMessageBox::Ok);
    if (buttons == Buttons::OkCancel) {
        addButton(shown, Button::Cancel, QStringLiteral("Annulla"));
        shown.setEscapeButton(QMessageBox::Cancel);
    }
}

/// The answer when a box is closed without one.
Button refusalOf(Buttons buttons)
{
    switch (buttons) {
        case Buttons::OkCancel:
            return Button::Cancel;
        case Buttons::YesNo:
            return Button::No;
        default:
            return Button::Ok;
    }
}

/// The parent of a box: the active window, but not an open list of a field.
QWidget* owner()
{
    QWidget* window = QApplication::activeWindow();
    while (window != nullptr && window->windowType() == Qt::Popup) {
        window = window->parentWidget() != nullptr ? window->parentWidget()->window() : nullptr;
    }
    return window;
}

Button answerOf(int pressed)
{
    switch (pressed) {
        case QMessageBox::Cancel:
            return Button::Cancel;
        case QMessageBox::Yes:
            return Button::Yes;
        case QMessageBox::No:
            return Button::No;
        default:
            return Button::Ok;
    }
}

}  // namespace

Button Prompt::ask(const MessageBox& box)
{
    endProgress();
    emit aboutToAsk();
    // Not on the stack: when the parent is closed while the box is open, it deletes the box.
    const QPointer<Box> made = new Box(owner());
    Box& shown = *made;
    shown.setObjectName(QStringLiteral("MessageBox"));
    shown.setWindowTitle(qtext(box.title));
    shown.setIcon(iconOf(box.icon));
    addButtons(shown, box.buttons);
    if (box.defaultButton) {
        shown.setDefaultButton(standardButton(*box.defaultButton));
    }
    shown.showText(qtext(box.text));
    // Wide enough for its title, and without a button to minimize it.
    if (auto* const grid = qobject_cast<QGridLayout*>(shown.layout())) {
        grid->addItem(new QSpacerItem(kNarrowest, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    shown.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint);
    shown.setWindowModality(Qt::ApplicationModal);
    if (box.systemModal) {
        shown.setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    // Over the box the pointer is the arrow, also while a search is running.
    const int busy = busy_;
    while (busy_ > 0) {
        setBusy(false);
    }
    const int pressed = shown.exec();
    const Button answer = made ? answerOf(pressed) : refusalOf(box.buttons);
    delete made;
    while (busy_ < busy) {
        setBusy(true);
    }
    return answer;
}

std::optional<std::string> Prompt::input(const std::string& title, const std::string& prompt)
{
    emit aboutToAsk();
    const QPointer<QInputDialog> made = new QInputDialog(owner());
    QInputDialog& dialog = *made;
    dialog.setObjectName(QStringLiteral("InputBox"));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setWindowTitle(qtext(title));
    dialog.setLabelText(qtext(prompt));
    dialog.setOkButtonText(QStringLiteral("OK"));
    dialog.setCancelButtonText(QStringLiteral("Annulla"));
    dialog.resize(kNarrowest, dialog.sizeHint().height());
    std::optional<std::string> answer;
    if (dialog.exec() == QDialog::Accepted && made) {
        answer = typed(made->textValue());
    }
    delete made;
    return answer;
}

void Prompt::beep()
{
    QApplication::beep();
}

void Prompt::setBusy(bool busy)
{
    if (busy) {
        ++busy_;
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (busy_ > 0) {
        --busy_;
        QApplication::restoreOverrideCursor();
    }
    if (busy_ == 0) {
        endProgress();
    }
}

void Prompt::endProgress()
{
    if (progressShown_) {
        progressShown_ = false;
        emit progress(-1);
    }
}

bool Prompt::continueReading(std::uint64_t done, std::uint64_t total)
{
    constexpr qint64 kPatience = 250;  // milliseconds before the progress is shown
    constexpr qint64 kStep = 50;       // milliseconds between two reports
    if (done == 0) {
        reading_.start();
        shownAt_ = kPatience;
        stopWanted_ = false;
    }
    if (!reading_.isValid() || reading_.elapsed() < shownAt_) {
        return true;
    }
    shownAt_ = reading_.elapsed() + kStep;
    if (!progressShown_) {
        progressShown_ = true;
        emit aboutToAsk();
    }
    emit progress(total == 0 ? 0 : static_cast<int>(std::min<std::uint64_t>(100, done * 100 / total)));
    // The windows are painted, and Escape is noticed; all other input is discarded.
    qApp->installEventFilter(this);
    QApplication::processEvents();
    qApp->removeEventFilter(this);
    return !stopWanted_;
}

bool Prompt::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::KeyPress:
            stopWanted_ = stopWanted_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
            return true;
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return true;
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

}  // namespace karvel
