#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/MessageBox.hpp"

namespace karvel {

/// How the core shows messages to the user and asks questions.
///
/// The window layer shows real boxes; a test answers from a script and checks what was asked;
/// the terminal program prints.
class UserInterface {
  public:
    virtual ~UserInterface() = default;

    /// Shows `box` until a button is pressed. Escape and the close box answer Cancel, or No, or OK
    /// where there is just that. Whatever changed in the state is on screen before the box is.
    virtual Button ask(const MessageBox& box) = 0;

    /// Asks for a line of text; nothing when the user cancels.
    virtual std::optional<std::string> input(const std::string& title, const std::string& prompt) = 0;

    /// The system's warning sound.
    virtual void beep() = 0;

    /// The hourglass pointer; calls may be nested.
    virtual void setBusy(bool busy) = 0;

    /// Called while a long file is read, about every quarter of a megabyte, with bytes read and in all.
    /// False asks the reading to stop.
    virtual bool continueReading(std::uint64_t done, std::uint64_t total) = 0;
};

/// Shows the hourglass pointer until the end of a scope.
class BusyPointer {
  public:
    explicit BusyPointer(UserInterface& ui) : ui_(ui) { ui_.setBusy(true); }
    ~BusyPointer() { ui_.setBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    UserInterface& ui_;
};

}  // namespace karvel
