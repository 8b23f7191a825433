#pragma once

#include <QObject>

class QKeyEvent;
class QMainWindow;
class QScrollBar;
class QWidget;

namespace karvel {

class Desktop;
class FindSign;

/// What the keys do in the main window. A text field that has the focus gets its keys itself.
class Keyboard : public QObject {
    Q_OBJECT

  public:
    /// What the keys act on. Nothing here is null, and all of it outlives the keyboard.
    struct Controls {
        QMainWindow* window;
        QScrollBar* pages;
        QWidget* firstCell;  ///< of the display line
        QWidget* lastCell;
        FindSign* find;
    };

    /// Watches the keys of the window; `desktop` must outlive the keyboard.
    Keyboard(Desktop& desktop, const Controls& controls);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool concerns(QObject* watched) const;
    bool key(QKeyEvent& event, QWidget& focus);
    bool anywhere(QKeyEvent& event);
    [[nodiscard]] bool meansPhrase(QKeyEvent& event, const QWidget& focus) const;
    bool turnsWithArrow(int key);
    bool moves(int key, QWidget& focus);
    bool edits(int key, QWidget& focus);
    bool finds(const QString& typed);
    void turnTo(int page);
    [[nodiscard]] static int pageOf(const QKeyEvent& event);

    Desktop& desktop_;
    Controls controls_;
};

}  // namespace karvel
