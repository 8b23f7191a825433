#pragma once

#include <QObject>
#include <functional>

#include "app/Session.hpp"
#include "windows/signs/PictureStore.hpp"

namespace karvel {

/// What every window stands on: the session, the pictures, and the rule that a handler which fails reports
/// it in one box and leaves the state as far as it got.
class Desktop : public QObject {
    Q_OBJECT

  public:
    /// Both must outlive the desktop.
    Desktop(Session& session, PictureStore& pictures) : session_(session), pictures_(pictures) {}

    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] PictureStore& pictures() { return pictures_; }

    /// Runs a handler. A RuntimeError that it lets out is shown in the default error report. Afterwards all
    /// windows show the state that is now in force.
    void handle(const std::function<void()>& handler);

  signals:
    /// The session may have changed: every window shows it again.
    void changed();

  private:
    Session& session_;
    PictureStore& pictures_;
};

}  // namespace karvel
