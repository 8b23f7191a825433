#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>

#include "app/EditionOffer.hpp"
#include "app/PhraseClipboard.hpp"
#include "app/Views.hpp"
#include "windows/AboutWindow.hpp"
#include "windows/AlphabetWindow.hpp"
#include "windows/ColourWindow.hpp"
#include "windows/DirectoryWindow.hpp"
#include "windows/Form6.hpp"
#include "windows/GuideWindow.hpp"
#include "windows/LetturaWindow.hpp"
#include "windows/LinkPage.hpp"
#include "windows/NumeralsWindow.hpp"
#include "windows/PrintingWindow.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/main/FindSign.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

std::vector<QAction*> Form1::addMenu(const Menu& menu)
{
    std::vector<QAction*> actions;
    QMenu* const shown = menuBar()->addMenu(menu.caption);
    shown->setObjectName(QLatin1String(menu.name));
    for (const Item& item : menu.items) {
        if (item.separated) {
            shown->addSeparator();
        }
        QAction* const action = shown->addAction(item.caption);
        action->setObjectName(QLatin1String(item.name));
        action->setCheckable(item.checkable);
        action->setEnabled(static_cast<bool>(item.handler));
        if (!item.shortcut.isEmpty()) {
            action->setShortcut(QKeySequence(item.shortcut));
        }
        if (item.handler) {
            connect(action, &QAction::triggered, this,
                    [this, handler = item.handler] { desktop_.handle(handler); });
        }
        actions.push_back(action);
    }
    return actions;
}

Form1::Menu Form1::fileMenu()
{
    return {"File",
            QStringLiteral("&File"),
            {
                {"stampa", QStringLiteral("&Stampa"), [this] { form9::openFromMenu(desktop_, windows_); },
                 QStringLiteral("Ctrl+P")},
                {"Esci", QStringLiteral("&Esci"), [this] { leave(); }},
            }};
}

Form1::Menu Form1::editMenu()
{
    Session& session = desktop_.session();
    const auto copy = [&session] {
        if (!session.display().DisplayCodes().empty()) {
            copyPhrase(session, session.display().DisplayCodes());
        }
    };
    return {
        "modifiche",
        QStringLiteral("&Modifiche"),
        {
            {"undo", QStringLiteral("&Undo"), [&session] { undo(session); }, QStringLiteral("Ctrl+Z")},
            {.name = "copia",
             .caption = QStringLiteral("&Copia"),
             .handler = copy,
             .shortcut = QStringLiteral("Ctrl+C"),
             .separated = true},
            {"incolla", QStringLiteral("&Incolla"), [&session] { pastePhrase(session); },
             QStringLiteral("Ctrl+V")},
            {"trova", QStringLiteral("&Trova segno"), [this] { find_->start(); }, QStringLiteral("Ctrl+F")},
            {.name = "legami",
             .caption = QStringLiteral("Copia con i &raggruppamenti Unicode"),
             .handler = [&session] { copyJoiners(session, !copiesJoiners(session)); },
             .checkable = true,
             .separated = true},
        }};
}

Form1::Menu Form1::optionsMenu()
{
    return {
        "Opzioni",
        QStringLiteral("&Opzioni"),
        {
            {"codice", QStringLiteral("Visualizza &codice"), [this] { showCode(desktop_.session()); }},
            {"frase", QStringLiteral("Visualizza codice &frase"), [this] { showPhrase(desktop_.session()); }},
            {"colore", QStringLiteral("&Preferenze colori"),
             [this] { Form5::openFromMenu(desktop_, windows_); }},
            {"percorso", QStringLiteral("&Dir geroglifici"), [this] { windows_.open<Sysform>(); }},
        }};
}

Form1::Menu Form1::searchMenu()
{
    const auto choose = [this](Mode mode) {
        return [this, mode] { desktop_.session().modes().choose(mode, desktop_.session().files()); };
    };
    return {"Ricerca",
            QStringLiteral("&Ricerca"),
            {
                {"Uguale", QStringLiteral("&Termine presente"), choose(Mode::Equal), {}, true},
                {"traduci", QStringLiteral("&Dividi in parole"), choose(Mode::Split), {}, true},
                {"Cerca", QStringLiteral("&Cerca simile"), choose(Mode::Contains), {}, true},
                {"inizia", QStringLiteral("&Inizia per..."), choose(Mode::StartsWith), {}, true},
                {"finisce", QStringLiteral("&Finisce per..."), choose(Mode::EndsWith), {}, true},
                {"mancante", QStringLiteral("&Geroglifico mancante"), choose(Mode::MissingSign), {}, true},
                {.name = "vociTrovate",
                 .caption = QStringLiteral("&Elenco delle voci"),
                 .handler =
                     [this] {
                         find_->insertPending();  // the sign that is being chosen
                         Voci::openFromMenu(desktop_, windows_);
                     },
                 .shortcut = QStringLiteral("Ctrl+Return"),
                 .separated = true},
                {"trovaParola", QStringLiteral("Dall'italiano e dalla traslitterazione..."),
                 [this] { windows_.open<TrovaParola>().start(); }, QStringLiteral("Ctrl+I")},
            }};
}

void Form1::buildMenus()
{
    Session& session = desktop_.session();
    addMenu(fileMenu());
    addMenu(editMenu()).back()->setChecked(copiesJoiners(session));
    addMenu(optionsMenu());
    addMenu(favouritesMenu());
    modeItems_ = addMenu(searchMenu());
    modeItems_.resize(kModes);  // the items behind the modes have no tick
    addMenu({"fonemi",
             QStringLiteral("&Tabelle"),
             {{"ins", QStringLiteral("&Alfabeto"), [this] { windows_.open<Form2>(); }},
              {"numeri", QStringLiteral("&Numeri"), [this] { windows_.open<Numerals>(); }}}});
    addMenu({"visua",
             QStringLiteral("&Visualizza"),
             {{"tradotte", QStringLiteral("&Parole tradotte"), [this] { showTranslatedWords(); }},
              {"schede", QStringLiteral("&Schede"), [this] { windows_.open<Form6>(); }},
              {.name = "lettura",
               .caption = QStringLiteral("&Lettura"),
               .handler = [this] { windows_.open<Lettura>(); },
               .shortcut = QStringLiteral("Ctrl+L"),
               .separated = true}}});
    addMenu({"tipo",
             QStringLiteral("Tipo di &Inserimento"),
             {{"facilitato", QStringLiteral("&Facilitato"),
               [&session] {
                   session.favourites().hideForFacilitated();
                   session.ui().beep();
               }},
              // Kept: signs are always inserted directly, so there is nothing to go back to.
              {"normale", QStringLiteral("&Normale"), [] {}}}});
    addMenu({"internet",
             QStringLiteral("Int&ernet"),
             {{"connetti", QStringLiteral("&Collegamenti"),
               [this, &session] { openLinkPage(session, *this); }}}});
    addMenu({"aiuto",
             QStringLiteral("I&nfo"),
             {{"Info", QStringLiteral("I&nformazioni su Karvel"), [this] { windows_.open<frmAbout>(); }},
              {"guida", QStringLiteral("&Guida"), [this] { windows_.open<Guide>(); }, QStringLiteral("F1")},
              {.name = "aggiorna",
               .caption = QStringLiteral("&Aggiorna dizionario..."),
               .handler = [&session] { updateDictionary(session.files(), session.ui()); },
               .separated = true}}});
}

}  // namespace karvel
