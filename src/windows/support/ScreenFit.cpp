#include "windows/support/ScreenFit.hpp"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace karvel {

namespace {

// Logical pixels of the window manager's frame, which is not known before the window is shown.
constexpr int kBorder = 4;
constexpr int kTitleBar = 36;

}  // namespace

QRect roomOnScreen(const QWidget& window)
{
    return window.screen()->availableGeometry().adjusted(kBorder, kTitleBar, -kBorder, -kBorder);
}

void keepOnScreen(QWidget& window)
{
    const QRect room = roomOnScreen(window);
    window.resize(window.size().boundedTo(room.size()));
    if (window.testAttribute(Qt::WA_Moved)) {
        const int right = std::max(room.left(), room.right() + 1 - window.width());
        const int bottom = std::max(room.top(), room.bottom() + 1 - window.height());
        window.move(std::clamp(window.x(), room.left() - kBorder, right),
                    std::clamp(window.y(), room.top() - kTitleBar, bottom - kTitleBar));
    }
}

void placeOverPalette(QWidget& window, const QWidget& main, QSize usual)
{
    const QRect room = roomOnScreen(main);
    window.resize(usual.boundedTo(room.size() * 9 / 10));
    window.move(main.geometry().center().x() - window.width() / 2,
                std::min(main.geometry().bottom(), room.bottom()) - window.height());
    keepOnScreen(window);
}

ScreenFit::ScreenFit()
{
    qApp->installEventFilter(this);
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous() && watched->isWidgetType()) {
        auto& window = static_cast<QWidget&>(*watched);
        const Qt::WindowType type = window.windowType();
        if (window.isWindow() && (type == Qt::Window || type == Qt::Dialog) && !window.isMaximized()) {
            keepOnScreen(window);
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace karvel
