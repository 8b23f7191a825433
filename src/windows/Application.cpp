#include "windows/Application.hpp"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "Version.hpp"
#include "app/EditionOffer.hpp"
#include "app/ReadOnlyData.hpp"
#include "app/StartUp.hpp"
#include "files/Leftovers.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/PictureStore.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Prompt.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/ScreenFit.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

/// Sets the toolkit's own texts (file dialog, colour chooser, print dialog) to Italian, whatever the system's
/// language is.
void speakItalian(QTranslator& translator)
{
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    const QString own = QStringLiteral(":/translations");
    if (translator.load(QStringLiteral("qtbase_it"), own) ||
        translator.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&translator);
    }
}

/// The small icons are set at once. The large one follows after the first frame: X is sent every pixel of it,
/// which is more than the buffer of its socket, and the first frame would wait for that.
///
void showIcon(QApplication& application)
{
    constexpr int kFirstFrame = 150;  // milliseconds until the first frame is shown
    QIcon icon;
    const auto add = [](QIcon& to, int side) {
        to.addPixmap(QPixmap(QStringLiteral(":/icon/karvel-%1.png").arg(side), "png"));
    };
    add(icon, 32);
    add(icon, 64);
    QApplication::setWindowIcon(icon);
    QTimer::singleShot(kFirstFrame, &application, [icon, add]() mutable {
        add(icon, 256);
        QApplication::setWindowIcon(icon);
    });
}

bool startUp(Session& session)
{
    try {
        return formLoad(session) == StartUp::Ready;
    } catch (const RuntimeError& error) {
        session.ui().ask(defaultErrorReport(error));
        return false;
    }
}

}  // namespace

int runApplication(int argc, char** argv)
{
#ifdef Q_OS_WIN
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");  // palette and title bars follow a dark theme
    }
#endif
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);  // a freed image returns its memory to the system
    mallopt(M_ARENA_MAX, 1);               // one memory pool serves the few threads
#endif
    const Drives drives = Drives::ofUser();
    QApplication application(argc, argv);
    initialiseResources();
    PictureStore pictures(drives);
    QApplication::setApplicationName(QStringLiteral("Karvel"));
    QApplication::setApplicationVersion(QLatin1String(kVersion));
    QApplication::setDesktopFileName(QStringLiteral("karvel"));
    QApplication::setStyle(new Style);
    adoptContrastTheme();
    showIcon(application);
    QApplication::setQuitOnLastWindowClosed(false);
    Prompt prompt;
    WindowSet windows;
    QTranslator translator;
    speakItalian(translator);
    Session session(FileSystem(drives), pictures, prompt, windows);
    Desktop desktop(session, pictures);
    if (!startUp(session)) {
        return 1;
    }
    Form1 form1(desktop, windows);
    windows.attach(desktop, form1);
    const SignMenu signMenu(desktop, windows);
    const ScreenFit screenFit;
    QObject::connect(&prompt, &Prompt::aboutToAsk, &desktop, &Desktop::changed);
    QObject::connect(&prompt, &Prompt::progress, &form1, &Form1::showProgress);
    form1.showState();
    removeLeftovers(session.files());
    provideDictionary(session.files());
    offerEdition(session.files(), prompt);
    keepInMemoryWhatCannotBeWritten(session.files(), prompt);
    if (QApplication::arguments().contains(QStringLiteral("--senza-apertura"))) {
        form1.show();
    } else {
        (new frmSplash(desktop, form1))->openInFront();  // deletes itself on closing
    }
    return QApplication::exec();
}

}  // namespace karvel
