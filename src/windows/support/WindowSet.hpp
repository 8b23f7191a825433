#pragma once

#include <QWidget>

#include "app/WindowOpener.hpp"

namespace karvel {

class Desktop;

/// Opens the tool windows, each at most once at a time, as children of the main window.
class WindowSet : public WindowOpener {
  public:
    /// Call it once, before any window is opened; both must outlive the last use of the set.
    void attach(Desktop& desktop, QWidget& mainWindow)
    {
        desktop_ = &desktop;
        mainWindow_ = &mainWindow;
    }

    /// The open window of this class; null when it is closed.
    template <typename Window>
    [[nodiscard]] Window* opened() const
    {
        return mainWindow_->findChild<Window*>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// Brings the window to the front; creates it when it is closed. Its constructor takes the desktop and
    /// the parent, and it deletes itself when it is closed.
    template <typename Window>
    Window& open()
    {
        auto* window = opened<Window>();
        if (window == nullptr) {
            window = new Window(*desktop_, mainWindow_);
        }
        bringUp(*window);
        return *window;
    }

    /// False when an open window has something unsaved that the user, who is asked, wants to keep.
    [[nodiscard]] bool mayLeave() const;

    void openItalian() override;
    void openPicture(const std::string& path, const std::string& name) override;
    void closePicture() override;
    void raiseMagnifier() override;

  private:
    static void bringUp(QWidget& window)
    {
        window.show();
        window.raise();
        window.activateWindow();
    }

    Desktop* desktop_ = nullptr;
    QWidget* mainWindow_ = nullptr;
};

}  // namespace karvel
