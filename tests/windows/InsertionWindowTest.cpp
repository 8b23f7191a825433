#include <QClipboard>
#include <QLineEdit>

#include "windows/InsertionWindow.hpp"
#include "windows/signs/PhraseStrip.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

class InsertionWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void anEntryIsTypedAndFound()
    {
        Stage stage(record("b02", "due"));
        stage.expect({.title = "ERRORE", .text = "NON HAI SCRITTO NULLA !", .icon = Icon::Question});
        stage.click("Command9");
        QVERIFY(stage.windows().opened<Inserimento>() == nullptr);
        stage.press("a01");
        stage.click("Command9");
        const auto* const dialog = stage.windows().opened<Inserimento>();
        QVERIFY(!dialog->isModal());
        stage.press("a02");  // the display goes on while the dialog is open
        QCOMPARE(dialog->findChild<PhraseStrip*>()->codes(), std::string("a01a02"));
        control<QLineEdit>(dialog, "Text1")->insert(QStringLiteral("perche\u0301"));  // in two characters
        auto* const second = control<QLineEdit>(dialog, "Text2");
        QApplication::clipboard()->setText(QStringLiteral("ꜥn\u1e2b"));  // from a page, with marks
        second->setText(QStringLiteral(".t"));
        second->setCursorPosition(0);
        second->paste();
        QCOMPARE(second->text(), QStringLiteral("anx.t"));
        QTest::keyClicks(second, QStringLiteral("=i"));
        QTest::keyClick(second, Qt::Key_Return);
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
        QCOMPARE(stage.drive().read("C:\\programmi\\Karvel\\dizio.txt"),
                 record("b02", "due") + "\"a01a02\"\r\n\"perch\xE9\"\r\n\"anx=i.t\"\r\n\"\"\r\n");
        QCOMPARE(stage.form1().focusWidget(), stage.control<QWidget>("Vendol(0)"));
        stage.click("Command9");
        const auto* const again = stage.windows().opened<Inserimento>();
        QVERIFY(control<QLineEdit>(again, "Text1")->text().isEmpty());
        QTest::keyClicks(control<QLineEdit>(again, "Text1"), QStringLiteral("altro"));
        stage.expect({.title = "ERRORE", .text = "Questa parola esiste già !"});
        click(again, "Command1");
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
    }

    void aRefusalKeepsWhatWasTyped()
    {
        Stage stage;
        stage.press("a01");
        stage.click("Command9");
        auto* const dialog = stage.windows().opened<Inserimento>();
        auto* const note = control<QLineEdit>(dialog, "Text3");
        QTest::keyClicks(control<QLineEdit>(dialog, "Text1"), QStringLiteral("casa"));
        QTest::keyClicks(note, QStringLiteral("la \"mia\""));
        stage.expect(
            {.title = "ATTENZIONE",
             .text = "Non è possibile utilizzare le virgolette nella frase.\n\nSostituirle con parentesi.",
             .icon = Icon::Exclamation});
        click(dialog, "Command1");
        QVERIFY(dialog->isVisible() && dialog->focusWidget() == note);
        QTest::keyClick(dialog, Qt::Key_Escape);  // one key does not throw an entry away
        QVERIFY(dialog->isVisible());
        QCOMPARE(note->text(), QStringLiteral("la \"mia\""));
        click(dialog, "Command2");
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
        stage.click("Command9");
        QTest::keyClick(stage.windows().opened<Inserimento>(), Qt::Key_Escape);  // nothing is typed
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
    }
};

WINDOW_TESTS(InsertionWindowTest)
#include "InsertionWindowTest.moc"
