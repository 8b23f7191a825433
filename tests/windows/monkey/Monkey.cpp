#include "windows/monkey/Monkey.hpp"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QThread>
#include <QTimer>
#include <utility>

#include "windows/DirectoryReader.hpp"
#include "windows/ItalianWindow.hpp"
#include "windows/support/Text.hpp"

namespace karvel::testing {

namespace {

Monkey* listening = nullptr;  // the toolkit's messages carry no object

int loopLevel()
{
    return QThread::currentThread()->loopLevel();
}

std::string again(std::uint64_t seed, std::uint64_t events)
{
    return "KARVEL_MONKEY_SEED=" + std::to_string(seed) + " KARVEL_MONKEY_EVENTS=" + std::to_string(events) +
           " does it again; the last events:";
}

}  // namespace

Monkey::Monkey(std::uint64_t seed, std::uint64_t events, Household& household)
    : dice_(seed), household_(household), trail_(again(seed, events)), wanted_(events)
{
    qApp->installEventFilter(this);
    listening = this;
    qInstallMessageHandler(hear);
}

Monkey::~Monkey()
{
    qInstallMessageHandler(nullptr);
    listening = nullptr;
}

/// A platform without a screen says of many things that it lacks them, and a file that cannot be printed into
/// is the user's mistake, of which a box tells him; any other warning tells of a fault.
void Monkey::hear(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    const bool harmless = message.startsWith(QLatin1String("This plugin does not support")) ||
                          message == QLatin1String("QPainter::begin(): Returned false");
    if (type != QtDebugMsg && type != QtInfoMsg && !harmless) {
        listening->complaint_ = utf8(message);
    }
}

/// A window's class, or the name of a box.
QString Monkey::callOf(const QWidget& widget)
{
    QString name = QLatin1String(widget.metaObject()->className());
    if (!name.startsWith(QLatin1String("karvel::")) && !widget.objectName().isEmpty() &&
        !widget.objectName().startsWith(QLatin1String("qt_"))) {
        name = widget.objectName();
    }
    return name.remove(QStringLiteral("karvel::"));
}

/// Notes every window that opens, and what is begun in it that fills the cells with other signs.
bool Monkey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* const window = qobject_cast<QWidget*>(watched); window != nullptr && window->isWindow()) {
            ++windows_[callOf(*window).toStdString()];
            watch(*window);
        }
    }
    return false;
}

void Monkey::watch(QWidget& window)
{
    const QString name = callOf(window);
    const char* const search = name == QLatin1String("Form1")   ? "Command12"
                               : name == QLatin1String("Form2") ? "Command1"
                                                                : nullptr;
    if (search != nullptr) {
        connect(
            window.findChild<QAbstractButton*>(QLatin1String(search)), &QAbstractButton::pressed, this,
            [this] { searching_ = true; }, Qt::DirectConnection);
    }
    for (QAction* const action : window.findChildren<QAction*>()) {
        if (action->objectName().isEmpty() || action->property("watched").toBool()) {
            continue;
        }
        action->setProperty("watched", true);
        connect(action, &QAction::triggered, this, [this, action, name] {
            ++actions_[(name + QLatin1Char('.') + action->objectName()).toStdString()];
            searching_ = searching_ || action->objectName() == QLatin1String("inserici");
        });
    }
}

void Monkey::play()
{
    while (broken_.empty() && events() < wanted_) {
        ++runs_;
        if (dice_.oneIn(3)) {
            household_.restoreSignDirectory();
        }
        if (dice_.oneIn(4)) {
            household_.drive().write("C:\\programmi\\Karvel\\settaggi\\conf.cfg",
                                     " " + std::to_string(dice_.below(9)) + " \r\n");
        }
        rules_.restart();
        searching_ = false;
        run_ = std::make_unique<Run>(household_);
        next();
        if (run_->start(dice_.oneIn(2))) {
            QApplication::exec();
        }
        if (broken_.empty() && run_->form1() != nullptr && run_->form1()->isVisible() && events() < wanted_) {
            end("the program ended with its window open");
        }
        run_.reset();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// From a timer of its own each time, so that it comes in the loop of a box as well.
void Monkey::next()
{
    if (!posted_) {
        posted_ = true;
        QTimer::singleShot(0, this, [this] {
            posted_ = false;
            tick();
        });
    }
}

void Monkey::tick()
{
    if (!broken_.empty() || events() >= wanted_) {
        end(broken_);
        return;
    }
    next();
    if (!levels_.empty() && levels_.back() == loopLevel()) {
        interrupt();
        return;
    }
    if (waitsForOthers()) {
        return;
    }
    check();
    if (!broken_.empty()) {
        return;
    }
    levels_.push_back(loopLevel());
    act();
    levels_.pop_back();
    if (levels_.empty() && searching_) {
        rules_.excuse();
        searching_ = false;
    }
}

/// What another process or a thread answers comes when it comes; so that the same seed is the same story, it
/// is waited for.
bool Monkey::waitsForOthers()
{
    const Form1* const form1 = run_->form1();
    if (form1 == nullptr) {
        return false;
    }
    for (QProcess* const opener : form1->findChildren<QProcess*>()) {
        if (opener->state() != QProcess::NotRunning) {
            opener->waitForFinished();  // the box that follows is open meanwhile
            return true;
        }
    }
    const auto* const reader = form1->findChild<DirectoryReader*>();
    if (reader != nullptr && reader->reading()) {
        QThread::msleep(1);
        return true;
    }
    return false;
}

void Monkey::check()
{
    if (searching_ || (run_->form1() != nullptr && run_->form1()->findChild<italiano*>() != nullptr)) {
        rules_.excuse();
    }
    std::string what = std::exchange(complaint_, {});
    if (what.empty()) {
        what = household_.touched();
    }
    if (what.empty()) {
        what = household_.dictionaryBroken();
    }
    if (Form1* const form1 = run_->form1(); what.empty() && form1 != nullptr) {
        what = rules_.broken(run_->session(), *form1);
        if (what.empty() && !form1->isVisible() && loopLevel() == 1) {
            what = "the program runs on without its window";
        }
    }
    if (!what.empty()) {
        end(what);
    }
}

/// Leaves every loop, that of an open box too.
void Monkey::end(const std::string& broken)
{
    broken_ = broken;
    next();  // the loop may be one of start-up's boxes, with the program's own still to come
    QCoreApplication::exit();
}

}  // namespace karvel::testing
