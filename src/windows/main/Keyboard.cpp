#include "windows/main/Keyboard.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QScrollBar>
#include <algorithm>

#include "compose/Paste.hpp"
#include "windows/main/FindSign.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

Keyboard::Keyboard(Desktop& desktop, const Controls& controls) : desktop_(desktop), controls_(controls)
{
    qApp->installEventFilter(this);
}

/// True for the widget of the main window that has the focus; open menus and boxes get their keys untouched.
bool Keyboard::concerns(QObject* watched) const
{
    const auto* const widget = qobject_cast<QWidget*>(watched);
    return widget != nullptr && widget == QApplication::focusWidget() &&
           widget->window() == controls_.window && QApplication::activePopupWidget() == nullptr;
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event)
{
    const bool pressed = event->type() == QEvent::KeyPress;
    if ((pressed || event->type() == QEvent::ShortcutOverride) && concerns(watched)) {
        auto& keyEvent = static_cast<QKeyEvent&>(*event);
        if (pressed) {
            return key(keyEvent, *static_cast<QWidget*>(watched));
        }
        if (pageOf(keyEvent) > 0) {
            event->accept();  // the key is handled when it is pressed
            return true;
        }
        if (meansPhrase(keyEvent, *static_cast<QWidget*>(watched))) {
            return true;  // the field does not claim the key, so that it triggers its menu item
        }
    }
    return QObject::eventFilter(watched, event);
}

/// Whether an editing key that is pressed in the field "Trova segno" acts on the phrase. The toolkit's field
/// claims these keys even when it is empty.
bool Keyboard::meansPhrase(QKeyEvent& event, const QWidget& focus) const
{
    if (&focus != controls_.find->field()) {
        return false;
    }
    const bool empty = controls_.find->field()->text().isEmpty();
    if (event.matches(QKeySequence::Paste)) {
        return isMeantForPhrase(typed(QApplication::clipboard()->text()), empty);
    }
    return empty && (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Undo) ||
                     event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete);
}

/// The page that Alt, Shift and a letter stand for; 0 for none.
int Keyboard::pageOf(const QKeyEvent& event)
{
    if (event.modifiers() != (Qt::AltModifier | Qt::ShiftModifier) || event.key() < Qt::Key_A ||
        event.key() > Qt::Key_Z) {
        return 0;
    }
    const auto page = kCategories.find(static_cast<char>('a' + event.key() - Qt::Key_A));
    return page == std::string_view::npos ? 0 : static_cast<int>(page) + 1;
}

void Keyboard::turnTo(int page)
{
    controls_.pages->setValue(std::clamp(page, controls_.pages->minimum(), controls_.pages->maximum()));
}

bool Keyboard::key(QKeyEvent& event, QWidget& focus)
{
    if (anywhere(event)) {
        return true;
    }
    if (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) {
        return false;
    }
    if (qobject_cast<QLineEdit*>(&focus) != nullptr) {
        return meansPhrase(event, focus) && edits(event.key(), focus);
    }
    return moves(event.key(), focus) || edits(event.key(), focus) || finds(event.text());
}

/// A letter or digit typed on the palette or the display begins the search for a sign.
bool Keyboard::finds(const QString& typed)
{
    if (typed.isEmpty() || !typed[0].isLetterOrNumber()) {
        return false;
    }
    controls_.find->start(typed);
    return true;
}

bool Keyboard::anywhere(QKeyEvent& event)
{
    if (const int page = pageOf(event); page > 0) {
        turnTo(page);
        return true;
    }
    if (event.modifiers() == Qt::NoModifier && event.key() == Qt::Key_F10) {
        QMenuBar& menus = *controls_.window->menuBar();
        menus.setActiveAction(menus.actions().first());
        return true;
    }
    return false;
}

/// The toolkit's horizontal scroll bar goes back with Right and on with Left.
bool Keyboard::turnsWithArrow(int key)
{
    const int page = desktop_.session().palette().CurrentPage();
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            turnTo(page - 1);
            return true;
        case Qt::Key_Right:
        case Qt::Key_Down:
            turnTo(page + 1);
            return true;
        default:
            return false;
    }
}

bool Keyboard::moves(int key, QWidget& focus)
{
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        turnTo(desktop_.session().palette().CurrentPage() + (key == Qt::Key_PageUp ? -1 : 1));
        return true;
    }
    if (&focus == controls_.pages) {
        return turnsWithArrow(key);
    }
    DisplayLine& display = desktop_.session().display();
    if (key == Qt::Key_Left && &focus == controls_.firstCell) {
        desktop_.handle([&] { display.cursorLeft(); });
    }
    if (key == Qt::Key_Right && &focus == controls_.lastCell) {
        desktop_.handle([&] { display.cursorRight(); });
    }
    auto* const grid = qobject_cast<SquareGrid*>(focus.parentWidget());
    return grid != nullptr && grid->moveFocus(&focus, key);
}

bool Keyboard::edits(int key, QWidget& focus)
{
    Session& session = desktop_.session();
    const bool onCell = qobject_cast<SignCell*>(&focus) != nullptr;
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (onCell) {
                desktop_.handle([&] { session.search(); });
            } else if (auto* const button = qobject_cast<QAbstractButton*>(&focus)) {
                button->click();
            } else {
                return false;
            }
            return true;
        case Qt::Key_Backspace:
            desktop_.handle([&] { session.display().removeLast(); });
            return true;
        case Qt::Key_Delete:
            desktop_.handle([&] { session.display().deleteSelected(); });
            return true;
        default:
            return false;
    }
}

}  // namespace karvel
