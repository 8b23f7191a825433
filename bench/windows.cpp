// Measures what a person waits for in the main window: a page turned, a sign inserted, a letter typed into
// the sign finder. Each figure is from the call to the painted picture, in milliseconds: median and worst.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "windows/Theme.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

double timed(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    QApplication::processEvents();  // paints what the action asked to be painted, once
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
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
    return 0;
}
