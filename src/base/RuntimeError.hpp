#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace karvel {

/// The run-time errors that reach the user, with the numbers that the message boxes show.
enum class ErrorNumber : int {
    Overflow = 6,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIo = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The Italian text of `number`, UTF-8.
[[nodiscard]] std::string_view errorText(ErrorNumber number);

/// The one kind of failure that leaves a function of the core.
class RuntimeError : public std::runtime_error {
  public:
    /// `furtherLine` is advice shown below the error's own text, UTF-8; empty when there is none.
    explicit RuntimeError(ErrorNumber number, std::string furtherLine = {});

    [[nodiscard]] ErrorNumber number() const { return number_; }
    [[nodiscard]] int value() const { return static_cast<int>(number_); }
    [[nodiscard]] std::string_view text() const { return errorText(number_); }
    [[nodiscard]] const std::string& furtherLine() const { return furtherLine_; }

  private:
    ErrorNumber number_;
    std::string furtherLine_;
};

/// The user asked to stop a long reading; not a failure, and never shown as one.
class ReadingStopped : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "reading stopped by the user"; }
};

}  // namespace karvel
