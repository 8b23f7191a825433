#pragma once

#include <optional>
#include <string>

#include "base/RuntimeError.hpp"

namespace karvel {

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, YesNo };
enum class Button { Ok, Cancel, Yes, No };

/// A modal message to the user, as a value. The function that shows it returns the button pressed.
/// Texts are UTF-8; lines end with LF or CR exactly as the message is worded.
struct MessageBox {
    std::string title;
    std::string text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    std::optional<Button> defaultButton = std::nullopt;  ///< the first button when none is named
    bool systemModal = false;                            ///< stays in front of every other program

    friend bool operator==(const MessageBox&, const MessageBox&) = default;
};

/// The report of an error that no handler turned into a message of its own.
[[nodiscard]] MessageBox defaultErrorReport(const RuntimeError& error);

}  // namespace karvel
