#pragma once

#include <string>
#include <string_view>

namespace karvel {

/// Text of files is the ANSI code page 1252, text in memory is UTF-8. It is converted when a file is read or
/// written.

/// UTF-8 of `bytes`. Never fails: the five bytes that the code page leaves undefined become the control
/// characters of the same value, so that reading and writing again gives the same bytes.
[[nodiscard]] std::string decode(std::string_view bytes);

/// Bytes of `utf8`; a character that the code page lacks becomes "?". Ask `unencodable` first where
/// nothing may be lost.
[[nodiscard]] std::string encode(std::string_view utf8);

/// The characters of `utf8` that the code page lacks, each once, in order of appearance; empty when all
/// can be written. Malformed UTF-8 counts as U+FFFD, which the code page lacks.
[[nodiscard]] std::string unencodable(std::string_view utf8);

/// Upper case by the code page's rules: à becomes À, ß stays. Characters outside it stay as they are.
[[nodiscard]] std::string upperCase(std::string_view utf8);

/// The same for text still in the code page.
[[nodiscard]] std::string upperCaseBytes(std::string_view bytes);

/// One byte of the code page in upper case.
[[nodiscard]] unsigned char upperCaseByte(unsigned char byte);

/// A key for sorting and comparing text of the code page as people do: upper case, accents dropped.
[[nodiscard]] std::string foldedBytes(std::string_view bytes);

/// Decodes the character that starts at `at` and moves `at` behind it; U+FFFD for malformed UTF-8.
[[nodiscard]] char32_t nextCharacter(std::string_view utf8, std::size_t& at);

/// Appends `character` to `utf8`.
void appendCharacter(std::string& utf8, char32_t character);

}  // namespace karvel
