#include "windows/support/FileDialogs.hpp"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "app/Session.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

const char* const kDirectory = "cartella";  // its name among the choices

QString directoryUsedLast(Session& session)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& directory : {qtext(session.choices().get(kDirectory)), documents}) {
        if (!directory.isEmpty() && QFileInfo(directory).isDir()) {
            return directory;
        }
    }
    return QDir::homePath();
}

}  // namespace

void labelFileDialog(QFileDialog& dialog, const QString& accept)
{
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Cerca in:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nome file:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
}

void openWhereUsedLast(QFileDialog& dialog, const QString& accept, Session& session)
{
    labelFileDialog(dialog, accept);
    dialog.setDirectory(directoryUsedLast(session));
    QObject::connect(&dialog, &QFileDialog::fileSelected, &dialog, [&session](const QString& path) {
        session.choices().set(kDirectory, utf8(QFileInfo(path).absolutePath()));
    });
}

}  // namespace karvel
