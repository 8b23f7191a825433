#pragma once

class QFileDialog;
class QString;

namespace karvel {

class Session;

/// Sets the dialog's labels to Italian, whatever the system's language is; `accept` is the button's.
void labelFileDialog(QFileDialog& dialog, const QString& accept);

/// The same, and opens the dialog in the directory of the file chosen last in any of these dialogs; the first
/// time, or when that is gone, in the user's documents. Remembers the directory when a file is chosen.
/// `session` must outlive the dialog.
void openWhereUsedLast(QFileDialog& dialog, const QString& accept, Session& session);

}  // namespace karvel
