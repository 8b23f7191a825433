#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextEdit>
#include <QUrl>

#include "Version.hpp"
#include "windows/AboutWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/signs/MagnifiedPhrase.hpp"
#include "windows/support/Box.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

class SmallWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void aboutTellsVersionSourcesAndLicences()
    {
        Stage stage;
        const auto* const about = stage.open<frmAbout>("Info");
        QVERIFY(control<QLabel>(about, "Label1")->text().contains(QLatin1String(kVersion)));
        const QString credits = control<QTextBrowser>(about, "fonti")->toPlainText();
        for (const char* const licence : {"CC BY-SA 4.0", "UNICODE LICENSE V3", "SIL Open Font License"}) {
            QVERIFY2(credits.contains(QLatin1String(licence)), licence);
        }
#if !defined(_WIN32)
        stage.expect(
            {.title = "Karvel", .text = "Le informazioni sul sistema non sono disponibili in questa fase"});
        click(about, "CmdSysInfo");
#endif
        click(about, "Command1");
        QVERIFY(!about->isVisible());
        QVERIFY(!openingPicture().isNull());
        QVERIFY(!aboutPicture().isNull());
    }

    void aBoxOfAnyLengthFitsOnTheScreen()
    {
        Box box(nullptr);
        box.addButton(QMessageBox::Ok);
        box.showText(QStringLiteral("a\r\nb\rc\n") + QString(20000, QLatin1Char('x')));
        box.show();
        const auto* const text = control<QTextEdit>(&box, "boxText");
        QVERIFY(text->toPlainText().startsWith(QStringLiteral("a\nb\nc\nxx")));
        QVERIFY(box.frameGeometry().height() <= box.screen()->availableGeometry().height());
        QVERIFY(text->height() <= box.screen()->availableGeometry().height() * 2 / 3);
        QTest::keyClick(&box, Qt::Key_PageDown);
        QVERIFY(text->verticalScrollBar()->value() > 0);
    }

    void theOpeningWindowShowsTheMainWindowBehindItself()
    {
        for (const int way : {0, 1, 2}) {
            Stage stage;
            stage.form1().hide();
            const QPointer<frmSplash> splash(new frmSplash(stage.desktop(), stage.form1()));
            splash->openInFront();
            QVERIFY(stage.form1().isVisible());
            QVERIFY(splash->isVisible() && !splash->isModal());
            if (way == 0) {
                click(splash, "Command1");
            } else if (way == 1) {
                QTest::keyClick(splash, Qt::Key_Escape);
            } else {
                stage.press("a01");
            }
            QTRY_VERIFY(splash.isNull());
            QVERIFY(stage.form1().isVisible());
        }
    }

    void theMagnifierFollowsTheDisplayAndTheSearchShowsItAgain()
    {
        Stage stage(record("a01", "uomo"));
        stage.click("Command7");
        auto* const magnifier = stage.windows().opened<Ingrandimento>();
        const auto* const phrase = control<MagnifiedPhrase>(magnifier, "frase");
        for (int sign = 0; sign < 84; ++sign) {
            stage.press("a02");
        }
        QCOMPARE(phrase->signs().size(), std::size_t(84));
        QVERIFY(phrase->height() > magnifier->height());  // wrapped, and to be scrolled
        QVERIFY(phrase->width() < magnifier->width());
        stage.choose("undo");
        QCOMPARE(phrase->signs().size(), std::size_t(83));
        stage.click("Command8");
        QVERIFY(phrase->signs().empty());
        stage.press("a01");
        QCOMPARE(phrase->accessibleName(), QStringLiteral("frase ingrandita: a01"));
        magnifier->hide();
        stage.expect(foundBox("UOMO"), Button::Cancel);
        stage.choose("Uguale");
        stage.click("Command12");
        QVERIFY(magnifier->isVisible());
        QTest::keyClick(magnifier, Qt::Key_Escape);
        QTRY_VERIFY(stage.windows().opened<Ingrandimento>() == nullptr);
    }

#if !defined(_WIN32)
    void theLinkPageIsGivenToTheBrowser()
    {
        Stage stage;
        const QTemporaryDir directory;
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", directory.path().toUtf8() + ":" + path);
        const QString opened = directory.filePath(QStringLiteral("opened"));
        const std::string page = stage.drive().host("C:\\programmi\\Karvel\\collegamenti.html").string();
        for (const char* const status : {"0", "3"}) {
            QFile opener(directory.filePath(QStringLiteral("xdg-open")));
            QVERIFY(opener.open(QIODevice::WriteOnly));
            opener.write("#!/bin/sh\necho \"$1\" > " + opened.toUtf8() + "\nexit " + status + "\n");
            opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            opener.close();
            if (QLatin1String(status) == QLatin1String("3")) {
                stage.expect({.title = "Messaggio di sistema",
                              .text = "Non trovo un programma per leggere la pagina dei collegamenti.\n\n"
                                      "La pagina si può aprire a mano:\n" +
                                      page,
                              .icon = Icon::Exclamation});
            }
            stage.choose("connetti");
            QTRY_VERIFY(stage.form1().findChild<QProcess*>() == nullptr && stage.noBoxLeft());
            QFile noted(opened);
            QVERIFY(noted.open(QIODevice::ReadOnly));
            QCOMPARE(QUrl(QString::fromUtf8(noted.readAll()).trimmed()).toLocalFile().toStdString(), page);
        }
        qputenv("PATH", path);
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
    }
};

WINDOW_TESTS(SmallWindowsTest)
#include "SmallWindowsTest.moc"
