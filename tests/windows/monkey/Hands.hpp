#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace karvel::testing {

/// A person's hands: what they do comes to the program as it comes from the window system, so that boxes
/// block it, menus close at it and shortcuts hear it. Nothing waits and nothing is processed here.
class Hands {
  public:
    /// Presses and releases a key in the window that has the keyboard.
    static void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// `text` as an input method writes it, at once.
    static void type(QWidget& field, const QString& text);

    /// `at` in the widget; nothing happens where the widget does not show.
    void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton, bool twice = false);
    void drag(QWidget& widget, QPoint from, QPoint to);
    void move(QWidget& widget, QPoint at);
    static void turnWheel(QWidget& widget, QPoint at, int steps);

  private:
    enum class Act { Press, Release, Move };

    void mouse(QWindow* window, QPoint at, Act act, Qt::MouseButton button, Qt::MouseButtons held);

    int time_ = 0;  ///< milliseconds
};

}  // namespace karvel::testing
