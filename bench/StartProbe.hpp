#pragma once

#include <QByteArray>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <ctime>

/// Waits for the first painted frame of a window, tells on standard output how many milliseconds after
/// KARVEL_BENCH_START (nanoseconds of the monotonic clock) it stood there and how much memory the process has
/// half a second later (kilobytes: all, and what is its own alone), and ends the process.
class StartProbe : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const widget = qobject_cast<const QWidget*>(watched);
        if (!seen_ && event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
            seen_ = true;
            QTimer::singleShot(0, this,
                               [this] { framePainted(); });  // after it has been handed to the screen
        }
        return false;
    }

  private:
    void framePainted()
    {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        const double start = qgetenv("KARVEL_BENCH_START").toDouble();
        milliseconds_ =
            (static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec) - start) / 1e6;
        QTimer::singleShot(500, this, [this] {
            std::printf("%.1f %ld %ld\n", milliseconds_, kilobytes("Rss:"), kilobytes("Private_Dirty:"));
            std::fflush(stdout);
            std::_Exit(0);
        });
    }

    static long kilobytes(const char* what)
    {
        std::FILE* const rollup = std::fopen("/proc/self/smaps_rollup", "r");
        long found = 0;
        char name[64];
        long value = 0;
        char line[256];
        while (rollup != nullptr && std::fgets(line, sizeof line, rollup) != nullptr) {
            if (std::sscanf(line, "%63s %ld", name, &value) == 2 && QByteArray(name) == what) {
                found = value;
            }
        }
        if (rollup != nullptr) {
            std::fclose(rollup);
        }
        return found;
    }

    double milliseconds_ = 0;
    bool seen_ = false;
};
