#pragma once

#include <string>

class QWidget;

namespace karvel {

class Session;

/// Where "Save preferiti" shall write, as the user names it, without the ending that is added to every name;
/// empty when he cancels. A file that would be replaced is asked about.
[[nodiscard]] std::string chooseFileToSave(QWidget& parent, Session& session);

/// What "Load preferiti" shall read; empty when the user cancels.
[[nodiscard]] std::string chooseFileToLoad(QWidget& parent, Session& session);

}  // namespace karvel
