#pragma once

#include <QObject>
#include <QRect>
#include <functional>

#include "app/Session.hpp"
#include "windows/signs/PictureStore.hpp"

class QWidget;

namespace karvel {

/// What every window needs: the session, the pictures, and one function that runs handlers. A handler that
/// fails is reported in one box, and the state stays as the handler left it.
class Desktop : public QObject {
    Q_OBJECT

  public:
    /// Both must outlive the desktop.
    Desktop(Session& session, PictureStore& pictures) : session_(session), pictures_(pictures) {}

    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] PictureStore& pictures() { return pictures_; }

    /// Runs a handler. A RuntimeError that it throws is shown in the default error report. Afterwards all
    /// windows show the present state.
    void handle(const std::function<void()>& handler);

    /// The display line of the main window; `display` must outlive every tool window.
    void setDisplay(QWidget& display) { display_ = &display; }
    /// Where it lies now, on the screen, in logical pixels; empty before `setDisplay`.
    [[nodiscard]] QRect displayOnScreen() const;
    /// Gives the keyboard to the display line.
    void focusDisplay();

  signals:
    /// The session may have changed; every window shows it again.
    void changed();

  private:
    Session& session_;
    PictureStore& pictures_;
    QWidget* display_ = nullptr;
};

}  // namespace karvel
