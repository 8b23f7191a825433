#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include "windows/GuideWindow.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SquareGrid.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const MessageBox kEnd{.title = "Ricerca:", .text = "Fine Ricerca"};

}  // namespace

class Form1Test : public QObject {
    Q_OBJECT

  private slots:
    void searchesWhatWasKeyed()
    {
        Stage stage(record("e16", "in", "m", "preposizione") + record("d51f21b47", "buono") +
                    record("e16", "*"));
        stage.press("e16");
        QCOMPARE(stage.control<QLabel>("Panel(3)")->text(), QStringLiteral("Codice: e16"));
        stage.choose("Uguale");
        MessageBox box = foundBox("IN");
        box.text = "1) -  IN\n\n2) -  m\n\nNote: preposizione";
        stage.expect(box);
        stage.expect(foundBox("*"));
        stage.expect(kEnd);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
        stage.click("Command8");
        stage.press("d51");
        stage.choose("Cerca");
        stage.expect(foundBox("BUONO"), Button::Cancel);
        stage.click("Command12");
        QCOMPARE(stage.cells(), std::string("d51f21b47"));
        QCOMPARE(stage.phrase(), std::string("d51"));
    }

    void everyModeHasItsItemAndHeading()
    {
        Stage stage;
        // The missing sign's item leaves the heading as it is: here, that of the start.
        const std::pair<const char*, const char*> modes[] = {
            {"mancante", "Cerca simile"}, {"Uguale", "Termine presente"}, {"traduci", "Dividi in parole"},
            {"Cerca", "Cerca Simile"},    {"inizia", "Inizia per..."},    {"finisce", "Finisce per..."}};
        for (const auto& [item, heading] : modes) {
            stage.choose(item);
            QCOMPARE(stage.control<QLabel>("Label1")->text(),
                     QStringLiteral("TIPO RICERCA: ") + QLatin1String(heading));
            for (const auto& [other, unused] : modes) {
                QCOMPARE(stage.control<QAction>(other)->isChecked(), other == item);
            }
        }
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
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("pq"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->text(), QStringLiteral("P"));
        QCOMPARE(scroll->value(), 14);
        QCOMPARE(stage.control<SignButton>("tasto(0)")->code(), std::string("p01"));
    }

    void aLargeWindowHasLargeKeysThenCaptionsThenSpace()
    {
        Stage stage;
        const auto* const grid = stage.control<SquareGrid>("palette");
        const std::tuple<QSize, int, int> sizes[] = {
            {{1366, 740}, 84, 0}, {{1920, 1040}, 110, 2}, {{2560, 1400}, 110, 2}, {{1080, 1880}, 110, 2}};
        for (const auto& [size, smallestSide, captionLines] : sizes) {
            stage.form1().resize(size);
            const QRect first = stage.control<QWidget>("tasto(0)")->geometry();
            const QRect last = stage.control<QWidget>(element("tasto", kKeys - 1))->geometry();
            const auto columns = static_cast<std::size_t>(grid->columns());
            const QRect right = stage.control<QWidget>(element("tasto", columns - 1))->geometry();
            const int captions = captionLines * grid->fontMetrics().height();
            QVERIFY2(first.width() >= smallestSide && first.width() <= 110,
                     qPrintable(QString::number(first.width())));
            QCOMPARE(grid->captionLines(), captionLines);
            QVERIFY(right.right() >= grid->width() - 2 && last.bottom() + captions >= grid->height() - 10);
            const int across = stage.control<QWidget>("tasto(1)")->x() - first.right();
            const int down =
                stage.control<QWidget>(element("tasto", columns))->y() - first.bottom() - captions;
            QVERIFY2(across > 0 && down > 0 && std::abs(across - down) < 60,
                     qPrintable(QStringLiteral("%1 %2").arg(across).arg(down)));
        }
    }

    void theDisplayLineScrollsAndLosesTheSelectedSign()
    {
        Stage stage;
        for (int i = 1; i <= 14; ++i) {
            stage.press(signCode(1, static_cast<std::size_t>(i - 1)));
        }
        const std::string end = "a03a04a05a06a07a08a09a10a11a12a13a14";
        const std::string start = "a01a02a03a04a05a06a07a08a09a10a11a12";
        QCOMPARE(stage.cells(), end);
        const std::pair<const char*, std::string> steps[] = {{"Command1", start},
                                                             {"CDX", start.substr(3) + "a13"},
                                                             {"CSX", start},
                                                             {"Command3", end.substr(3)}};
        for (const auto& [button, cells] : steps) {
            stage.click(button);
            QVERIFY2(stage.cells().starts_with(cells.substr(0, 33)), button);
        }
        QVERIFY(!stage.control<QWidget>("Command4")->isEnabled());
        stage.click("Vendol(0)");
        stage.click("Vendol(1)");
        stage.click("Command4");
        QVERIFY(stage.phrase().starts_with("a01a02a03a04a06"));
        QVERIFY(!stage.control<QWidget>("Command4")->isEnabled());
        stage.click("Command8");
        QCOMPARE(stage.cells(), std::string());
    }

    void asksBeforeLeaving()
    {
        Stage stage;
        MessageBox question{.title = "Uscita programma:",
                            .text = "Sei sicuro ?",
                            .icon = Icon::Question,
                            .buttons = Buttons::YesNo,
                            .defaultButton = Button::No};
        stage.expect(question, Button::No);
        stage.form1().close();
        question.icon = Icon::None;
        stage.expect(question, Button::No);
        stage.choose("Esci");
        QVERIFY(stage.form1().isVisible());
        stage.expect(question, Button::Yes);
        stage.choose("Esci");
        QVERIFY(!stage.form1().isVisible());
    }

    void theNoteOfAnEntryOpensItsPicture()
    {
        Stage stage(record("a01", "uomo", "", "*manca.jpg"));
        stage.press("a01");
        stage.choose("Cerca");
        MessageBox box = foundBox("UOMO");
        box.text += "*manca.jpg";
        stage.expect(box);
        stage.expect(kEnd);
        stage.click("Command12");
        auto* const picture = stage.control<QWidget>("imm1");
        QVERIFY(picture->isVisible());
        QCOMPARE(control<QLabel>(picture, "Picture1")->text(),
                 QStringLiteral("Immagine non trovata: manca.jpg"));
        click(picture, "Command1");
        QVERIFY(!picture->isVisible());
    }

    void everyWindowFollowsTheChosenColourAndTheThemeOfTheSystem()
    {
        Stage stage;
        stage.choose("guida");
        // Every window has the colour of the main window, whatever the theme.
        const auto surfaces = [&stage] {
            const QColor window = stage.form1().palette().color(QPalette::Window);
            const auto* const guide = stage.windows().opened<Guide>();
            return std::tuple(window, guide->palette().color(QPalette::Window) == window,
                              stage.control<QWidget>("Picture1")->palette().color(QPalette::Window));
        };
        const auto chosen = surfaces();
        QVERIFY(std::get<1>(chosen));
        const auto choose = [&stage](Colour colour) {
            applyWindowColour(stage.drive().files(), stage.session().colours(), colour);
            emit stage.desktop().changed();
        };
        choose(Colour::rgb(250, 240, 200));
        QCOMPARE(surfaces(), std::tuple(QColor(250, 240, 200), true, std::get<2>(chosen)));
        choose(Colours::kWindowDefault);
        const QPalette before = QApplication::palette();
        // The toolkit tells the windows of a new theme only while its own loop runs.
        const auto takeTheme = [&stage](const QPalette& theme) {
            QApplication::setPalette(theme);
            for (QWidget* const window : QApplication::topLevelWidgets()) {
                QEvent changed(QEvent::ApplicationPaletteChange);
                QApplication::sendEvent(window, &changed);
            }
        };
        QPalette whiteOnBlack(Qt::white, Qt::black);
        whiteOnBlack.setColor(QPalette::WindowText, Qt::white);
        takeTheme(whiteOnBlack);
        QCOMPARE(surfaces(), std::tuple(QColor(Qt::black), true, QColor(Qt::black)));
        takeTheme(QPalette(QColor(60, 60, 60), QColor(30, 30, 30)));
        QCOMPARE(surfaces(), std::tuple(QColor(48, 48, 48), true, std::get<2>(chosen)));
        choose(Colour::rgb(250, 240, 200));
        QCOMPARE(surfaces(), std::tuple(QColor(250, 240, 200), true, std::get<2>(chosen)));
        choose(Colours::kWindowDefault);
        takeTheme(before);
        QCOMPARE(surfaces(), chosen);
    }
};

WINDOW_TESTS(Form1Test)
#include "Form1Test.moc"
