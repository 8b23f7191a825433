#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QTableWidget>

#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// Types into whatever has the focus, as a person without a mouse does.
void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void type(const char* text)
{
    QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text));
}

QString focused()
{
    return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
}

}  // namespace

class TestKeyboard : public QObject {
    Q_OBJECT

  private slots:
    void findsAndInsertsSigns()
    {
        Stage stage;
        activate(stage);
        stage.control<QWidget>("tasto(4)")->setFocus();
        key(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(focused(), QStringLiteral("findSign"));
        auto* const list = stage.control<QListWidget>("foundSigns");
        type("nfr");
        QVERIFY(list->isVisible());
        key(Qt::Key_Return);
        type("m");
        key(Qt::Key_Space);
        key(Qt::Key_Return);
        const std::string homophone = stage.session().display().DisplayCodes().substr(3);
        QVERIFY(homophone != "e16");
        type("m");
        QCOMPARE(list->currentRow(), 0);
        key(Qt::Key_Return);
        QCOMPARE(stage.session().display().DisplayCodes(), "d51" + homophone + homophone);
        type("uomo seduto");
        QCOMPARE(stage.control<QLineEdit>("findSign")->text(), QStringLiteral("uomo seduto"));
        key(Qt::Key_Down);
        key(Qt::Key_Up);
        key(Qt::Key_Return);
        QCOMPARE(stage.session().display().DisplayCodes().substr(9), std::string("a01"));
        key(Qt::Key_Escape);
        QCOMPARE(focused(), QStringLiteral("tasto(4)"));
        QVERIFY(!list->isVisible());
    }

    void whoJustTypesFindsASignAndSearches()
    {
        Stage stage(record("e16", "in", "m", "preposizione"));
        activate(stage);
        QVERIFY(stage.control<QWidget>("hint")->isVisible());
        stage.control<QWidget>("tasto(4)")->setFocus();
        type("g");
        QCOMPARE(focused(), QStringLiteral("findSign"));
        type("ufo");
        QCOMPARE(stage.control<QLineEdit>("findSign")->text(), QStringLiteral("gufo"));
        key(Qt::Key_Return);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("e16"));
        QVERIFY(!stage.control<QWidget>("hint")->isVisible());
        stage.expect({.title = "Traduzione",
                      .text = "1) -  IN\n\n2) -  m\n\nNote: preposizione",
                      .buttons = Buttons::OkCancel},
                     Button::Cancel);
        key(Qt::Key_Return);
        QVERIFY(stage.noBoxLeft());
    }

    void movesAndEditsWithoutAMouse()
    {
        Stage stage(record("b02", "donna"));
        activate(stage);
        stage.control<QWidget>("tasto(0)")->setFocus();
        key(Qt::Key_B, Qt::AltModifier);
        QCOMPARE(stage.session().palette().CurrentPage(), std::uint8_t(2));
        key(Qt::Key_PageDown);
        key(Qt::Key_PageUp);
        key(Qt::Key_Right);
        QCOMPARE(focused(), QStringLiteral("tasto(1)"));
        key(Qt::Key_Return);
        key(Qt::Key_Space);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("b02b02"));
        key(Qt::Key_Backspace);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("b02"));
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("b02"));
        stage.control<QWidget>("Vendol(0)")->setFocus();
        stage.expect(
            {.title = "Traduzione", .text = "1) -  DONNA\n\n2) -  \n\nNote: ", .buttons = Buttons::OkCancel},
            Button::Cancel);
        key(Qt::Key_Return);
        activate(stage);
        stage.control<QWidget>("Vendol(0)")->setFocus();
        key(Qt::Key_Space);
        key(Qt::Key_Delete);
        QVERIFY(stage.session().display().DisplayCodes().empty());
        // In a text field the same keys edit the text.
        stage.press("b02");
        auto* const box = stage.control<QLineEdit>("Text1");
        box->setFocus();
        key(Qt::Key_Backspace);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("b02"));
        QVERIFY(stage.noBoxLeft());
    }

    void reachesTheMenus()
    {
        Stage stage;
        activate(stage);
        stage.control<QWidget>("tasto(0)")->setFocus();
        key(Qt::Key_F10);
        for (const char* const menu : {"File", "modifiche", "Opzioni", "preferiti", "Ricerca"}) {
            QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
            QCOMPARE(QApplication::activePopupWidget()->objectName(), QLatin1String(menu));
            if (QLatin1String(menu) != QLatin1String("Ricerca")) {
                QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
            }
        }
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_D);
        QTRY_VERIFY(stage.session().modes().is(Mode::Split));
    }

    void copiesAndPastes()
    {
        Stage stage;
        activate(stage);
        stage.control<QWidget>("tasto(0)")->setFocus();
        QApplication::clipboard()->setText(QStringLiteral("F35-I9-D21-Q99"));
        stage.expect({.title = "Incolla",
                      .text = "Questi segni non sono conosciuti e non sono stati inseriti:\n\nQ99",
                      .icon = Icon::Exclamation});
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("d51f21b47"));
        activate(stage);
        key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("𓄤𓆑𓂋"));
        QCOMPARE(QApplication::clipboard()->mimeData()->data(QStringLiteral("text/x-gardiner")),
                 QByteArray("F35-I9-D21"));
        QString many;
        for (int i = 0; i < 90; ++i) {
            many += QStringLiteral("𓄤");
        }
        QApplication::clipboard()->setText(many);
        stage.expect(
            {.title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical});
        key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(stage.session().display().signs(), std::size_t(84));
        QVERIFY(stage.noBoxLeft());
    }

    void rightClickTellsWhereASignIsUsed()
    {
        Stage stage(record("a01b02", "coppia") + record("c03", "altro") + record("b02a01", "coppia inversa"));
        const SignMenu menu(stage.desktop(), stage.windows());
        auto* const keyOfSign = stage.control<SignButton>("tasto(0)");
        QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), keyOfSign->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(keyOfSign, &click);
        auto* const shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(shown != nullptr);
        QTest::keyClick(shown, Qt::Key_U);
        auto* const table = stage.form1().findChild<QTableWidget*>(QStringLiteral("entries"));
        QVERIFY(table != nullptr);
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->item(1, 1)->text(), QStringLiteral("coppia inversa"));
    }

  private:
    static void activate(Stage& stage)
    {
        stage.form1().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.form1()));
    }
};

QTEST_MAIN(TestKeyboard)
#include "KeyboardTest.moc"
