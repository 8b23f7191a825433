#pragma once

#include <string>
#include <string_view>

#include "app/Session.hpp"

namespace karvel {

/// A phrase in the forms in which other programs take it; UTF-8.
struct CopiedPhrase {
    std::string text;      ///< Unicode, with the characters that arrange signs when the user wants them
    std::string gardiner;  ///< the numbers of the signs in a row
    std::string codage;    ///< Manuel de Codage with the groups as they are drawn
};

/// The layout in which `codes` are drawn: the user's own where the phrase has one.
[[nodiscard]] Layout layoutOf(const Session& session, std::string_view codes);

[[nodiscard]] CopiedPhrase copied(Session& session, std::string_view codes);

/// Whether copies hold the Unicode characters that arrange signs; few fonts draw them.
[[nodiscard]] bool copiesJoiners(Session& session);
void copyJoiners(Session& session, bool on);

/// Appends the signs of `utf8` to the phrase as pastePhrase does; the groups in which they are written stay
/// with the phrase. Throws like it.
void paste(Session& session, std::string_view utf8);

}  // namespace karvel
