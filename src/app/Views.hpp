#pragma once

#include "app/Session.hpp"

namespace karvel {

/// "Visualizza codice": the current sign's code and the entry count, which ends up in `FavouritePage`.
/// A failure of the count is reported first. When the file ends inside a record the view then shows the count
/// reached; after any other failure it does not open.
void showCode(Session& session);

/// "Visualizza codice frase": the whole phrase and its number of signs.
void showPhrase(Session& session);

/// The menu "Undo": brings the display back to the state before the last sign. When that cannot be read the
/// user is told, and the display is empty.
void undo(Session& session);

/// The menu "Esci": true when the user wants to leave.
[[nodiscard]] bool confirmExit(UserInterface& ui);

/// The close box of the main window: the same question with an icon.
[[nodiscard]] bool confirmClose(UserInterface& ui);

}  // namespace karvel
