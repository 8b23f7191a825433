#include "windows/LinkPage.hpp"

#include <QDesktopServices>
#include <QUrl>

#include "app/Session.hpp"
#include "windows/Text.hpp"

namespace karvel {

void openLinkPage(Session& session)
{
    const std::string page = installed("collegamenti.html");
    if (!session.files().exists(page)) {
        session.ui().ask({.title = "Messaggio di sistema",
                          .text = "Non trovo la pagina dei collegamenti:\n" + page,
                          .icon = Icon::Critical});
        return;
    }
    const std::string host = utf8Path(session.files().drives().toHost(page));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(qtext(host)))) {
        session.ui().ask({.title = "Messaggio di sistema",
                          .text = "Non trovo un programma per leggere la pagina dei collegamenti.\n\n"
                                  "La pagina si può aprire a mano:\n" +
                                  host,
                          .icon = Icon::Exclamation});
    }
}

}  // namespace karvel
