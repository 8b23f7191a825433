#include "windows/support/Desktop.hpp"

#include <QWidget>

namespace karvel {

void Desktop::handle(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const ReadingStopped&) {
        // The user stopped the reading: there is nothing to report.
    } catch (const RuntimeError& error) {
        session_.ui().ask(defaultErrorReport(error));
    }
    session_.arrangement().follow(session_.display().DisplayCodes());
    emit changed();
}

QRect Desktop::displayOnScreen() const
{
    return display_ == nullptr ? QRect() : QRect(display_->mapToGlobal(QPoint(0, 0)), display_->size());
}

void Desktop::focusDisplay()
{
    if (display_ != nullptr) {
        display_->window()->activateWindow();
        display_->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace karvel
