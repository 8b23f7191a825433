#pragma once

#include <string>
#include <string_view>

namespace karvel {

/// The dictionary writes transliteration in ASCII letters (A a b d D f g h H x X i y k l m n p q r s S t T w
/// z); printed books use letters with marks. All text here is UTF-8.

/// `text` with the printed letters (ꜣ ꜥ ḥ ḫ ẖ š ṯ ḏ ...) turned into the ASCII ones, whether they are
/// composed or followed by a combining mark. Everything else stays.
[[nodiscard]] std::string asciiTransliteration(std::string_view text);

/// The same for a field in which other text may stand beside the transliteration: only words that become
/// ASCII transliteration as a whole are turned, and only for a letter with a mark.
[[nodiscard]] std::string asciiWords(std::string_view text);

/// `field` as Egyptologists print it. A field that holds a letter outside the ASCII transliteration, such as
/// c, e, o, u or v, is returned as it is.
[[nodiscard]] std::string printedTransliteration(std::string_view field);

/// True when `text` holds nothing but letters of the ASCII transliteration, digits, marks and blanks.
[[nodiscard]] bool isAsciiTransliteration(std::string_view text);

/// What a search compares: ASCII letters alone. The signs between letters (. - = , blanks and brackets) are
/// dropped; z is written s, y and j are written i, because the tradition writes them without a firm rule.
/// Capitals that are no letter of the transliteration (N in a name) become small. "*" and "?" are kept.
[[nodiscard]] std::string transliterationKey(std::string_view text);

/// `key` in small letters, for those who type without capitals.
[[nodiscard]] std::string smallLetters(std::string key);

}  // namespace karvel
