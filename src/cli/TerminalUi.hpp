#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/UserInterface.hpp"
#include "cli/Command.hpp"

namespace karvel::cli {

/// Prints messages on standard error. Nobody answers: a question is answered with No. Ctrl+C stops a reading.
class TerminalUi : public UserInterface {
  public:
    Button ask(const MessageBox& box) override
    {
        complain(box.text);
        return box.buttons == Buttons::YesNo ? Button::No : Button::Ok;
    }
    std::optional<std::string> input(const std::string&, const std::string&) override { return std::nullopt; }
    void beep() override {}
    void setBusy(bool) override {}
    bool continueReading(std::uint64_t, std::uint64_t) override { return true; }
};

}  // namespace karvel::cli
