#include <QLineEdit>

#include "windows/InsertionWindow.hpp"
#include "windows/signs/PhraseStrip.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const MessageBox kQuotes{
    .title = "ATTENZIONE",
    .text = "Non è possibile utilizzare le virgolette nella frase.\n\nSostituirle con parentesi.",
    .icon = Icon::Exclamation};

/// Opens the dialog for the sign `code` as a person does.
Inserimento* openFor(Stage& stage, const std::string& code)
{
    stage.press(code);
    stage.click("Command9");
    return stage.windows().opened<Inserimento>();
}

QLineEdit* line(const Inserimento* dialog, const char* name)
{
    return dialog->findChild<QLineEdit*>(QLatin1String(name));
}

void pressButton(const Inserimento* dialog, const char* name)
{
    QTest::mouseClick(dialog->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
}

}  // namespace

class TestInsertionWindow : public QObject {
    Q_OBJECT

  private slots:
    void doesNotOpenWithoutSigns()
    {
        Stage stage;
        stage.expect({.title = "ERRORE", .text = "NON HAI SCRITTO NULLA !", .icon = Icon::Question});
        stage.click("Command9");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(stage.windows().opened<Inserimento>() == nullptr);
    }

    void addsWhatIsTypedForTheSignsOfTheMomentAndTheSearchFindsIt()
    {
        Stage stage(record("b02", "due"));
        Inserimento* const dialog = openFor(stage, "a01");
        QVERIFY(dialog != nullptr && !dialog->isModal());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Inserimento nel dizionario."));
        stage.press("a02");  // the display goes on while the dialog is open
        QCOMPARE(dialog->findChild<PhraseStrip*>()->codes(), std::string("a01a02"));
        line(dialog, "Text1")->insert(QStringLiteral("perche\u0301"));  // pasted in two characters
        QTest::keyClicks(line(dialog, "Text2"), QStringLiteral("=i"));
        QTest::keyClick(line(dialog, "Text2"), Qt::Key_Return);
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
        QCOMPARE(stage.drive().read("C:\\programmi\\Karvel\\dizio.txt"),
                 record("b02", "due") + "\"a01a02\"\r\n\"perch\xE9\"\r\n\"=i\"\r\n\"\"\r\n");

        stage.choose("Uguale");
        stage.expect({.title = "Traduzione",
                      .text = "1) -  PERCHÉ\n\n2) -  =i\n\nNote: ",
                      .buttons = Buttons::OkCancel},
                     Button::Cancel);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
    }

    void keepsWhatWasTypedWhenItIsRefusedOrCannotBeWritten()
    {
        Stage stage;
        Inserimento* const dialog = openFor(stage, "a01");
        QTest::keyClicks(line(dialog, "Text1"), QStringLiteral("casa"));
        QTest::keyClicks(line(dialog, "Text3"), QStringLiteral("la \"mia\""));
        stage.expect(kQuotes);
        pressButton(dialog, "Command1");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(dialog->isVisible() && dialog->focusWidget() == line(dialog, "Text3"));

        line(dialog, "Text3")->setText(QStringLiteral("la mia"));
        std::filesystem::remove(stage.drive().host("C:\\programmi\\Karvel\\dizio.txt"));
        stage.expect({.title = "ERRORE",
                      .text = "C'e' un errore nel file dizio.txt ERR>53\nFile non trovato\n"
                              "Ci sono caratteri in meno o in più nel file !",
                      .icon = Icon::Critical});
        pressButton(dialog, "Command1");
        QVERIFY(stage.noBoxLeft());
        QTest::keyClick(dialog, Qt::Key_Escape);  // one key does not throw an entry away
        QVERIFY(dialog->isVisible());
        QCOMPARE(line(dialog, "Text1")->text(), QStringLiteral("casa"));
        QCOMPARE(line(dialog, "Text3")->text(), QStringLiteral("la mia"));
        pressButton(dialog, "Command2");
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
    }

    void closesOnADuplicateAndOpensEmptyAgain()
    {
        Stage stage(record("a01", "uno"));
        Inserimento* const dialog = openFor(stage, "a01");
        QTest::keyClicks(line(dialog, "Text1"), QStringLiteral("altro"));
        stage.expect({.title = "ERRORE", .text = "Questa parola esiste già !"});
        pressButton(dialog, "Command1");
        QVERIFY(stage.noBoxLeft());
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
        stage.click("Command9");
        auto* const again = stage.windows().opened<Inserimento>();
        QVERIFY(line(again, "Text1")->text().isEmpty());
        QTest::keyClick(again, Qt::Key_Escape);
        QTRY_VERIFY(stage.windows().opened<Inserimento>() == nullptr);
    }
};

QTEST_MAIN(TestInsertionWindow)
#include "InsertionWindowTest.moc"
