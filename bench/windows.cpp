// Measures what a person waits for in the windows: a page turned, a sign inserted, a letter typed into the
// sign finder, a whole phrase typed and taken back, the list of Italian words. Each figure is from the call
// to the painted picture, in milliseconds: median and worst.
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

#include "windows/ItalianWindow.hpp"
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
    return 0;
}
