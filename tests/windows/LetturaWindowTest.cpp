#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>

#include "windows/LetturaWindow.hpp"
#include "windows/ReadingLines.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

class LetturaWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void aPassageIsReadCorrectedSavedAndOpened()
    {
        Stage stage(record("f22c18", "dire", "Dd") + record("h11", "a", "n") + record("h11", "di", "n.i") +
                    record("h18o35", "casa", "pr"));
        stage.drive().write("C:\\programmi\\Karvel\\lettura.txt", "");
        auto* const window = stage.open<Lettura>("lettura");
        auto* const text = control<QPlainTextEdit>(window, "LetturaTesto");
        auto* const lines = control<ReadingLines>(window, "LetturaRighe");
        const auto* const meaning = control<QPlainTextEdit>(window, "LetturaTraduzione");
        text->setPlainText(QStringLiteral("f22c18 zz h11\nh18o35"));
        click(window, "LetturaLeggi");
        QCOMPARE(meaning->toPlainText(), QStringLiteral("dire | a\ncasa"));
        QVERIFY(control<QLabel>(window, "LetturaNonCompreso")
                    ->text()
                    .contains(QStringLiteral("«zz» (riga 1, carattere 8)")));
        QVERIFY(lines->place(2).top() > lines->place(0).bottom());  // line breaks are kept
        QTest::keyClick(lines, Qt::Key_Down);
        QVERIFY(lines->accessibleName().contains(QStringLiteral("lettura pr; significato casa")));
        QTest::keyClick(lines, Qt::Key_Left);
        QTest::keyClick(lines, Qt::Key_Space);
        QCOMPARE(meaning->toPlainText(), QStringLiteral("dire | di\ncasa"));
        const std::string saved = "C:\\programmi\\Karvel\\brano.karvel-lettura";
        window->saveTo(saved);
        window->saveTo(saved + ".HTML");
        QVERIFY(stage.drive().files().readAll(saved + ".HTML").find("<svg ") != std::string::npos);
        QTest::keyClick(lines, Qt::Key_Return);
        control<QAction>(window, "LetturaUnisci")->trigger();
        QCOMPARE(lines->current(), std::size_t(1));
        QVERIFY(!lines->place(1).isEmpty() && lines->place(2).isEmpty());
        const MessageBox unsaved{.title = "Lettura",
                                 .text = "Le scelte fatte a mano non sono salvate.\n\nChiudere lo stesso ?",
                                 .icon = Icon::Question,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Button::No};
        stage.expect(unsaved, Button::No);
        window->close();
        QVERIFY(window->isVisible());
        stage.expect({.title = "Uscita programma:",
                      .text = "Sei sicuro ?",
                      .icon = Icon::Question,
                      .buttons = Buttons::YesNo,
                      .defaultButton = Button::No},
                     Button::Yes);
        stage.expect(unsaved, Button::No);
        stage.form1().close();
        QVERIFY(stage.form1().isVisible());
        for (QMenu* const menu : window->findChildren<QMenu*>(QStringLiteral("LetturaMenu"))) {
            menu->close();  // Qt 6.8 has closed it already
        }
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(lines, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(meaning->toPlainText(), QStringLiteral("dire | di\ncasa"));
        stage.drive().files().replace(saved + "2.karvel-lettura", "karvel-brano 1\n");
        stage.expect({.title = "Lettura",
                      .text = saved +
                              "2.karvel-lettura\nè danneggiato o non è una lettura salvata da Karvel.\n\n"
                              "La lettura aperta resta com'era.",
                      .icon = Icon::Exclamation});
        window->openFrom(saved + "2.karvel-lettura");
        QCOMPARE(meaning->toPlainText(), QStringLiteral("dire | di\ncasa"));
        stage.press("h11");
        click(window, "LetturaDallaFrase");
        QCOMPARE(text->toPlainText(), QStringLiteral("h11"));
        window->openFrom(saved);
        QCOMPARE(text->toPlainText(), QStringLiteral("f22c18 zz h11\nh18o35"));
        QCOMPARE(meaning->toPlainText(), QStringLiteral("dire | di\ncasa"));
        window->close();
        QTRY_VERIFY(stage.windows().opened<Lettura>() == nullptr);
    }
};

WINDOW_TESTS(LetturaWindowTest)
#include "LetturaWindowTest.moc"
