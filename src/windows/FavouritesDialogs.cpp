#include "windows/FavouritesDialogs.hpp"

#include <QFileDialog>

#include "app/Session.hpp"
#include "windows/support/FileDialogs.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

/// Prepares a file dialog that opens in the directory of the pages.
void prepare(QFileDialog& dialog, const Session& session, const QString& title, const QStringList& filters,
             const QString& accept)
{
    dialog.setObjectName(QStringLiteral("CommonDialog"));
    dialog.setWindowTitle(title);
    dialog.setDirectory(qtext(utf8Path(session.files().drives().toHost(kPageDirectory))));
    dialog.setNameFilters(filters);
    dialog.setViewMode(QFileDialog::List);
    labelFileDialog(dialog, accept);
}

/// The chosen file, in the system's form when it is on one of the mapped drives; empty for none.
std::string chosen(QFileDialog& dialog, const Session& session)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return session.files().drives().toSystem(hostPath(utf8(dialog.selectedFiles().constFirst())));
}

}  // namespace

std::string chooseFileToSave(QWidget& parent, Session& session)
{
    const QString title = QStringLiteral("Salva file (preferiti)");
    QFileDialog dialog(&parent);
    prepare(dialog, session, title, {QStringLiteral("prf (*)")}, QStringLiteral("&Salva"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The dialog would ask about the name without ".prf".
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    for (;;) {
        std::string name = chosen(dialog, session);
        if (name.empty() || !session.files().exists(name + ".prf")) {
            return name;
        }
        const Button answer = session.ui().ask({.title = utf8(title),
                                                .text = name + ".prf\resiste già.\r\rSostituirlo ?",
                                                .icon = Icon::Question,
                                                .buttons = Buttons::YesNo,
                                                .defaultButton = Button::No});
        if (answer == Button::Yes) {
            return name;
        }
    }
}

std::string chooseFileToLoad(QWidget& parent, Session& session)
{
    QFileDialog dialog(&parent);
    prepare(dialog, session, QStringLiteral("Seleziona un file (preferiti)"),
            {QStringLiteral("prf (*)"), QStringLiteral("Tutti i file (*)")}, QStringLiteral("&Apri"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return chosen(dialog, session);
}

}  // namespace karvel
