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

QRect usableArea(const QWidget& window)
{
    return window.screen()->availableGeometry().adjusted(kBorder, kTitleBar, -kBorder, -kBorder);
}

void keepOnScreen(QWidget& window)
{
    const QRect area = usableArea(window);
    window.resize(window.size().boundedTo(area.size()));
    if (window.testAttribute(Qt::WA_Moved)) {
        const int right = std::max(area.left(), area.right() + 1 - window.width());
        const int bottom = std::max(area.top(), area.bottom() + 1 - window.height());
        window.move(std::clamp(window.x(), area.left() - kBorder, right),
                    std::clamp(window.y(), area.top() - kTitleBar, bottom - kTitleBar));
    }
}

void placeOverPalette(QWidget& window, const QWidget& main, QSize usual)
{
    const QRect area = usableArea(main);
    window.resize(usual.boundedTo(area.size() * 9 / 10));
    window.move(main.geometry().center().x() - window.width() / 2,
                std::min(main.geometry().bottom(), area.bottom()) - window.height());
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
