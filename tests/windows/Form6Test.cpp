#include "windows/Form6.hpp"

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTabBar>

#include "windows/signs/SignButton.hpp"
#include "windows/support/Stage.hpp"
#include "windows/support/Theme.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kDirectory = "C:\\programmi\\Karvel\\GeroLink\\";

/// The cards window as a person uses it.
class Cards {
  public:
    explicit Cards(Stage& stage) : stage_(stage)
    {
        stage.choose("schede");
        window_ = stage.windows().opened<Form6>();
    }

    template <typename Control>
    [[nodiscard]] Control* control(const QString& name)
    {
        auto* const found = window_->findChild<Control*>(name);
        if (found == nullptr) {
            qFatal("no control called %s", qPrintable(name));
        }
        return found;
    }

    [[nodiscard]] Form6& window() { return *window_; }
    void choose(const char* item) { control<QAction>(QLatin1String(item))->trigger(); }
    void click(std::size_t key) { QTest::mouseClick(control<QWidget>(element("Cmd", key)), Qt::LeftButton); }
    /// Clicks the tab, scrolled into sight as a person would.
    void openTab(int tab) { control<QTabBar>(QStringLiteral("TabStrip1"))->setCurrentIndex(tab); }

    /// The tab in front and the signs below it.
    [[nodiscard]] QString shown()
    {
        const auto* const tabs = control<QTabBar>(QStringLiteral("TabStrip1"));
        QString text = tabs->tabText(tabs->currentIndex());
        for (std::size_t i = 0; i < kCardSigns; ++i) {
            const auto* const key = control<SignButton>(element("Cmd", i));
            if (key->isVisible()) {
                text += QLatin1Char(' ') + qtext(key->code());
            }
        }
        return text;
    }

    void close() { QTest::keyClick(window_, Qt::Key_Escape); }

  private:
    Stage& stage_;
    QPointer<Form6> window_;
};

void writeCards(const Stage& stage, const std::string& list,
                const std::vector<std::pair<std::string, std::string>>& cards)
{
    stage.drive().write(std::string(kDirectory) + "speciale.txt", list);
    for (const auto& [name, content] : cards) {
        stage.drive().write(std::string(kDirectory) + name + ".txt", content);
    }
}

}  // namespace

class TestForm6 : public QObject {
    Q_OBJECT

  private slots:
    void opensOnTheFirstCardAndReopensTheLastOne()
    {
        Stage stage;
        {
            Cards cards(stage);
            QCOMPARE(cards.window().windowTitle(), QStringLiteral("Schede"));
            QVERIFY(cards.shown().startsWith(QStringLiteral("UOMINI a01 a02 a03")));
            QVERIFY(!cards.control<QAction>(QStringLiteral("aggiungi"))->isEnabled());
            auto* const combo = cards.control<QComboBox>(QStringLiteral("combo1"));
            QCOMPARE(combo->itemText(0), QStringLiteral("Donne"));
            QVERIFY(combo->count() >= 8);
            combo->setFocus();
            QTest::keyClick(combo, Qt::Key_Down);
            QTest::keyClick(combo, Qt::Key_Down);
            QVERIFY(cards.shown().startsWith(QStringLiteral("DEI a40 b10")));
            cards.close();
        }
        QTRY_VERIFY(stage.windows().opened<Form6>() == nullptr);
        Cards cards(stage);
        QVERIFY(cards.shown().startsWith(QStringLiteral("DEI a40 b10")));
        cards.openTab(0);
        QVERIFY(cards.shown().startsWith(QStringLiteral("UOMINI a01")));
    }

    void aSignGoesToTheDisplayAsFromThePalette()
    {
        Stage stage;
        Cards cards(stage);
        cards.click(1);
        QTest::keyClick(cards.control<QWidget>(element("Cmd", 2)), Qt::Key_Return);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a02a03"));
        QCOMPARE(stage.control<QLabel>("Panel(3)")->text(), QStringLiteral("Codice: a03"));
        stage.choose("undo");
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a02"));
    }

    void theArrowKeysMoveAmongTheSignsOfTheCard()
    {
        Stage stage;
        writeCards(stage, "corta\r\n", {{"corta", "b03\r\nb04\r\nb05\r\n"}});
        Cards cards(stage);
        cards.openTab(1);
        const auto focused = [&cards] { return cards.window().focusWidget()->objectName(); };
        cards.control<QWidget>(element("Cmd", 0))->setFocus();
        const std::pair<Qt::Key, std::size_t> steps[] = {
            {Qt::Key_Right, 1}, {Qt::Key_Down, 1}, {Qt::Key_End, 2}, {Qt::Key_Right, 2}, {Qt::Key_Home, 0}};
        for (const auto& [key, reached] : steps) {
            QTest::keyClick(cards.window().focusWidget(), key);
            QCOMPARE(focused(), element("Cmd", reached));
        }
    }

    void cardsShowTheInstallationsImages()
    {
        Stage stage;
        stage.session().images().setGlyphDirectory("C:\\altrove");
        Cards cards(stage);
        QCOMPARE(cards.control<SignButton>(element("Cmd", 0))->picturePath(),
                 std::string("C:\\programmi\\Karvel\\GR\\a01.gif"));
    }

    void makesFillsThinsAndDeletesACard()
    {
        Stage stage;
        writeCards(stage, "altra\r\n", {{"altra", "e16\r\n"}});
        const auto attention = [](const std::string& text) {
            return MessageBox{.title = "Attenzione:", .text = text, .icon = Icon::Exclamation};
        };
        Cards cards(stage);
        stage.expectInput("Nuova scheda", "prova");
        cards.choose("nuova");
        QCOMPARE(cards.shown(), QStringLiteral("PROVA a01"));
        stage.press("a05");
        for (int i = 1; i < 48; ++i) {
            cards.choose("aggiungi");
        }
        QCOMPARE(cards.control<QLabel>(QStringLiteral("room"))->text(), QStringLiteral("48 segni su 48"));
        stage.expect(
            attention("La scheda [PROVA] è già piena \rPer aggiungere un geroglifico è neccessario "
                      "eliminarne almeno uno !"));
        cards.choose("aggiungi");

        MessageBox question{.title = "Domanda di sistema:",
                            .text = "Elimino il geroglifico, presente sul display, alla scheda [PROVA] ?",
                            .icon = Icon::Question,
                            .buttons = Buttons::OkCancel};
        stage.expect(question, Button::Ok);
        cards.choose("elimina");
        QCOMPARE(cards.shown(), QStringLiteral("PROVA a01"));
        stage.expect(
            attention("La scheda [PROVA] contiene un solo geroglifico. \rNon posso lasciare la "
                      "scheda vuota !\rAggiungere prima un geroglifico e poi eliminare il presente."));
        cards.choose("elimina");

        question.text = "Elimino la scheda [PROVA] ?";
        question.defaultButton = Button::Cancel;
        stage.expect(question, Button::Ok);
        cards.choose("eliminascheda");
        QCOMPARE(cards.shown(), QStringLiteral("ALTRA e16"));
        QCOMPARE(cards.control<QComboBox>(QStringLiteral("combo1"))->count(), 1);
        QCOMPARE(cards.control<QTabBar>(QStringLiteral("TabStrip1"))->count(), 2);
        stage.expect(
            attention("Attenzione non è possibile eliminare questa scheda poichè è l'unica \rProcedere "
                      "aggiungendo una nuova scheda e successivamente cancellare questa."));
        cards.choose("eliminascheda");
        QVERIFY(stage.noBoxLeft());
    }

    void showsWhateverAFileHolds()
    {
        Stage stage;
        std::string many;
        for (int i = 0; i < 60; ++i) {
            many += "a01\r\n";
        }
        writeCards(stage, "strana\r\ntanti & troppi\r\nvia\r\n",
                   {{"strana", "b03,\"b04\"\r\nnessun codice\r\n..\\x\r\n"}, {"tanti & troppi", many}});
        Cards cards(stage);
        cards.openTab(1);
        QCOMPARE(cards.shown(), QStringLiteral("STRANA b03 b04 ? ?"));
        QVERIFY(!cards.control<QWidget>(element("Cmd", 2))->isEnabled());
        QVERIFY(
            cards.control<QWidget>(element("Cmd", 2))->toolTip().contains(QStringLiteral("nessun codice")));
        cards.openTab(2);
        QCOMPARE(cards.control<QLabel>(QStringLiteral("room"))->text(),
                 QStringLiteral("60 segni, se ne vedono 48"));
        QVERIFY(cards.shown().startsWith(QStringLiteral("TANTI && TROPPI a01")));

        // A card deleted behind the window's back leaves the list if the user wants so.
        stage.expect(
            {.title = "Attenzione:",
             .text = "Il file della scheda [VIA] non c'è più.\rTolgo il nome dall'elenco delle schede ?",
             .icon = Icon::Exclamation,
             .buttons = Buttons::YesNo,
             .defaultButton = Button::No},
            Button::Yes);
        cards.openTab(3);
        QVERIFY(cards.shown().startsWith(QStringLiteral("UOMINI")));
        QCOMPARE(cards.control<QTabBar>(QStringLiteral("TabStrip1"))->count(), 3);
        QVERIFY(stage.noBoxLeft());
    }

    void takesTheWindowColour()
    {
        Stage stage;
        Cards cards(stage);
        stage.desktop().handle([&stage] { stage.session().colours().window = Colour::rgb(20, 30, 90); });
        QCOMPARE(cards.window().palette().color(QPalette::Window), QColor(20, 30, 90));
        QCOMPARE(cards.window().palette().color(QPalette::WindowText), QColor(255, 255, 255));
    }
};

QTEST_MAIN(TestForm6)
#include "Form6Test.moc"
