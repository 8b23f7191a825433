#include "app/StartUp.hpp"

namespace karvel {

namespace {

bool installationIsComplete(Session& session)
{
    if (session.files().drives().directoryName("C:\\programmi\\Karvel") == "Karvel") {
        return true;
    }
    session.ui().ask({.title = "ATTENZIONE INSTALLAZIONE ERRATA       ",
                      .text = "INSTALLARE NUOVAMENTE IL PROGRAMMA     \r\r"
                              "Mancano directory o file di configurazione.",
                      .icon = Icon::Critical,
                      .systemModal = true});
    return false;
}

}  // namespace

StartUp formLoad(Session& session)
{
    const FileSystem& files = session.files();
    // The colours come first, so that a missing tree is reported as the missing file that it is.
    session.colours() = readColours(files);

    session.FavouritePage = 0;
    session.termsPanel = "Termini: " + std::to_string(session.FavouritePage);
    session.FavouritePage = 1;

    if (!installationIsComplete(session)) {
        return StartUp::Ended;
    }

    session.palette().reset();
    session.modes().restore(files);
    session.images().restore(files);

    // From here on a failure is caught: the window opens with whatever was loaded.
    try {
        session.display().resetBorders();
        session.palette().loadFirstPage();
    } catch (const RuntimeError&) {
        session.ui().ask({.title = "ERRORE DI SISTEMA",
                          .text =
                              "Attenzione: non trovo la directory dei geroglifici, il percorso selezionato è "
                              "errato.\n\nImpostarlo dal menu opzioni-dir geroglifici.",
                          .icon = Icon::Critical});
    }
    return StartUp::Ready;
}

}  // namespace karvel
