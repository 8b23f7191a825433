#include "windows/AboutWindow.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextFrame>
#include <QTextTable>
#include <QVBoxLayout>

#include "Version.hpp"
#include "settings/SystemInformation.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/PictureBox.hpp"
#include "windows/support/Resources.hpp"

namespace karvel {

namespace {

void padTables(QTextDocument& text)
{
    for (QTextFrame* const frame : text.rootFrame()->childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setCellPadding(5);
            format.setCellSpacing(0);
            format.setBorder(0);
            format.setTopMargin(6);
            format.setBottomMargin(6);
            table->setFormat(format);
        }
    }
}

}  // namespace

frmAbout::frmAbout(Desktop& desktop, QWidget* parent) : QDialog(parent), desktop_(desktop)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("Informazioni su Karvel"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    column->addWidget(heading());
    column->addWidget(credits(), 1);
    column->addWidget(buttons());
    resize(680, 580);
}

QWidget* frmAbout::heading()
{
    auto* const box = new QWidget(this);
    auto* const picture = new PictureBox(aboutPicture(), {200, 200}, box);
    picture->setObjectName(QStringLiteral("Picture2"));
    picture->setAccessibleName(QStringLiteral("il nome Karvel in geroglifici, su papiro"));
    auto* const text = new QLabel(box);
    text->setObjectName(QStringLiteral("Label1"));
    text->setTextFormat(Qt::RichText);
    text->setTextInteractionFlags(Qt::TextBrowserInteraction);
    text->setWordWrap(true);
    text->setText(
        QStringLiteral("<p style='font-size: 22pt; font-weight: bold; margin: 0'>Karvel</p>"
                       "<p style='font-size: 12pt; margin-top: 2px'>Dizionario geroglifico-italiano</p>"
                       "<p>Versione %1</p>"
                       "<p>Compone frasi di segni, le traduce con il dizionario e cerca i segni di una "
                       "parola italiana.</p>"
                       "<p>È software libero, con la licenza GNU GPL 3 o successiva, senza alcuna "
                       "garanzia.</p>"
                       "<p>Le finestre usano la libreria Qt %2, con licenza LGPL 3.</p>")
            .arg(QLatin1String(kVersion), QLatin1String(qVersion())));
    auto* const row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    row->addWidget(picture);
    row->addWidget(text, 1);
    return box;
}

QWidget* frmAbout::credits()
{
    auto* const browser = new QTextBrowser(this);
    browser->setObjectName(QStringLiteral("fonti"));
    browser->setAccessibleName(QStringLiteral("fonti e licenze dei dati"));
    browser->setOpenExternalLinks(true);
    browser->document()->setDocumentMargin(12);
    browser->setMarkdown(dataCredits());
    padTables(*browser->document());
    return browser;
}

QWidget* frmAbout::buttons()
{
    auto* const box = new QWidget(this);
    auto* const information = new QPushButton(QStringLiteral("&Informazioni sul sistema..."), box);
    information->setObjectName(QStringLiteral("CmdSysInfo"));
    information->setAccessibleName(QStringLiteral("informazioni sul sistema"));
    information->setAutoDefault(false);
    connect(information, &QPushButton::clicked, this, [this] {
        desktop_.handle([this] { StartSysInfo(*registry_, *programs_, desktop_.session().ui()); });
    });
    auto* const close = new QPushButton(QStringLiteral("OK"), box);
    close->setObjectName(QStringLiteral("Command1"));
    close->setAccessibleName(QStringLiteral("chiudi"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &frmAbout::close);
    auto* const row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(information);
    row->addStretch(1);
    row->addWidget(close);
    close->setFocus();
    return box;
}

}  // namespace karvel
