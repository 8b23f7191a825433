#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>

#include "windows/ItalianWindow.hpp"
#include "windows/WordBox.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const MessageBox kGoOn{.title = "Ricerca italiano-geroglifico",
                       .text = "Continua la ricerca",
                       .icon = Icon::Exclamation,
                       .buttons = Buttons::OkCancel};

italiano* openWindow(Stage& stage)
{
    stage.click("Command12");  // nothing is composed
    return stage.windows().opened<italiano>();
}

QStringList lines(const QAbstractItemModel* model)
{
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) {
        all.append(model->index(row, 0).data().toString());
    }
    return all;
}

}  // namespace

class ItalianWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void aWordIsTypedOrClickedAndSearchedForOnce()
    {
        Stage stage(record("a01", "uomo") + record("h18", "casa") + record("h19", "Casa") +
                    record("b02", "città"));
        const italiano* const window = openWindow(stage);
        auto* const words = control<WordBox>(window, "combo1");
        QCOMPARE(lines(words->model()), QStringList({"casa", "città", "uomo", ""}));
        QLineEdit* const line = words->lineEdit();
        QAbstractItemView* const matches = words->completer()->popup();
        QTest::keyClicks(line, QStringLiteral("CITTA"));
        QTRY_VERIFY(matches->isVisible());
        QCOMPARE(lines(matches->model()), QStringList({"città"}));
        line->clear();
        QTest::keyClicks(line, QStringLiteral("casa"));
        QTRY_VERIFY(matches->isVisible());
        for (QWidget* const place : {static_cast<QWidget*>(matches), static_cast<QWidget*>(line)}) {
            stage.expect(foundBox("casa"));
            stage.expect(kGoOn);
            QTest::keyClick(place, Qt::Key_Return);
            QTRY_VERIFY(stage.noBoxLeft());
            QCOMPARE(stage.cells(), std::string("h18"));
            QVERIFY(!matches->isVisible());
        }
        QTest::keyClick(line, Qt::Key_Tab);  // leaving the box is no choice

        QTest::keyClick(words, Qt::Key_Down);  // opens the list, chooses nothing
        QAbstractItemView* const list = words->view();
        QTRY_VERIFY(list->isVisible());
        const QPoint third = list->visualRect(words->model()->index(2, 0)).center();
        stage.expect(foundBox("uomo"));
        stage.expect(kGoOn);
        QTest::mouseMove(list->viewport(), third);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third);
        QTRY_VERIFY(stage.noBoxLeft());
        QCOMPARE(words->currentText(), QStringLiteral("uomo"));
        QCOMPARE(stage.cells(), std::string("a01"));

        stage.drive().write("C:\\programmi\\Karvel\\dizio.txt", record("a01", "nuovo"));
        QCOMPARE(words->count(), 4);
        QCOMPARE(openWindow(stage), window);  // opened again, it reads its words again
        QCOMPARE(words->count(), 2);
    }

    void theSignsOfTheEntryFoundLastAreUsedWhole()
    {
        std::string signs = "a01a02a03a04a05a06a07a08a09a10a11a12a13a14";
        Stage stage(record(signs, "casa") + record("b01", "altro"));
        const italiano* const window = openWindow(stage);
        auto* const use = control<QPushButton>(window, "use");
        QVERIFY(!use->isEnabled());
        stage.expectInput("CERCA", "cas");
        stage.expect(foundBox("CASA"));
        stage.expect(kGoOn);
        stage.expect({.title = "SISTEMA:", .text = "Fine ricerca !", .icon = Icon::Exclamation});
        click(window, "Command3");
        QVERIFY(use->isEnabled());
        use->click();
        QCOMPARE(stage.phrase(), signs);
        for (int times = 1; times < 6; ++times) {
            use->click();
        }
        stage.expect(
            {.title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical});
        use->click();
        QCOMPARE(stage.phrase().size(), std::size_t(84 * 3));
    }

    void aCancelledSpecificSearchIsClosedByAnnulla()
    {
        Stage stage(record("h18", "casa"));
        const italiano* window = openWindow(stage);
        stage.expectInput("CERCA", "cas");
        stage.expect(foundBox("CASA"));
        stage.expect(kGoOn, Button::Cancel);
        click(window, "Command3");
        QCOMPARE(window->focusWidget(), control<WordBox>(window, "combo1"));
        stage.expect({.title = "Karvel",
                      .text = "Errore di run-time '55':\n\nFile già aperto\n"
                              "Premere ANNULLA per chiudere la ricerca in corso.",
                      .icon = Icon::Critical});
        click(window, "Command1");
        QVERIFY(stage.noBoxLeft());
        click(window, "Command2");
        QTRY_VERIFY(stage.windows().opened<italiano>() == nullptr);
        window = openWindow(stage);
        click(window, "Command1");  // finds no empty translation, and is not refused
    }
};

WINDOW_TESTS(ItalianWindowTest)
#include "ItalianWindowTest.moc"
