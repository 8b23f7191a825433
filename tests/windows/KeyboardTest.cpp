#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>

#include "windows/GuideWindow.hpp"
#include "windows/PrintingWindow.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// Types into what has the focus, as a person without a mouse does.
void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void type(const char* text)
{
    for (const char letter : std::string_view(text)) {  // the first one may move the focus
        QTest::keyClick(QApplication::focusWidget(), letter);
    }
}

/// What a key can change: the phrase, the page, and the control that has the focus.
QString state(Stage& stage)
{
    return QStringLiteral("%1 %2 %3")
        .arg(qtext(stage.phrase()), QString::number(stage.session().palette().CurrentPage()),
             QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName());
}

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT

  private slots:
    void everyKeyChangesWhatItSays()
    {
        Stage stage;
        stage.activate();
        stage.control<QWidget>("tasto(0)")->setFocus();
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            const char* state;
        } rows[] = {{Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier, " 3 tasto(0)"},
                    {Qt::Key_PageUp, {}, " 2 tasto(0)"},
                    {Qt::Key_PageDown, {}, " 3 tasto(0)"},
                    {Qt::Key_End, {}, " 3 tasto(52)"},
                    {Qt::Key_Left, {}, " 3 tasto(51)"},
                    {Qt::Key_Home, {}, " 3 tasto(0)"},
                    {Qt::Key_Right, {}, " 3 tasto(1)"},
                    {Qt::Key_Return, {}, "c02 3 tasto(1)"},
                    {Qt::Key_Space, {}, "c02c02 3 tasto(1)"},
                    {Qt::Key_Right, {}, "c02c02 3 tasto(2)"},
                    {Qt::Key_Enter, {}, "c02c02c03 3 tasto(2)"},
                    {Qt::Key_Z, Qt::ControlModifier, "c02c02 3 tasto(2)"},
                    {Qt::Key_Enter, {}, "c02c02c03 3 tasto(2)"},
                    {Qt::Key_Backspace, {}, "c02c02 3 tasto(2)"},
                    {Qt::Key_F, Qt::ControlModifier, "c02c02 3 findSign"},
                    {Qt::Key_Backspace, {}, "c02 3 findSign"},  // the empty field leaves it to the phrase
                    {Qt::Key_Z, Qt::ControlModifier, "c02c02 3 findSign"},
                    {Qt::Key_Escape, {}, "c02c02 3 tasto(2)"},
                    {Qt::Key_G, {}, "c02c02 3 findSign"}};
        for (const auto& row : rows) {
            const QString before = state(stage);
            QVERIFY2(before != QLatin1String(row.state), row.state);  // else the key would prove nothing
            key(row.key, row.modifiers);
            QCOMPARE(state(stage), QLatin1String(row.state));
        }
        stage.control<QWidget>("Vendol(0)")->setFocus();
        key(Qt::Key_Space);
        key(Qt::Key_Delete);
        QCOMPARE(stage.phrase(), std::string("c02"));
        stage.control<QWidget>("HScroll1")->setFocus();
        key(Qt::Key_Right);
        QCOMPARE(stage.session().palette().CurrentPage(), std::uint8_t(4));
        key(Qt::Key_Left);
        QCOMPARE(stage.session().palette().CurrentPage(), std::uint8_t(3));
        // In a text field the same keys edit the text.
        auto* const box = stage.control<QLineEdit>("Text1");
        box->setFocus();
        key(Qt::Key_Backspace);
        QVERIFY(box->text().isEmpty());
        QCOMPARE(stage.phrase(), std::string("c02"));
        key(Qt::Key_P, Qt::ControlModifier);
        QVERIFY(stage.windows().opened<form9>() != nullptr);
        stage.activate();
        key(Qt::Key_F1);
        QVERIFY(stage.windows().opened<Guide>() != nullptr);
    }

    void findsAndInsertsSigns()
    {
        Stage stage;
        stage.activate();
        stage.control<QWidget>("tasto(4)")->setFocus();
        auto* const list = stage.control<QListWidget>("foundSigns");
        type("nfr");
        QVERIFY(list->isVisible());
        key(Qt::Key_Return);
        QCOMPARE(stage.phrase(), std::string("d51"));
        auto* const its = stage.control<QWidget>("tasto(50)");  // the key of the sign, on its page
        QCOMPARE(state(stage), QStringLiteral("d51 4 findSign"));
        QVERIFY(!its->accessibleDescription().isEmpty());
        stage.press("d01");
        QVERIFY(its->accessibleDescription().isEmpty());
        stage.choose("undo");
        stage.control<QWidget>("findSign")->setFocus();
        type("m");
        key(Qt::Key_Space);  // the next of several signs with this value
        key(Qt::Key_Return);
        const std::string homophone = stage.phrase().substr(3);
        QVERIFY(homophone != "e16");
        type("m");  // the one used last comes first
        key(Qt::Key_Return);
        QCOMPARE(stage.phrase(), "d51" + homophone + homophone);
        type("uomo seduto");
        QCOMPARE(stage.control<QLineEdit>("findSign")->text(), QStringLiteral("uomo seduto"));
        key(Qt::Key_Down);
        key(Qt::Key_Up);
        key(Qt::Key_Return);
        QCOMPARE(stage.phrase().substr(9), std::string("a01"));
        QVERIFY(!list->isVisible());
    }

    void enterSearches()
    {
        Stage stage(record("e16", "in"));
        stage.activate();
        QVERIFY(stage.control<QWidget>("hint")->isVisible());
        stage.control<QWidget>("tasto(4)")->setFocus();
        type("gufo");
        key(Qt::Key_Return);
        QCOMPARE(stage.phrase(), std::string("e16"));
        QVERIFY(!stage.control<QWidget>("hint")->isVisible());
        for (const char* const place : {"findSign", "Vendol(0)"}) {  // the field is empty now
            stage.activate();
            stage.control<QWidget>(place)->setFocus();
            stage.expect(foundBox("IN"), Button::Cancel);
            key(Qt::Key_Return);
            QVERIFY2(stage.noBoxLeft(), place);
        }
    }

    void altAndArrowsBringPhrasesBackFromEveryControl()
    {
        Stage stage(record("a01", "uno") + record("a02", "due"));
        stage.choose("Uguale");
        for (const char* const sign : {"a01", "a02"}) {
            stage.click("Command8");
            stage.press(sign);
            stage.activate();
            stage.expect(foundBox(sign == std::string("a01") ? "UNO" : "DUE"), Button::Cancel);
            stage.click("Command12");
        }
        for (const char* const place : {"tasto(3)", "Vendol(0)", "findSign", "Text1", "HScroll1"}) {
            stage.activate();
            stage.control<QWidget>(place)->setFocus();
            key(Qt::Key_Left, Qt::AltModifier);
            QCOMPARE(stage.phrase(), std::string("a01"));
            key(Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(stage.phrase(), std::string("a02"));
        }
    }

    void theHistoryListsWhatWasSearchedForAndBringsItBack()
    {
        Stage stage;
        stage.drive().write(kHistoryPath, "3\ta01a02\ntesto\tbirra & pane\n");
        auto* const menu = stage.control<QMenu>("cronologia");
        QCOMPARE(menu->menuAction()->text(), QStringLiteral("Cr&onologia"));
        QVERIFY(stage.control<QMenu>("Ricerca")->actions().constLast() == menu->menuAction());
        for (int times = 0; times < 2; ++times) {  // opened again, it is the same
            menu->popup(QPoint(0, 0));
            QStringList captions;
            for (const QAction* const item : menu->actions()) {
                captions << item->text();
            }
            QCOMPARE(captions.mid(3, 3), (QStringList{"«birra && pane»", "A1-A2 · Cerca simile", QString()}));
            menu->close();
        }
        menu->actions()[4]->trigger();
        QCOMPARE(stage.phrase(), std::string("a01a02"));
        menu->actions()[3]->trigger();
        QCOMPARE(control<QLineEdit>(stage.windows().opened<TrovaParola>(), "TrovaCampo")->text(),
                 QStringLiteral("birra & pane"));
        control<QLineEdit>(stage.windows().opened<TrovaParola>(), "TrovaCampo")->setText("vino");
        stage.windows().opened<TrovaParola>()->close();
        QCOMPARE(stage.session().history().searches().back().text, std::string("vino"));
    }

    void tabStopsOnceInThePalette()
    {
        Stage stage;
        stage.activate();
        stage.control<QWidget>("HScroll1")->setFocus();
        key(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("tasto(0)"));
        key(Qt::Key_End);
        key(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Vendol(0)"));
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("tasto(52)"));
    }

    void f10OpensTheMenus()
    {
        Stage stage;
        stage.activate();
        stage.control<QWidget>("tasto(0)")->setFocus();
        key(Qt::Key_F10);
        for (int menu = 0; menu < 4; ++menu) {
            QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
        }
        QCOMPARE(QApplication::activePopupWidget()->objectName(), QStringLiteral("Ricerca"));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_D);
        QTRY_VERIFY(stage.session().modes().is(Mode::Split));
    }

    void copiesAndPastes()
    {
        Stage stage;
        stage.activate();
        stage.control<QWidget>("tasto(0)")->setFocus();
        QApplication::clipboard()->setText(QStringLiteral("F35-I9-D21-Q99"));
        stage.expect({.title = "Incolla",
                      .text = "Questi segni non sono conosciuti e non sono stati inseriti:\n\nQ99",
                      .icon = Icon::Exclamation});
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(stage.phrase(), std::string("d51f21b47"));
        stage.activate();
        key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("𓄤𓆑𓂋"));
        QCOMPARE(QApplication::clipboard()->mimeData()->data(QStringLiteral("text/x-gardiner")),
                 QByteArray("F35-I9-D21"));
        auto* const field = stage.control<QLineEdit>("findSign");
        field->setFocus();
        const struct {
            const char* text;
            const char* phrase;
            const char* field;
        } rows[] = {{"A1", "d51f21b47a01", ""},
                    {"gufo", "d51f21b47a01", "gufo"},
                    {"A1", "d51f21b47a01", "gufoA1"},
                    {"A1-A2", "d51f21b47a01a01a02", "gufoA1"}};
        for (const auto& row : rows) {
            QApplication::clipboard()->setText(QLatin1String(row.text));
            key(Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(stage.phrase(), std::string(row.phrase));
            QCOMPARE(field->text(), QLatin1String(row.field));
        }
    }

    void theMenuOfASign()
    {
        Stage stage(record("a01b02", "coppia") + record("c03", "altro") + record("b02a01", "coppia inversa"));
        const SignMenu menu(stage.desktop(), stage.windows());
        const auto rightClick = [&stage](const char* name) {
            auto* const sign = stage.control<SignButton>(name);
            QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), sign->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(sign, &click);
        };
        stage.choose("prefins");
        rightClick("Cmd(0)");
        QVERIFY(QApplication::activePopupWidget() == nullptr);
        const auto choose = [&rightClick](Qt::Key item) {
            rightClick("tasto(0)");
            QVERIFY(QApplication::activePopupWidget() != nullptr);
            QTest::keyClick(QApplication::activePopupWidget(), item);
        };
        choose(Qt::Key_I);
        QCOMPARE(stage.phrase(), std::string("a01"));
        choose(Qt::Key_C);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("𓀀"));
        choose(Qt::Key_U);
        QVERIFY(stage.control<QLabel>("VociTitolo")->text().contains(QStringLiteral("2 parole, 2 voci")));
    }
};

WINDOW_TESTS(KeyboardTest)
#include "KeyboardTest.moc"
