#include "base/MessageBox.hpp"

namespace karvel {

MessageBox defaultErrorReport(const RuntimeError& error)
{
    std::string text =
        "Errore di run-time '" + std::to_string(error.value()) + "':\n\n" + std::string(error.text());
    if (!error.furtherLine().empty()) {
        text += "\n" + error.furtherLine();
    }
    return {.title = "Karvel", .text = text, .icon = Icon::Critical};
}

}  // namespace karvel
