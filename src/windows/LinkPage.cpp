#include "windows/LinkPage.hpp"

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "app/Session.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

void sayNoBrowser(Session& session, const QUrl& page)
{
    session.ui().ask({.title = "Messaggio di sistema",
                      .text = "Non trovo un programma per leggere la pagina dei collegamenti.\n\n"
                              "La pagina si può aprire a mano:\n" +
                              utf8(page.toLocalFile()),
                      .icon = Icon::Exclamation});
}

#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)

void openInBrowser(Session& session, const QUrl& page, QObject& /*owner*/)
{
    if (!QDesktopServices::openUrl(page)) {
        sayNoBrowser(session, page);
    }
}

#else

/// Only the exit status of the desktop's opener program tells whether there was a browser, and the toolkit
/// does not report it.
void openInBrowser(Session& session, const QUrl& page, QObject& owner)
{
    constexpr int kPatience = 15000;  // milliseconds; an opener that runs longer has opened the page
    auto* const opener = new QProcess(&owner);
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    const QDeadlineTimer deadline(kPatience);
    const auto ended = [&session, page, opener, deadline](bool failed) {
        opener->deleteLater();
        if (failed && !deadline.hasExpired()) {
            sayNoBrowser(session, page);
        }
    };
    QObject::connect(opener, &QProcess::finished, &owner,
                     [ended](int status, QProcess::ExitStatus) { ended(status != 0); });
    QObject::connect(opener, &QProcess::errorOccurred, &owner, [ended](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            ended(true);
        }
    });
    opener->start(QStringLiteral("xdg-open"), {page.toString(QUrl::FullyEncoded)});
}

#endif

}  // namespace

void openLinkPage(Session& session, QObject& owner)
{
    const std::string page = installed("collegamenti.html");
    if (!session.files().exists(page)) {
        session.ui().ask({.title = "Messaggio di sistema",
                          .text = "Non trovo la pagina dei collegamenti:\n" + page,
                          .icon = Icon::Critical});
        return;
    }
    openInBrowser(session, QUrl::fromLocalFile(qtext(utf8Path(session.files().drives().toHost(page)))),
                  owner);
}

}  // namespace karvel
