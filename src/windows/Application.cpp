#include "windows/Application.hpp"

#include <QApplication>
#include <QFontMetrics>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QThreadPool>
#include <QTimer>
#include <QTranslator>
#include <memory>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "Version.hpp"
#include "app/StartUp.hpp"
#include "base/SignCode.hpp"
#include "compose/SignImages.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/PictureStore.hpp"
#include "windows/signs/SignImage.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Prompt.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

/// The toolkit's own texts (file dialog, colour chooser, print dialog) in Italian, whatever the system
/// speaks.
void speakItalian(QTranslator& translator)
{
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    const QString own = QStringLiteral(":/translations");
    if (translator.load(QStringLiteral("qtbase_it"), own) ||
        translator.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&translator);
    }
}

/// What start-up will ask for, unless the user keeps the signs elsewhere.
std::vector<std::string> firstPage()
{
    std::vector<std::string> pictures;
    for (std::size_t key = 0; key < kKeys; ++key) {
        pictures.push_back(SignImages().path(signCode(1, key)));
    }
    return pictures;
}

/// The first text makes the toolkit list all fonts of the system, which takes as long as making the window:
/// so it is asked for on another thread, and the window's first text finds that done, or waits for it.
void listFontsAhead()
{
    QThreadPool::globalInstance()->start([] { static_cast<void>(QFontMetrics(QFont()).height()); });
}

/// The title bar and the list of windows have their icon at once. The large one follows when the first frame
/// stands: X gets every pixel of it, which is more than its socket holds, and the window would have to wait
/// for that.
void showIcon(QApplication& application)
{
    constexpr int kFirstFrame = 150;  // milliseconds
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
        qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");  // boxes, guide and title bars follow a dark system
    }
#endif
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);  // what a decoded image took goes back to the system with it
    mallopt(M_ARENA_MAX, 1);               // the few threads need no memory of their own set aside for each
#endif
    const Drives drives = Drives::ofUser();
    // The first page is read while the toolkit starts.
    auto ahead = std::make_unique<Ahead<QImage>>(
        firstPage(), [&drives](const std::string& path) { return usualImage(drives, path); });
    QApplication application(argc, argv);
    listFontsAhead();
    initialiseResources();
    PictureStore pictures(drives);
    pictures.use(std::move(ahead));
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
    QObject::connect(&prompt, &Prompt::aboutToAsk, &form1, &Form1::showState);
    QObject::connect(&prompt, &Prompt::progress, &form1, &Form1::showProgress);
    form1.showState();
    form1.prepareToShow();
    if (QApplication::arguments().contains(QStringLiteral("--senza-apertura"))) {
        form1.show();
    } else {
        (new frmSplash(desktop, form1))->openInFront();  // deletes itself on closing
    }
    return QApplication::exec();
}

}  // namespace karvel
