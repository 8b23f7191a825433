#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>

#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const MessageBox kEnd{.title = "Ricerca:", .text = "Fine Ricerca"};
const MessageBox kNothing{.title = "Ricerca:", .text = "Non esiste una corrispondenza per questo termine !"};

MessageBox translation(const std::string& text)
{
    return {.title = "Traduzione", .text = text, .buttons = Buttons::OkCancel};
}

std::string shownCodes(Stage& stage)
{
    std::string codes;
    for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
        codes += stage.control<SignCell>(qPrintable(element("Vendol", i)))->cell().code;
    }
    return codes;
}

}  // namespace

class TestForm1 : public QObject {
    Q_OBJECT

  private slots:
    void searchesWhatWasKeyed()
    {
        Stage stage(record("e16", "in", "m", "preposizione") + record("d51f21b47", "buono", "nfr"));
        stage.press("e16");
        QCOMPARE(stage.control<QLabel>("Panel(3)")->text(), QStringLiteral("Codice: e16"));
        stage.expect(translation("1) -  IN\n\n2) -  m\n\nNote: preposizione"));
        stage.expect(kEnd);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
    }

    void showsTheFoundSignsWhileTheirBoxIsOpen()
    {
        Stage stage(record("d51f21b47", "buono", "nfr"));
        stage.press("d51");
        stage.expect(translation("1) -  BUONO\n\n2) -  nfr\n\nNote: "), Button::Cancel);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
        QCOMPARE(shownCodes(stage), std::string("d51f21b47"));
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("d51"));
    }

    void strongContrastOfTheSystemGoesBeforeTheUsersColours()
    {
        Stage stage;
        const auto surfaces = [&stage] {
            return std::pair(stage.form1().palette().color(QPalette::Window),
                             stage.control<QWidget>("Picture1")->palette().color(QPalette::Window));
        };
        const auto chosen = surfaces();
        const QPalette before = QApplication::palette();
        QPalette blackAndWhite(Qt::white, Qt::black);
        blackAndWhite.setColor(QPalette::WindowText, Qt::white);
        blackAndWhite.setColor(QPalette::Window, Qt::black);
        // The toolkit tells the windows of a new theme only while its own loop runs.
        const auto takeTheme = [&stage](const QPalette& theme) {
            QApplication::setPalette(theme);
            QEvent changed(QEvent::ApplicationPaletteChange);
            QApplication::sendEvent(&stage.form1(), &changed);
        };
        takeTheme(blackAndWhite);
        QCOMPARE(surfaces(), std::pair(QColor(Qt::black), QColor(Qt::black)));
        takeTheme(before);
        QCOMPARE(surfaces(), chosen);
    }

    void scalesTheOtherPagesInTheBackground()
    {
        Stage stage;
        PictureStore& pictures = stage.desktop().pictures();
        QTRY_VERIFY_WITH_TIMEOUT(pictures.kept() >= static_cast<qsizetype>(kPages * kKeys), 60000);
        const std::string directory = stage.session().images().GlyphDirectory();
        const std::string path = stage.session().images().path("o19");
        const int side = stage.control<SignButton>("tasto(0)")->pictureSide();
        PictureStore fresh(stage.drive().files().drives());
        const QImage expected = fresh.scaled(path, side, 1).toImage();
        QVERIFY(!expected.isNull());
        // What was scaled needs no file any more, and looks as if it had just been read.
        std::filesystem::rename(stage.drive().host(directory), stage.drive().host(directory + "2"));
        QCOMPARE(pictures.scaled(path, side, 1).toImage(), expected);
        stage.press("o19");
        QCOMPARE(stage.control<SignButton>("tasto(18)")->picturePath(), path);
    }

    void everyModeButSplittingSearches_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("found");
        QTest::newRow("equal") << "Uguale"
                               << "TIPO RICERCA: Termine presente"
                               << "A";
        QTest::newRow("contains") << "Cerca"
                                  << "TIPO RICERCA: Cerca Simile"
                                  << "A,B,C";
        QTest::newRow("starts") << "inizia"
                                << "TIPO RICERCA: Inizia per..."
                                << "A,B";
        QTest::newRow("ends") << "finisce"
                              << "TIPO RICERCA: Finisce per..."
                              << "A,C";
        QTest::newRow("missing") << "mancante"
                                 << "TIPO RICERCA: Cerca simile"
                                 << "";
    }
    void everyModeButSplittingSearches()
    {
        QFETCH(QString, item);
        QFETCH(QString, heading);
        QFETCH(QString, found);
        Stage stage(record("a01", "a") + record("a01b02", "b") + record("c03a01", "c") + record("d04", "d"));
        stage.choose(qPrintable(item));
        QCOMPARE(stage.control<QLabel>("Label1")->text(), heading);
        QVERIFY(stage.control<QAction>(qPrintable(item))->isChecked());
        stage.press("a01");
        const QStringList matches = found.split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (const QString& match : matches) {
            stage.expect(translation("1) -  " + utf8(match) + "\n\n2) -  \n\nNote: "));
        }
        stage.expect(matches.isEmpty() ? kNothing : kEnd);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
    }

    void missingSignKeySwitchesItsSearchOn()
    {
        Stage stage(record("a01", "uno") + record("a01b02c03", "due") + record("b02", "tre"));
        stage.press("a01");
        stage.expect(
            {.title = "Informazione",
             .text = "Hai selezionato un carattere speciale che attiva la ricerca 'Geroglifico mancante'",
             .icon = Icon::Information});
        stage.press("p47");
        QVERIFY(stage.control<QAction>("mancante")->isChecked());
        QVERIFY(!stage.control<QAction>("Cerca")->isChecked());
        stage.expect({.title = "Info",
                      .text =
                          "Questo carattere sostituisce già uno o più geroglifici. Pertanto è sufficiente "
                          "premerlo una volta.",
                      .icon = Icon::Information});
        stage.press("p47");
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a01p47"));
        stage.expect(translation("1) -  UNO\n\n2) -  \n\nNote: "));
        stage.expect(translation("1) -  DUE\n\n2) -  \n\nNote: "));
        stage.expect(kEnd);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
    }

    void pagesTurnByScrollBarAndByLetter()
    {
        Stage stage;
        auto* const scroll = stage.control<QScrollBar>("HScroll1");
        auto* const box = stage.control<QLineEdit>("Text1");
        scroll->setValue(10);
        QCOMPARE(box->text(), QStringLiteral("L"));
        QCOMPARE(stage.control<SignButton>("tasto(8)")->code(), std::string("l09"));
        QVERIFY(stage.control<QWidget>("tasto(8)")->toolTip().startsWith(QStringLiteral("l09")));
        const struct {
            const char* typed;
            const char* letter;
            int page;
        } cases[] = {{"j", "L", 10}, {"z", "A", 1}, {"p", "P", 14}, {"", "A", 1}, {"bcd", "B", 2}};
        for (const auto& [typed, letter, page] : cases) {
            box->setFocus();
            box->selectAll();
            QTest::keyClick(box, Qt::Key_Delete);
            QTest::keyClicks(box, QLatin1String(typed));
            QTest::keyClick(box, Qt::Key_Return);
            QCOMPARE(box->text(), QLatin1String(letter));
            QCOMPARE(scroll->value(), page);
            QCOMPARE(stage.control<SignButton>("tasto(0)")->code()[0],
                     kCategories[static_cast<std::size_t>(page - 1)]);
        }
    }

    void longPhraseScrollsAndIsRefusedAt85Signs()
    {
        Stage stage;
        QVERIFY(!stage.control<QWidget>("CSX")->isEnabled());
        for (int i = 0; i < 84; ++i) {
            stage.press(i % 2 == 0 ? "a01" : "a02");
        }
        QVERIFY(stage.control<QWidget>("CSX")->isEnabled());
        stage.expect(
            {.title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical});
        stage.press("a03");
        QCOMPARE(stage.session().display().signs(), std::size_t(84));
        stage.click("Command1");
        QCOMPARE(shownCodes(stage).substr(0, 6), std::string("a01a02"));
        stage.click("CDX");
        QCOMPARE(shownCodes(stage).substr(0, 6), std::string("a02a01"));
        stage.click("Command3");
        QCOMPARE(shownCodes(stage).size(), std::size_t(33));
        stage.click("Command8");
        QCOMPARE(shownCodes(stage), std::string());
        QVERIFY(stage.noBoxLeft());
    }

    void deletesTheSelectedSignOnly()
    {
        Stage stage;
        for (const char* const code : {"a01", "a02", "a03"}) {
            stage.press(code);
        }
        auto* const remove = stage.control<QWidget>("Command4");
        QVERIFY(!remove->isEnabled());
        stage.click("Vendol(7)");
        QVERIFY(!remove->isEnabled());
        stage.click("Vendol(0)");
        stage.click("Vendol(1)");
        QVERIFY(remove->isEnabled());
        stage.click("Command4");
        QCOMPARE(shownCodes(stage), std::string("a01a03"));
        QVERIFY(!remove->isEnabled());
    }

    void asksBeforeLeaving()
    {
        Stage stage;
        QSignalSpy quit(qApp, &QCoreApplication::aboutToQuit);
        MessageBox question{.title = "Uscita programma:",
                            .text = "Sei sicuro ?",
                            .icon = Icon::None,
                            .buttons = Buttons::YesNo,
                            .defaultButton = Button::No};
        stage.expect(question, Button::No);
        stage.choose("Esci");
        QVERIFY(stage.form1().isVisible());
        question.icon = Icon::Question;
        stage.expect(question, Button::No);
        stage.form1().close();
        QVERIFY(stage.form1().isVisible());
        question.icon = Icon::None;
        stage.expect(question, Button::Yes);
        stage.choose("Esci");
        QVERIFY(!stage.form1().isVisible());
        QVERIFY(stage.noBoxLeft());
    }

    void picturesOfStarNotesOpenInTheContainmentSearchOnly()
    {
        Stage stage(record("a01", "uomo", "", "*GR\\a02.gif") + record("a01", "altro", "", "*manca.jpg"));
        stage.press("a01");
        stage.choose("Uguale");
        const auto search = [&stage] {
            stage.expect(translation("1) -  UOMO\n\n2) -  \n\nNote: *GR\\a02.gif"));
            stage.expect(translation("1) -  ALTRO\n\n2) -  \n\nNote: *manca.jpg"));
            stage.expect(kEnd);
            stage.click("Command12");
        };
        search();
        QVERIFY(stage.form1().findChild<QWidget*>(QStringLiteral("imm1")) == nullptr);
        stage.choose("Cerca");
        search();
        auto* const picture = stage.form1().findChild<QWidget*>(QStringLiteral("imm1"));
        QVERIFY(picture != nullptr && picture->isVisible());
        QCOMPARE(picture->findChild<QLabel*>(QStringLiteral("Picture1"))->text(),
                 QStringLiteral("Immagine non trovata: manca.jpg"));
        QTest::mouseClick(picture->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QVERIFY(!picture->isVisible());
        QVERIFY(stage.noBoxLeft());
    }

    void aFailingHandlerReportsAndLosesNothing()
    {
        Stage stage;
        stage.press("a01");
        std::filesystem::remove(stage.drive().host("C:\\programmi\\Karvel\\dizio.txt"));
        stage.expect(
            {.title = "ERRORE",
             .text = "C'e' un errore nel file dizio.txt ERR>53\nFile non trovato\nCi sono caratteri in meno "
                     "o in più nel file !",
             .icon = Icon::Critical});
        stage.click("Command12");
        stage.choose("finisce");
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::FileNotFound)));
        stage.click("Command12");
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a01"));
        QVERIFY(stage.noBoxLeft());
    }
};

QTEST_MAIN(TestForm1)
#include "Form1Test.moc"
