#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

std::string dictionary()
{
    return record("a01a02", "due", "zn") + record("a01", "uno", "wa") + record("a01a03", "uno", "wa") +
           record("a05", "amare", "mri");
}

/// The translations of the rows.
QStringList rows(AnswerList* list)
{
    QStringList all;
    for (int row = 0; row < list->answers().rowCount(); ++row) {
        const Answer* const answer = list->answers().answer(row);
        all << (answer == nullptr ? QStringLiteral("-") : qtext(answer->entry->translation));
    }
    return all;
}

}  // namespace

class AnswersTest : public QObject {
    Q_OBJECT

  private slots:
    void theListShowsAllAnswersAndItsKeysUseThem()
    {
        Stage stage(dictionary());
        stage.choose("Cerca");
        stage.press("a01");
        stage.click("Elenco");
        auto* const window = stage.windows().opened<Voci>();
        QVERIFY(window != nullptr && !window->isModal());
        QCOMPARE(control<QLabel>(window, "VociTitolo")->text(),
                 QStringLiteral("A1 · Cerca simile · 2 parole, 3 voci"));
        auto* const list = control<AnswerList>(window, "VociLista");
        QCOMPARE(rows(list), (QStringList{"uno", "due"}));
        QVERIFY(stage.session().last().translation.empty());
        QTest::keyClick(list, Qt::Key_Right);
        QCOMPARE(rows(list), (QStringList{"uno", "uno", "due"}));
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(stage.cells(), std::string("a01a03"));
        QCOMPARE(stage.session().last().translation, std::string("UNO"));
        QCOMPARE(stage.phrase(), std::string("a01"));
        QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("𓀀𓀂\twꜥ\tuno"));
        QTest::keyClick(list, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(stage.phrase(), std::string("a01a01a03"));
        QTest::keyClick(list, Qt::Key_Left);
        QCOMPARE(rows(list), (QStringList{"uno", "due"}));
        for (const char* const filter : {"sn", "due", "A2"}) {
            control<QLineEdit>(window, "VociFiltro")->setText(QLatin1String(filter));
            QCOMPARE(rows(list), QStringList{"due"});
        }
        stage.choose("traduci");
        stage.choose("vociTrovate");
        QCOMPARE(rows(list), QStringList{"uno"});
        QVERIFY(stage.noBoxLeft());
    }

    void aWordIsFoundWhileItIsTyped()
    {
        Stage stage(dictionary());
        stage.click("Elenco");  // nothing is composed
        auto* const window = stage.windows().opened<TrovaParola>();
        QVERIFY(window != nullptr);
        auto* const field = control<QLineEdit>(window, "TrovaCampo");
        auto* const list = control<AnswerList>(window, "TrovaLista");
        const auto* const understood = control<QToolButton>(window, "TrovaInteso");
        const struct {
            const char *text, *understood;
            QStringList rows;
        } cases[] = {{"AMA", "italiano", {"amare"}},
                     {"mrj", "traslitterazione", {"amare"}},
                     {"A2 + A1", "segni", {"due"}},
                     {"nulla", "italiano", {}}};
        for (const auto& expected : cases) {
            field->clear();
            QTest::keyClicks(field, QLatin1String(expected.text));
            QCOMPARE(rows(list), expected.rows);
            QCOMPARE(understood->text(), QString::fromLatin1(expected.understood));
        }
        field->setText(QStringLiteral("uno"));
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(stage.phrase(), std::string("a01"));
        understood->menu()->actions()[2]->trigger();
        QVERIFY(rows(list).isEmpty());  // as a transliteration it is nothing
        QVERIFY(stage.noBoxLeft());
    }
};

WINDOW_TESTS(AnswersTest)
#include "AnswersTest.moc"
