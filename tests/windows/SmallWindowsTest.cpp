#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>

#include "Version.hpp"
#include "windows/AboutWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/signs/MagnifiedPhrase.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// A program in the place of the desktop's own opener, which writes down what it was asked to open.
class Opener {
  public:
    explicit Opener(int exitStatus)
    {
        QFile script(directory_.filePath(QStringLiteral("xdg-open")));
        if (!script.open(QIODevice::WriteOnly)) {
            qFatal("no script");
        }
        script.write("#!/bin/sh\necho \"$1\" >> \"$(dirname \"$0\")/opened\"\nexit " +
                     QByteArray::number(exitStatus) + "\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", directory_.path().toUtf8() + ":" + path_);
    }
    ~Opener() { qputenv("PATH", path_); }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

    [[nodiscard]] QString opened() const
    {
        QFile file(directory_.filePath(QStringLiteral("opened")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

  private:
    QTemporaryDir directory_;
    QByteArray path_ = qgetenv("PATH");
};

}  // namespace

class TestSmallWindows : public QObject {
    Q_OBJECT

  private slots:
    void aboutTellsVersionSourcesAndLicences()
    {
        Stage stage;
        stage.choose("Info");
        auto* const about = stage.windows().opened<frmAbout>();
        QVERIFY(
            about->findChild<QLabel*>(QStringLiteral("Label1"))->text().contains(QLatin1String(kVersion)));
        const QString credits = about->findChild<QTextBrowser*>(QStringLiteral("fonti"))->toPlainText();
        for (const char* const licence : {"CC BY-SA 4.0", "UNICODE LICENSE V3", "SIL Open Font License"}) {
            QVERIFY2(credits.contains(QLatin1String(licence)), licence);
        }
        QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QVERIFY(!about->isVisible());
    }

#if !defined(_WIN32)
    void systemInformationIsNotAvailableHere()
    {
        Stage stage;
        stage.choose("Info");
        stage.expect(
            {.title = "Karvel", .text = "Le informazioni sul sistema non sono disponibili in questa fase"});
        auto* const about = stage.windows().opened<frmAbout>();
        QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("CmdSysInfo")), Qt::LeftButton);
        QVERIFY(stage.noBoxLeft());
    }
#endif

    void theirPicturesAreInTheProgram()
    {
        QCOMPARE(openingPicture().size(), QSize(1280, 800));
        QCOMPARE(aboutPicture().size(), QSize(600, 600));
    }

    void theOpeningWindowShowsTheMainWindowBehindItself_data()
    {
        QTest::addColumn<QString>("way");
        for (const char* const way : {"button", "escape", "main window"}) {
            QTest::newRow(way) << way;
        }
    }
    void theOpeningWindowShowsTheMainWindowBehindItself()
    {
        QFETCH(QString, way);
        Stage stage;
        stage.form1().hide();
        auto* const splash = new frmSplash(stage.desktop(), stage.form1());
        const QPointer<frmSplash> alive(splash);
        splash->openInFront();
        QVERIFY(stage.form1().isVisible());
        QVERIFY(splash->isVisible());
        QVERIFY(!splash->isModal());
        if (way == QStringLiteral("button")) {
            QTest::mouseClick(splash->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        } else if (way == QStringLiteral("escape")) {
            QTest::keyClick(splash, Qt::Key_Escape);
        } else {
            stage.press("a01");
        }
        QTRY_VERIFY(alive.isNull());
        QVERIFY(stage.form1().isVisible());
    }

    void theMagnifierFollowsTheDisplay()
    {
        Stage stage;
        stage.press("a01");
        stage.click("Command7");
        auto* const magnifier = stage.windows().opened<Ingrandimento>();
        auto* const phrase = magnifier->findChild<MagnifiedPhrase*>(QStringLiteral("frase"));
        QCOMPARE(phrase->accessibleName(), QStringLiteral("frase ingrandita: a01"));
        for (int sign = 1; sign < 84; ++sign) {
            stage.press("a02");
        }
        QCOMPARE(phrase->signs().size(), std::size_t(84));
        QVERIFY(phrase->height() > magnifier->height());  // wrapped, and to be scrolled
        QVERIFY(phrase->width() < magnifier->width());
        stage.choose("undo");
        QCOMPARE(phrase->signs().size(), std::size_t(83));
        stage.click("Command8");
        QVERIFY(phrase->signs().empty());
        QVERIFY(magnifier->isVisible());
    }

    void theSearchShowsTheMagnifierAgain()
    {
        Stage stage(record("a01", "uomo"));
        stage.press("a01");
        stage.click("Command7");
        auto* const magnifier = stage.windows().opened<Ingrandimento>();
        stage.form1().activateWindow();
        magnifier->hide();
        stage.expect(
            {.title = "Traduzione", .text = "1) -  UOMO\n\n2) -  \n\nNote: ", .buttons = Buttons::OkCancel},
            Button::Cancel);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(magnifier->isVisible());
        QTest::keyClick(magnifier, Qt::Key_Escape);
        QTRY_VERIFY(stage.windows().opened<Ingrandimento>() == nullptr);
    }

#if !defined(_WIN32)
    void theLinkPageIsOpenedFromTheDisk()
    {
        Stage stage;
        const Opener opener(0);
        stage.choose("connetti");
        QTRY_VERIFY(opener.opened().endsWith(QLatin1Char('\n')));
        QFile page(QUrl(opener.opened().trimmed()).toLocalFile());
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(page.readAll().startsWith("<!DOCTYPE html>"));
        QTRY_VERIFY(stage.form1().findChild<QProcess*>() == nullptr);
        QVERIFY(stage.noBoxLeft());
    }

    void saysThatThereIsNoBrowser()
    {
        Stage stage;
        const Opener opener(3);
        const std::string page = stage.drive().host("C:\\programmi\\Karvel\\collegamenti.html").string();
        stage.expect({.title = "Messaggio di sistema",
                      .text = "Non trovo un programma per leggere la pagina dei collegamenti.\n\n"
                              "La pagina si può aprire a mano:\n" +
                              page,
                      .icon = Icon::Exclamation});
        stage.choose("connetti");
        QTRY_VERIFY(stage.noBoxLeft());
    }
#endif

    void saysThatTheLinkPageIsMissing()
    {
        Stage stage;
        stage.drive().files().remove("C:\\programmi\\Karvel\\collegamenti.html");
        stage.expect(
            {.title = "Messaggio di sistema",
             .text = "Non trovo la pagina dei collegamenti:\nC:\\programmi\\Karvel\\collegamenti.html",
             .icon = Icon::Critical});
        stage.choose("connetti");
        QVERIFY(stage.noBoxLeft());
    }
};

QTEST_MAIN(TestSmallWindows)
#include "SmallWindowsTest.moc"
