#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>

#include "windows/ItalianWindow.hpp"
#include "windows/WordBox.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const MessageBox kGoOn{.title = "Ricerca italiano-geroglifico",
                       .text = "Continua la ricerca",
                       .icon = Icon::Exclamation,
                       .buttons = Buttons::OkCancel};

MessageBox found(const std::string& translation)
{
    return {.title = "Traduzione",
            .text = "1) -  " + translation + "\n\n2) -  \n\nNote: ",
            .buttons = Buttons::OkCancel};
}

std::string dictionary()
{
    return record("a01", "uomo") + record("h18", "casa") + record("h19", "Casa") + record("b02", "città");
}

italiano* openWindow(Stage& stage)
{
    stage.click("Command12");  // nothing is composed
    return stage.windows().opened<italiano>();
}

WordBox* words(const italiano* window)
{
    return window->findChild<WordBox*>(QStringLiteral("combo1"));
}

void pressButton(const italiano* window, const char* name)
{
    QTest::mouseClick(window->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
}

/// What the list of matches offers for what is typed.
QStringList offered(const WordBox* box)
{
    QStringList matches;
    const QAbstractItemModel* const model = box->completer()->popup()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        matches.append(model->index(row, 0).data().toString());
    }
    return matches;
}

}  // namespace

class TestItalianWindow : public QObject {
    Q_OBJECT

  private slots:
    void opensWithTheFoldedListForAnEmptyDisplay()
    {
        Stage stage(dictionary());
        italiano* const window = openWindow(stage);
        QVERIFY(window != nullptr && !window->isModal());
        QStringList list;
        for (int i = 0; i < words(window)->count(); ++i) {
            list.append(words(window)->itemText(i));
        }
        QCOMPARE(list, QStringList({"casa", "città", "uomo", ""}));
        QVERIFY(words(window)->currentText().isEmpty());

        stage.drive().write("C:\\programmi\\Karvel\\dizio.txt", record("a01", "nuovo"));
        QCOMPARE(words(window)->count(), 4);  // rebuilt only when it is opened again
        QCOMPARE(openWindow(stage), window);
        QCOMPARE(words(window)->count(), 2);
    }

    void typingFindsAWordAndEnterSearchesOnce()
    {
        Stage stage(dictionary());
        italiano* const window = openWindow(stage);
        QLineEdit* const line = words(window)->lineEdit();
        QTest::keyClicks(line, QStringLiteral("CITTA"));
        QTRY_VERIFY(words(window)->completer()->popup()->isVisible());
        QCOMPARE(offered(words(window)), QStringList({"città"}));
        line->clear();
        QTest::keyClicks(line, QStringLiteral("casa"));
        QTRY_VERIFY(words(window)->completer()->popup()->isVisible());
        stage.expect(found("casa"));
        stage.expect(kGoOn);
        QTest::keyClick(words(window)->completer()->popup(), Qt::Key_Return);
        QTRY_VERIFY(stage.noBoxLeft());
        QVERIFY(!words(window)->completer()->popup()->isVisible());
        QCOMPARE(stage.control<SignCell>("Vendol(0)")->cell().code, std::string("h18"));

        stage.expect(found("casa"));
        stage.expect(kGoOn);
        QTest::keyClick(line, Qt::Key_Return);
        QVERIFY(stage.noBoxLeft());
        QTest::keyClick(line, Qt::Key_Tab);  // leaving the box is no choice
        QCoreApplication::processEvents();
        QVERIFY(stage.noBoxLeft());
    }

    void aClickInTheListSearchesAtOnce()
    {
        Stage stage(dictionary());
        italiano* const window = openWindow(stage);
        QTest::keyClick(words(window), Qt::Key_Down);  // opens the list, chooses nothing
        QAbstractItemView* const list = words(window)->view();
        QTRY_VERIFY(list->isVisible());
        const QModelIndex third = words(window)->model()->index(2, 0);
        stage.expect(found("uomo"));
        stage.expect(kGoOn);
        const QPoint middle = list->visualRect(third).center();
        QTest::mouseMove(list->viewport(), middle);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
        QTRY_VERIFY(stage.noBoxLeft());
        QCOMPARE(words(window)->currentText(), QStringLiteral("uomo"));
        QCOMPARE(stage.control<SignCell>("Vendol(0)")->cell().code, std::string("a01"));
    }

    void aCancelledSpecificSearchIsClosedByAnnulla()
    {
        Stage stage(dictionary());
        italiano* window = openWindow(stage);
        stage.expectInput("CERCA", "cas");
        stage.expect(found("CASA"));
        stage.expect(kGoOn, Button::Cancel);
        pressButton(window, "Command3");
        stage.expect({.title = "Karvel",
                      .text = "Errore di run-time '55':\n\nFile già aperto\n"
                              "Premere ANNULLA per chiudere la ricerca in corso.",
                      .icon = Icon::Critical});
        pressButton(window, "Command1");
        pressButton(window, "Command2");
        QTRY_VERIFY(stage.windows().opened<italiano>() == nullptr);
        window = openWindow(stage);
        pressButton(window, "Command1");  // finds no empty translation, and is not refused
        QVERIFY(stage.noBoxLeft());
    }

    void staysQuickWithAHundredThousandWords()
    {
        std::string large;
        for (int i = 0; i < 100'000; ++i) {
            large += record("a01", "parola " + std::to_string(i));
        }
        Stage stage(large);
        italiano* const window = openWindow(stage);
        QCOMPARE(words(window)->count(), 100'001);
        QTest::keyClicks(words(window)->lineEdit(), QStringLiteral("Parola 99999"));
        QTRY_COMPARE(offered(words(window)), QStringList({"parola 99999"}));
    }
};

QTEST_MAIN(TestItalianWindow)
#include "ItalianWindowTest.moc"
