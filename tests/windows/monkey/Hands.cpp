#include "windows/monkey/Hands.hpp"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace karvel::testing {

namespace {

/// Where the widget's point is in its window; nowhere when it is not to be seen.
QWindow* windowOf(QWidget& widget, QPoint& at)
{
    QWidget* const top = widget.window();
    at = widget.mapTo(top, at);
    return widget.isVisible() && top->rect().contains(at) ? top->windowHandle() : nullptr;
}

}  // namespace

void Hands::key(int key, Qt::KeyboardModifiers modifiers)
{
    QPointer<QWindow> window = QGuiApplication::focusWindow();
    if (window == nullptr) {
        return;
    }
    QString text;
    if (key < 0x100 && !(modifiers & (Qt::ControlModifier | Qt::AltModifier))) {
        const QChar letter(key);
        text = modifiers & Qt::ShiftModifier ? letter : letter.toLower();
    } else if (key == Qt::Key_Return) {
        text = QStringLiteral("\r");
    }
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    if (window != nullptr) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
    }
}

void Hands::type(QWidget& field, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&field, &event);
}

void Hands::mouse(QWindow* window, QPoint at, Act act, Qt::MouseButton button, Qt::MouseButtons held)
{
    const QEvent::Type type = act == Act::Press     ? QEvent::MouseButtonPress
                              : act == Act::Release ? QEvent::MouseButtonRelease
                                                    : QEvent::MouseMove;
    time_ += 10;
    qt_handleMouseEvent(window, at, window->mapToGlobal(at), held, button, type, Qt::NoModifier, time_);
}

void Hands::click(QWidget& widget, QPoint at, Qt::MouseButton button, bool twice)
{
    const QPointer<QWindow> window = windowOf(widget, at);
    time_ += 1000;  // never by accident a double click with the one before
    for (int i = 0; i < (twice ? 2 : 1); ++i) {
        if (window != nullptr) {
            mouse(window, at, Act::Press, button, button);
        }
        if (window != nullptr) {
            mouse(window, at, Act::Release, button, Qt::NoButton);
        }
    }
}

void Hands::drag(QWidget& widget, QPoint from, QPoint to)
{
    const QPointer<QWindow> window = windowOf(widget, from);
    to = widget.mapTo(widget.window(), to);
    time_ += 1000;
    for (const Act act : {Act::Press, Act::Move, Act::Release}) {
        if (window != nullptr) {
            mouse(window, act == Act::Press ? from : to, act,
                  act == Act::Move ? Qt::NoButton : Qt::LeftButton,
                  act == Act::Release ? Qt::NoButton : Qt::LeftButton);
        }
    }
}

void Hands::move(QWidget& widget, QPoint at)
{
    if (QWindow* const window = windowOf(widget, at)) {
        mouse(window, at, Act::Move, Qt::NoButton, Qt::NoButton);
    }
}

void Hands::turnWheel(QWidget& widget, QPoint at, int steps)
{
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace karvel::testing
