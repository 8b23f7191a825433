#pragma once

#include <string>

class QWidget;

namespace karvel {

class Session;

/// Asks for the file that "Save preferiti" writes: the name as typed, to which the caller adds ".prf"; empty
/// when the user cancels. Asks before an existing file is replaced.
[[nodiscard]] std::string chooseFileToSave(QWidget& parent, Session& session);

/// Asks for the file that "Load preferiti" reads; empty when the user cancels.
[[nodiscard]] std::string chooseFileToLoad(QWidget& parent, Session& session);

}  // namespace karvel
