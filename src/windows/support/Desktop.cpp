#include "windows/support/Desktop.hpp"

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
    emit changed();
}

}  // namespace karvel
