// Measures what a person waits for in the windows: a page turned, a sign inserted, a letter typed into the
// sign finder, a whole phrase typed and taken back, the list of Italian words, the list of all answers, a
// letter typed into "Trova parola". Each figure is from the call to the painted picture, in milliseconds:
// median and worst.
#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "base/SignRepertoire.hpp"
#include "dictionary/WordFinder.hpp"
#include "windows/ItalianWindow.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/support/Stage.hpp"
#include "windows/support/Theme.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

double timed(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    QApplication::processEvents();  // one repaint for all changes of the action
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// A dictionary of so many different translations.
std::string dictionaryOf(int translations)
{
    std::string file;
    for (int i = 0; i < translations; ++i) {
        const std::string number = std::to_string(i * 7919 % translations);
        file += record("a01b" + std::to_string(10 + i % 43), "parola " + number, "w" + number, "nota");
    }
    return file;
}

std::string shippedDictionary()
{
    std::ifstream file(KARVEL_SOURCE_DIR "/data/tree/dizio.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void report(const char* what, std::vector<double> times)
{
    std::ranges::sort(times);
    std::printf("%-34s %7.2f ms %7.2f ms\n", what, times[times.size() / 2], times.back());
}

/// Goes from the first page to the last in a window of its own, `wait` milliseconds after it was opened,
/// looking at each page for `look` milliseconds.
void turnPages(const char* what, int look, int wait = 0)
{
    Stage stage;
    QApplication::processEvents();
    QTest::qWait(wait);
    auto* const scroll = stage.control<QScrollBar>("HScroll1");
    std::vector<double> times;
    for (int page = 2; page <= 14; ++page) {
        QTest::qWait(look);
        times.push_back(timed([&] { scroll->setValue(page); }));
    }
    report(what, times);
}

/// All entries with N35, which most words have, and a page of them after the other.
void listAnswers(Stage& stage)
{
    const std::string code(SignRepertoire::standard().byGardiner("N35")->code);
    std::vector<double> lists;
    std::vector<double> pages;
    for (int i = 0; i < 9; ++i) {
        lists.push_back(
            timed([&] { stage.windows().open<Voci>().list(Mode::Contains, i % 2 == 0 ? code : "a01"); }));
        if (i % 2 == 1) {
            lists.pop_back();  // only there so that every list of N35 replaces another
        }
    }
    auto* const list = control<AnswerList>(stage.windows().opened<Voci>(), QStringLiteral("VociLista"));
    for (int page = 0; page < 100; ++page) {
        pages.push_back(timed([&] { QTest::keyClick(list, Qt::Key_PageDown); }));
    }
    report(("elenco di N35, " + std::to_string(list->answers().rowCount()) + " righe").c_str(), lists);
    report("elenco, una pagina più giù", pages);
    stage.windows().opened<Voci>()->close();
}

/// Every key of some words of each kind.
void typeWords(Stage& stage)
{
    auto& window = stage.windows().open<TrovaParola>();
    auto* const field = control<QLineEdit>(&window, QStringLiteral("TrovaCampo"));
    report("Trova parola, prima lettera", {timed([&] { window.start(QStringLiteral("a")); })});
    QTest::qWait(2000);  // the rest of the dictionary is folded
    std::vector<double> keys;
    for (const char* const word :
         {"amare",       "re",      "casa",      "figlio del re", "bello", "acqua", "nfr",
          "Htp-di-nswt", "pr",      "anx",       "n*r",           "mAa",   "F35",   "F35 I9 D21",
          "F35 + D21",   "offerta", "sacerdote", "città",         "zA",    "egitto"}) {
        field->clear();
        QApplication::processEvents();
        for (const QChar letter : QString::fromUtf8(word)) {
            keys.push_back(timed([&] { field->insert(letter); }));
        }
    }
    report("Trova parola, ogni lettera", keys);
    window.close();
}

/// What the folded dictionary takes of the memory.
void measureFinder(const FileSystem& files)
{
#ifdef __GLIBC__
    const std::size_t before = mallinfo2().uordblks;
    WordFinder finder(files);
    finder.search("xyz")->readAll();
    std::printf("%-34s %7.1f MB\n", "memoria di Trova parola",
                static_cast<double>(mallinfo2().uordblks - before) / 1e6);
#endif
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(new Style);
    std::printf("%-34s %10s %10s\n", "", "mediana", "peggiore");
    turnPages("pagina, sfogliando appena aperto", 0);
    turnPages("pagina, una ogni 0,3 secondi", 300);
    turnPages("pagina, sfogliando più tardi", 0, 2000);
    Stage stage;
    QApplication::processEvents();
    std::vector<double> inserted;
    for (int i = 0; i < 84; ++i) {
        inserted.push_back(timed([&] { stage.session().palette().press(static_cast<std::size_t>(i % 53)); }));
        emit stage.desktop().changed();
    }
    report("segno inserito", inserted);
    std::vector<double> typed;
    auto* const field = stage.control<QLineEdit>("findSign");
    for (const char* const text : {"n", "nf", "nfr", "G", "G1", "G17", "u", "uo", "uomo", "civ"}) {
        typed.push_back(timed([&] { field->setText(QLatin1String(text)); }));
    }
    report("lettera in Trova segno", typed);
    std::vector<double> phrases;
    for (int i = 0; i < 7; ++i) {
        stage.session().display().clearAll();
        emit stage.desktop().changed();
        QApplication::processEvents();
        phrases.push_back(timed([&] {
            for (int sign = 0; sign < 84; ++sign) {
                stage.control<QAbstractButton>("tasto(5)")->click();
                QApplication::processEvents();
            }
            stage.choose("undo");
        }));
    }
    report("84 segni scritti, poi Undo", phrases);
    for (const auto& [what, dictionary] :
         {std::pair("elenco italiano, come installato", shippedDictionary()),
          std::pair("elenco italiano, 100.000 voci", dictionaryOf(100000))}) {
        stage.drive().write("C:\\programmi\\Karvel\\dizio.txt", dictionary);
        std::vector<double> lists;
        for (int i = 0; i < 7; ++i) {
            lists.push_back(timed([&] { stage.windows().openItalian(); }));
            stage.windows().opened<italiano>()->close();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        report(what, lists);
    }
    stage.drive().write("C:\\programmi\\Karvel\\dizio.txt", shippedDictionary());
    listAnswers(stage);
    typeWords(stage);
    measureFinder(stage.session().files());
    return 0;
}
