#include "windows/support/WindowColours.hpp"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include "windows/support/Desktop.hpp"
#include "windows/support/Theme.hpp"

namespace karvel {

namespace {

bool isColoured(const QWidget& widget)
{
    const Qt::WindowType type = widget.windowType();
    return widget.isWindow() && (type == Qt::Window || type == Qt::Dialog || type == Qt::Popup);
}

}  // namespace

QColor windowColour(const Colours& chosen)
{
    const QColor darkGrey(48, 48, 48);
    // The toolkit takes the system's theme over into the palette of the application.
    const bool systemIsDark = isDark(QApplication::palette());
    return chosen.window == Colours::kWindowDefault && systemIsDark ? darkGrey : colour(chosen.window);
}

WindowColours::WindowColours(Desktop& desktop) : desktop_(desktop)
{
    qApp->installEventFilter(this);
    connect(&desktop_, &Desktop::changed, this, &WindowColours::follow);
}

void WindowColours::applyTo(QWidget& window) const
{
    window.setPalette(paletteFor(windowColour(desktop_.session().colours())));
}

/// The user has chosen another colour: the open windows change too.
void WindowColours::follow()
{
    const QColor now = windowColour(desktop_.session().colours());
    if (now == shown_) {
        return;
    }
    shown_ = now;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (isColoured(*window) && window->testAttribute(Qt::WA_WState_Polished)) {
            applyTo(*window);
        }
    }
}

bool WindowColours::eventFilter(QObject* watched, QEvent* event)
{
    const bool themeChanged = event->type() == QEvent::ApplicationPaletteChange;
    if ((event->type() == QEvent::Polish || themeChanged) && watched->isWidgetType()) {
        auto& widget = static_cast<QWidget&>(*watched);
        if (isColoured(widget)) {
            applyTo(widget);
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace karvel
