#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QToolButton>

#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/signs/AnswerPane.hpp"
#include "windows/support/PlaceKeeper.hpp"
#include "windows/support/Stage.hpp"
#include "windows/support/Theme.hpp"

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

/// A search whose reading never ends. It reads its entries again each time, as that of a large file may.
class EndlessSearch : public AnswerSearch {
  public:
    [[nodiscard]] Answers answers() const override
    {
        std::vector<Answer> again = found_;
        for (Answer& answer : again) {
            answer.entry = std::make_shared<DictionaryEntry>(*answer.entry);
        }
        return Answers(std::move(again));
    }
    [[nodiscard]] std::size_t found() const override { return found_.size(); }
    [[nodiscard]] int percent() const override { return 43; }

  private:
    bool step() override
    {
        QTest::qSleep(1);
        found_.push_back({.entry = std::make_shared<DictionaryEntry>(
                              DictionaryEntry{"a01", std::to_string(found_.size()), "", ""}),
                          .word = found_.size()});
        return true;
    }

    std::vector<Answer> found_;
};

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
        // On a slow machine the reading takes more than one piece.
        QTRY_COMPARE(control<QLabel>(window, "VociTitolo")->text(),
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
        control<QLineEdit>(window, "VociFiltro")->setText(QStringLiteral("A3"));
        QCOMPARE(list->current()->signs, std::string("a01a03"));  // the spelling that was asked for
        QCOMPARE(control<QLabel>(window, "VociTitolo")->text(),
                 QStringLiteral("A1 · Cerca simile · 2 parole, 3 voci · con il filtro: 1"));
        QTest::keyClick(list, Qt::Key_Right);
        QCOMPARE(list->answers().answer(1)->entry->signs, std::string("a01"));
        stage.choose("traduci");
        stage.choose("vociTrovate");
        QCOMPARE(rows(list), (QStringList{"uno", "uno"}));  // the words of the phrase, one after the other
        QVERIFY(stage.noBoxLeft());
    }

    void theListIsSortedSpelledSavedAndUsedWithTheMouse()
    {
        Stage stage(dictionary());
        stage.press("a01");
        stage.click("Elenco");
        auto* const window = stage.windows().opened<Voci>();
        auto* const list = control<AnswerList>(window, "VociLista");
        control<QComboBox>(window, "order")->setCurrentIndex(1);
        QCOMPARE(rows(list), (QStringList{"due", "uno"}));
        stage.click("Elenco");
        QCOMPARE(rows(list), (QStringList{"due", "uno"}));  // the next list keeps the order
        const AnswerModel& answers = list->answers();
        const auto told = [&] { return answers.data(answers.index(1), Qt::DisplayRole).toString(); };
        QCOMPARE(told(), QStringLiteral("uno, wꜥ, A1, 2 grafie"));
        control<QCheckBox>(window, "ascii")->click();
        QCOMPARE(told(), QStringLiteral("uno, wa, A1, 2 grafie"));
        const QPoint first = list->visualRect(answers.index(0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(stage.cells(), std::string("a01a02"));
        QCOMPARE(stage.session().last().phrase, std::string("a01"));
        const QTemporaryDir directory;
        for (const auto& [name, start] :
             {std::pair("voci.html", "<!DOCTYPE"), std::pair("voci.csv", "\xEF\xBB\xBF")}) {
            control<QPushButton>(window, "save")->click();
            auto* const dialog = control<QFileDialog>(window, "saveList");
            const QString path = directory.filePath(QLatin1String(name));
            emit dialog->fileSelected(path);
            delete dialog;
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll().startsWith(start));
        }
        control<QLineEdit>(window, "VociFiltro")->setText(QStringLiteral("nulla"));
        QVERIFY(!control<QPushButton>(window, "use")->isEnabled());
        QVERIFY(list->accessibleDescription().contains(QStringLiteral("filtro")));
        control<QLineEdit>(window, "VociFiltro")->clear();
        QVERIFY(list->accessibleDescription().isEmpty());
        QVERIFY(stage.noBoxLeft());
    }

    void theSignsThatMatchedAreMarked()
    {
        Stage stage(record("a01a02a01", "due", "zn"));
        const auto coloured = [&] {
            auto* const list = control<AnswerList>(stage.windows().opened<Voci>(), "VociLista");
            const QImage row = list->viewport()->grab(list->visualRect(list->answers().index(0))).toImage();
            const QColor mark = between(list->palette().color(QPalette::Highlight), kSelection, 0.4);
            int stretches = 0;  // of marked columns, parted by others
            bool before = false;
            for (int x = 0; x < row.width(); ++x) {
                bool marked = false;
                for (int y = 0; y < row.height(); ++y) {
                    marked = marked || row.pixelColor(x, y) == mark;
                }
                stretches += marked && !before ? 1 : 0;
                before = marked;
            }
            return stretches;
        };
        stage.press("a01");
        stage.click("Elenco");
        QCOMPARE(coloured(), 2);
    }

    void anEntryThatLooksLikeMarkupLoadsNothing()
    {
        Stage stage(record("a01", "<img src='//altrove/foto.png'>", "wa"));
        stage.press("a01");
        stage.click("Elenco");
        const AnswerModel& answers =
            control<AnswerList>(stage.windows().opened<Voci>(), "VociLista")->answers();
        const QString tip = answers.data(answers.index(0), Qt::ToolTipRole).toString();
        QVERIFY(tip.contains(QStringLiteral("foto.png")) && !tip.contains(QStringLiteral("<img")));
    }

    void aLongReadingFillsTheListAndCanBeStopped()
    {
        Stage stage(dictionary());
        stage.press("a01");
        stage.click("Elenco");
        auto* const window = stage.windows().opened<Voci>();
        auto* const list = control<AnswerList>(window, "VociLista");
        control<AnswerPane>(window, {})->follow(std::make_shared<EndlessSearch>());
        QVERIFY(list->answers().rowCount() > 0);
        QTest::keyClick(list, Qt::Key_Down);
        const auto* const progress = control<QProgressBar>(window, "progress");
        const int first = list->answers().rowCount();
        QTRY_VERIFY(list->answers().rowCount() > first);
        QCOMPARE(list->currentIndex().row(), 1);  // the user's row stays
        QTest::keyClick(list, Qt::Key_Home);
        list->scrollTo(list->answers().index(8), QAbstractItemView::PositionAtTop);
        const int more = list->answers().rowCount();
        QTRY_VERIFY(list->answers().rowCount() > more);
        QCOMPARE(list->indexAt({1, 1}).row(), 8);  // and so does the place to which the list was scrolled
        QTRY_VERIFY(progress->isVisible());
        QCOMPARE(progress->value(), 43);
        QTest::keyClick(list, Qt::Key_Escape);
        QVERIFY(window->isVisible() && !progress->isVisible());
        QVERIFY(control<QLabel>(window, "fault")->text().startsWith("Lettura interrotta al 43%"));
        const int stopped = list->answers().rowCount();
        QTest::qWait(50);
        QCOMPARE(list->answers().rowCount(), stopped);
        QTest::keyClick(list, Qt::Key_Escape);
        QVERIFY(!window->isVisible());
    }

    void aWindowOpensWhereItWasClosed()
    {
        Stage stage;
        const auto placed = [&](QRect* move) {
            QDialog window;
            window.setObjectName(QStringLiteral("Voci"));
            new PlaceKeeper(window, &stage.form1(), {400, 300}, stage.session());
            window.show();
            if (move != nullptr) {
                window.move(move->topLeft());
                window.resize(move->size());
            }
            window.hide();
            return QRect(window.pos(), window.size());
        };
        QRect chosen(60, 70, 333, 222);
        placed(&chosen);
        QCOMPARE(placed(nullptr), chosen);
        for (const char* const remembered :
             {"90000 90000 300 200", "1 2 3", "0 0 1 1", "9 9 99999999999 9"}) {
            stage.session().choices().set("finestra.Voci", remembered);
            QVERIFY(stage.form1().screen()->availableGeometry().contains(placed(nullptr)));
        }
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
        window->hide();
        const std::vector<History::Search>& searches = stage.session().history().searches();
        QVERIFY(!searches.empty() && searches.back().text == "uno");
        window->show();
        understood->menu()->actions()[2]->trigger();
        QVERIFY(rows(list).isEmpty());  // as a transliteration it is nothing
        QVERIFY(stage.noBoxLeft());
    }
};

WINDOW_TESTS(AnswersTest)
#include "AnswersTest.moc"
