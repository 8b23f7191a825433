#include "windows/ReadingFiles.hpp"

#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "windows/support/Desktop.hpp"
#include "windows/support/FileDialogs.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

const QString kTitle = QStringLiteral("Salva la lettura");

/// The name that the user chose; empty for none.
QString chosen(QFileDialog& dialog)
{
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::string inSystemForm(const QString& path, Desktop& desktop)
{
    return path.isEmpty() ? std::string() : desktop.session().files().drives().toSystem(hostPath(utf8(path)));
}

}  // namespace

std::string askWhereToSaveReading(QWidget& parent, Desktop& desktop)
{
    const QStringList filters = {QStringLiteral("Lettura con le scelte (*.karvel-lettura)"),
                                 QStringLiteral("Pagina HTML (*.html)"), QStringLiteral("Testo (*.txt)")};
    const QStringList endings = {QStringLiteral(".karvel-lettura"), QStringLiteral(".html"),
                                 QStringLiteral(".txt"), QStringLiteral(".htm")};
    QFileDialog dialog(&parent);
    dialog.setWindowTitle(kTitle);
    dialog.setNameFilters(filters);
    openWhereUsedLast(dialog, QStringLiteral("&Salva"), desktop.session());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The dialog would ask about the name without its ending.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    for (;;) {
        QString path = chosen(dialog);
        if (path.isEmpty()) {
            return {};
        }
        const bool hasEnding = std::ranges::any_of(
            endings, [&](const QString& ending) { return path.endsWith(ending, Qt::CaseInsensitive); });
        if (!hasEnding) {
            path += endings.value(std::max<qsizetype>(0, filters.indexOf(dialog.selectedNameFilter())));
        }
        const bool replace =
            !QFileInfo::exists(path) ||
            desktop.session().ui().ask({.title = utf8(kTitle),
                                        .text = utf8(path) + "\nesiste già.\n\nSostituirlo ?",
                                        .icon = Icon::Question,
                                        .buttons = Buttons::YesNo,
                                        .defaultButton = Button::No}) == Button::Yes;
        if (replace) {
            return inSystemForm(path, desktop);
        }
    }
}

std::string askWhichReadingToOpen(QWidget& parent, Desktop& desktop)
{
    QFileDialog dialog(&parent);
    dialog.setWindowTitle(QStringLiteral("Apri una lettura o un testo"));
    dialog.setNameFilters(
        {QStringLiteral("Letture e testi (*.karvel-lettura *.txt)"), QStringLiteral("Tutti i file (*)")});
    openWhereUsedLast(dialog, QStringLiteral("&Apri"), desktop.session());
    dialog.setFileMode(QFileDialog::ExistingFile);
    return inSystemForm(chosen(dialog), desktop);
}

}  // namespace karvel
