#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace karvel {

/// Lines as the system's files hold them. All text is UTF-8 in, bytes of the code page out.

/// A bare field on a line of its own.
[[nodiscard]] std::string fieldLine(std::string_view utf8);

/// A field in double quotes on a line of its own. The text must hold no double quote.
[[nodiscard]] std::string quotedLine(std::string_view utf8);

/// Whether `utf8`, written bare, would be read back as something else.
[[nodiscard]] bool needsQuotes(std::string_view utf8);

/// A field on a line of its own that is read back as it is: bare, in double quotes only where it needs them.
/// A text that needs them must hold no double quote.
[[nodiscard]] std::string readableLine(std::string_view utf8);

/// A number on a line of its own, a blank where the minus sign would stand.
[[nodiscard]] std::string numberLine(std::int64_t number);

/// The same with a blank behind the number, as some of the files have it.
[[nodiscard]] std::string spacedNumberLine(std::int64_t number);

}  // namespace karvel
