#include "windows/Form6.hpp"

#include <QComboBox>
#include <QLabel>
#include <QTabBar>

#include "windows/signs/SignButton.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// The tab in front and the signs below it.
QString shown(const Form6* cards)
{
    const auto* const tabs = control<QTabBar>(cards, "TabStrip1");
    QString text = tabs->tabText(tabs->currentIndex());
    for (std::size_t i = 0; i < kCardSigns; ++i) {
        const auto* const key = control<SignButton>(cards, element("Cmd", i));
        text += key->isVisible() ? QLatin1Char(' ') + qtext(key->code()) : QString();
    }
    return text;
}

void writeCard(const Stage& stage, const std::string& name, const std::string& content)
{
    stage.drive().write("C:\\programmi\\Karvel\\GeroLink\\" + name + ".txt", content);
}

}  // namespace

class Form6Test : public QObject {
    Q_OBJECT

  private slots:
    void cardsAreChosenUsedAndFoundAgain()
    {
        Stage stage;
        writeCard(stage, "speciale", "corta\r\n");
        writeCard(stage, "corta", "b03\r\nb04\r\nb05\r\n");
        auto* cards = stage.open<Form6>("schede");
        QVERIFY(shown(cards).startsWith(QStringLiteral("UOMINI a01 a02 a03")));
        QVERIFY(!control<QAction>(cards, "aggiungi")->isEnabled());
        click(cards, "Cmd(1)");
        QTest::keyClick(control<QWidget>(cards, "Cmd(2)"), Qt::Key_Return);
        QCOMPARE(stage.phrase(), std::string("a02a03"));
        QTest::keyClick(control<QComboBox>(cards, "combo1"), Qt::Key_Down);
        QCOMPARE(shown(cards), QStringLiteral("CORTA b03 b04 b05"));
        control<QWidget>(cards, "Cmd(0)")->setFocus();
        const std::pair<Qt::Key, const char*> steps[] = {{Qt::Key_Right, "Cmd(1)"},
                                                         {Qt::Key_Down, "Cmd(1)"},  // no sign is below it
                                                         {Qt::Key_End, "Cmd(2)"},
                                                         {Qt::Key_Right, "Cmd(2)"},
                                                         {Qt::Key_Home, "Cmd(0)"}};
        for (const auto& [key, reached] : steps) {
            QTest::keyClick(cards->focusWidget(), key);
            QCOMPARE(cards->focusWidget()->objectName(), QLatin1String(reached));
        }
        QTest::keyClick(cards, Qt::Key_Escape);
        QTRY_VERIFY(stage.windows().opened<Form6>() == nullptr);
        cards = stage.open<Form6>("schede");
        QCOMPARE(shown(cards), QStringLiteral("CORTA b03 b04 b05"));
        stage.desktop().handle([&stage] { stage.session().colours().window = Colour::rgb(20, 30, 90); });
        QCOMPARE(cards->palette().color(QPalette::Window), QColor(20, 30, 90));
        QCOMPARE(cards->palette().color(QPalette::WindowText), QColor(255, 255, 255));
    }

    void aCardIsMadeFilledThinnedAndDeleted()
    {
        Stage stage;
        writeCard(stage, "speciale", "altra\r\n");
        writeCard(stage, "altra", "e16\r\n");
        const auto* const cards = stage.open<Form6>("schede");
        const auto choose = [cards](const char* item) { control<QAction>(cards, item)->trigger(); };
        stage.expectInput("Nuova scheda", "prova");
        choose("nuova");
        QCOMPARE(shown(cards), QStringLiteral("PROVA a01"));
        stage.press("a05");
        choose("aggiungi");
        QCOMPARE(shown(cards), QStringLiteral("PROVA a01 a05"));
        QCOMPARE(control<QLabel>(cards, "segniDellaScheda")->text(), QStringLiteral("2 segni su 48"));
        MessageBox question{.title = "Domanda di sistema:",
                            .text = "Elimino il geroglifico, presente sul display, alla scheda [PROVA] ?",
                            .icon = Icon::Question,
                            .buttons = Buttons::OkCancel};
        stage.expect(question);
        choose("elimina");
        QCOMPARE(shown(cards), QStringLiteral("PROVA a01"));
        question.text = "Elimino la scheda [PROVA] ?";
        question.defaultButton = Button::Cancel;
        stage.expect(question);
        choose("eliminascheda");
        QCOMPARE(shown(cards), QStringLiteral("ALTRA e16"));
        QCOMPARE(control<QComboBox>(cards, "combo1")->count(), 1);
        QCOMPARE(control<QTabBar>(cards, "TabStrip1")->count(), 2);
    }

    void anyContentOfTheFilesIsShown()
    {
        Stage stage;
        std::string many;
        for (int i = 0; i < 60; ++i) {
            many += "a01\r\n";
        }
        writeCard(stage, "speciale", "strana\r\ntanti & troppi\r\n");
        writeCard(stage, "strana", "b03,\"b04\"\r\nnessun codice\r\n");
        writeCard(stage, "tanti & troppi", many);
        const auto* const cards = stage.open<Form6>("schede");
        auto* const tabs = control<QTabBar>(cards, "TabStrip1");
        tabs->setCurrentIndex(1);
        QCOMPARE(shown(cards), QStringLiteral("STRANA b03 b04 ?"));
        const auto* const unknown = control<QWidget>(cards, "Cmd(2)");
        QVERIFY(!unknown->isEnabled() && unknown->toolTip().contains(QStringLiteral("nessun codice")));
        tabs->setCurrentIndex(2);
        QCOMPARE(control<QLabel>(cards, "segniDellaScheda")->text(),
                 QStringLiteral("60 segni, se ne vedono 48"));
        QVERIFY(shown(cards).startsWith(QStringLiteral("TANTI && TROPPI a01")));
    }
};

WINDOW_TESTS(Form6Test)
#include "Form6Test.moc"
