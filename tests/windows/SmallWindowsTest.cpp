#include <QDesktopServices>
#include <QLabel>
#include <QPointer>
#include <QTextBrowser>

#include "Version.hpp"
#include "windows/AboutWindow.hpp"
#include "windows/MagnifiedPhrase.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/Resources.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

/// Takes the place of the browser.
class Browser : public QObject {
    Q_OBJECT

  public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> opened;

  public slots:
    void open(const QUrl& url) { opened.append(url); }
};

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

    void theLinkPageIsOpenedFromTheDisk()
    {
        Stage stage;
        const Browser browser;
        stage.choose("connetti");
        QCOMPARE(browser.opened.size(), 1);
        QFile page(browser.opened[0].toLocalFile());
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(page.readAll().startsWith("<!DOCTYPE html>"));

        stage.drive().files().remove("C:\\programmi\\Karvel\\collegamenti.html");
        stage.expect(
            {.title = "Messaggio di sistema",
             .text = "Non trovo la pagina dei collegamenti:\nC:\\programmi\\Karvel\\collegamenti.html",
             .icon = Icon::Critical});
        stage.choose("connetti");
        QVERIFY(stage.noBoxLeft());
        QCOMPARE(browser.opened.size(), 1);
    }
};

QTEST_MAIN(TestSmallWindows)
#include "SmallWindowsTest.moc"
