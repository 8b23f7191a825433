// Random keys, clicks and actions in all windows. KARVEL_MONKEY_SEED and KARVEL_MONKEY_STEPS make other and
// longer runs.
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <filesystem>
#include <random>
#include <set>

#include "dictionary/Verification.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kDictionary = "C:\\programmi\\Karvel\\dizio.txt";

/// Does one random thing after the other on a stage, and answers its boxes.
class Monkey {
  public:
    explicit Monkey(unsigned seed) : random_(seed) {}

    void act(Stage& stage);
    void answer(QWidget& box);

    std::set<std::string> windows;  ///< the classes of those in which something was done

  private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    template <typename List>
    auto pick(const List& list)
    {
        return list[static_cast<decltype(list.size())>(below(static_cast<int>(list.size())))];
    }
    QString text();
    void key(QWidget* focus);
    void click(QWidget& window);
    void choose(const QWidget& window);

    std::mt19937 random_;
};

QString Monkey::text()
{
    static const QStringList kTexts{"re",
                                    "casa",
                                    "nfr",
                                    "F35-I9-D21",
                                    "Tutankhamon",
                                    "perché così",
                                    "Ωmega 王 дом",
                                    "𓀀𓄤𓆑𓂋",
                                    "virgolette \"dentro\"",
                                    "\"",
                                    "a, b",
                                    "*GR\\a01.gif",
                                    "..\\..\\fuori",
                                    "con\nriga\te tabulazione\r\n",
                                    "<b>grassetto</b> &amp;",
                                    "%1 %s",
                                    "   ",
                                    QString(QChar(0xD800)),
                                    QString(3000, QLatin1Char('x')),
                                    QStringLiteral("A1 ").repeated(80)};
    return pick(kTexts);
}

void Monkey::key(QWidget* focus)
{
    static const std::vector<int> kKeys{
        Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,  Qt::Key_PageUp,    Qt::Key_PageDown,
        Qt::Key_Home, Qt::Key_End,   Qt::Key_Tab,    Qt::Key_Space, Qt::Key_Return,    Qt::Key_Escape,
        Qt::Key_F1,   Qt::Key_F4,    Qt::Key_Delete, Qt::Key_Menu,  Qt::Key_Backspace, Qt::Key_F10};
    static const std::vector<int> kWithControl{Qt::Key_C, Qt::Key_V, Qt::Key_F,
                                               Qt::Key_Z, Qt::Key_A, Qt::Key_P};
    switch (below(5)) {
        case 0:
            QTest::keyClick(focus, static_cast<Qt::Key>(pick(kWithControl)), Qt::ControlModifier);
            break;
        case 1:
            QTest::keyClick(focus, static_cast<Qt::Key>(Qt::Key_A + below(26)),
                            below(2) == 0 ? Qt::AltModifier : Qt::NoModifier);
            break;
        default:
            QTest::keyClick(focus, static_cast<Qt::Key>(pick(kKeys)));
    }
}

/// Clicks a control of `window`, or writes into it where it is a field.
void Monkey::click(QWidget& window)
{
    QList<QWidget*> seen;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &window &&
            !widget->size().isEmpty()) {
            seen.append(widget);
        }
    }
    if (seen.isEmpty()) {
        return;
    }
    const QPointer<QWidget> chosen = pick(seen);
    const QPoint at(below(chosen->width()), below(chosen->height()));
    if (auto* const field = qobject_cast<QLineEdit*>(chosen); field != nullptr && below(2) == 0) {
        field->setFocus();
        field->insert(text());
        QTest::keyClick(field, Qt::Key_Return);
    } else if (below(8) == 0) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, chosen->mapToGlobal(at));
        QApplication::sendEvent(chosen, &event);
    } else {
        QTest::mousePress(chosen, Qt::LeftButton, {}, at);
        if (chosen != nullptr) {
            QTest::mouseRelease(chosen, Qt::LeftButton, {}, at);
        }
    }
}

void Monkey::choose(const QWidget& window)
{
    QList<QAction*> items;
    for (QAction* const action : window.findChildren<QAction*>()) {
        // Leaving ends everything: rarely.
        if (action->isEnabled() && action->menu() == nullptr && !action->objectName().isEmpty() &&
            (action->objectName() != QLatin1String("Esci") || below(10) == 0)) {
            items.append(action);
        }
    }
    if (!items.isEmpty()) {
        pick(items)->trigger();
    }
}

void Monkey::act(Stage& stage)
{
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        below(4) == 0 ? popup->hide() : key(popup);
        return;
    }
    QWidgetList open;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QMenu*>(window) == nullptr &&
            window->windowType() != Qt::ToolTip) {
            open.append(window);
        }
    }
    std::ranges::sort(open, {}, [](const QWidget* window) { return window->objectName(); });
    QWidget& window = *pick(open);
    windows.insert(window.metaObject()->className());
    QWidget* const focus = window.focusWidget();
    switch (below(12)) {
        case 0:
            QApplication::clipboard()->setText(text());
            break;
        case 1:
            window.resize(1 + below(1500), 1 + below(1000));
            break;
        case 2:
            if (&window != &stage.form1() || below(10) == 0) {
                window.close();
            }
            break;
        case 3:
        case 4:
            choose(window);
            break;
        case 5:
        case 6:
            window.activateWindow();
            key(focus != nullptr ? focus : &window);
            break;
        default:
            click(window);
    }
}

void Monkey::answer(QWidget& box)
{
    if (auto* const message = qobject_cast<QMessageBox*>(&box)) {
        // A search with many matches is left in time.
        QAbstractButton* const cancel = message->button(QMessageBox::Cancel);
        (cancel != nullptr && below(2) == 0 ? cancel : pick(message->buttons()))->click();
        return;
    }
    if (auto* const input = qobject_cast<QInputDialog*>(&box)) {
        input->setTextValue(text());
    }
    // Names alone: in this dialog anything on the machine can be deleted or renamed.
    if (box.inherits("QFileDialog")) {
        static const QStringList kNames{"mia", "pre1.prf", "più così", "王.prf", "nessuno.prf", "a,b"};
        control<QLineEdit>(&box, "fileNameEdit")->setText(pick(kNames));
    }
    // Nothing is printed: a sheet would go to the printers or the files of the machine.
    auto* const dialog = qobject_cast<QDialog*>(&box);
    if (dialog == nullptr) {  // a menu
        box.close();
        return;
    }
    const bool accepted = !box.inherits("QPrintDialog") && below(3) > 0;
    accepted ? dialog->accept() : dialog->reject();
}

/// Whether the update of the dictionary has kept the file `before` beside the new one.
bool standsBeside(Stage& stage, const std::string& before)
{
    return std::ranges::any_of(
        std::filesystem::directory_iterator(stage.drive().host(kDictionary).parent_path()),
        [&](const auto& entry) {
            return entry.path().filename().string().starts_with("dizio.old") &&
                   stage.drive().read(utf8Path(entry.path())) == before;
        });
}

}  // namespace

class MonkeyTest : public QObject {
    Q_OBJECT

  private slots:
    void nothingBreaksAndNoEntryIsLost()
    {
        const auto number = [](const char* variable, int otherwise) {
            bool given = false;
            const int value = qEnvironmentVariableIntValue(variable, &given);
            return given ? value : otherwise;
        };
        qputenv("PATH", "");  // no browser is opened
        const QTemporaryDir home;
        qputenv("HOME", home.path().toUtf8());
        const int steps = number("KARVEL_MONKEY_STEPS", 600);
        Monkey monkey(static_cast<unsigned>(number("KARVEL_MONKEY_SEED", 1)));
        std::string shipped;
        for (const char* const sign : {"a01", "e16", "d51f21b47", "a01b02", "b02"}) {
            shipped += record(sign, "parola", "nfr", sign[0] == 'a' ? "*GR\\a01.gif" : "*manca.gif");
        }
        for (int done = 0; done < steps;) {  // the program is left now and then, and begins anew
            Stage stage(shipped);
            const SignMenu menu(stage.desktop(), stage.windows());
            // Searches in the whole edition, after an update, would take minutes.
            stage.drive().write("C:\\programmi\\Karvel\\edizione\\dizio.txt", record("c03", "nuova"));
            stage.answerWith([&monkey](QWidget& box) { monkey.answer(box); });
            std::string before = shipped;
            for (; done < steps && stage.form1().isVisible(); ++done) {
                monkey.act(stage);
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                const std::string now = stage.drive().read(kDictionary);
                QVERIFY2(now.starts_with(before) || standsBeside(stage, before),
                         qPrintable(QString::number(done)));
                QVERIFY2(stage.session().display().signs() <= 84, qPrintable(QString::number(done)));
                before = now;
            }
            QVERIFY(!verify(*stage.drive().files().open(kDictionary)).fault);
        }
        QVERIFY2(monkey.windows.size() >= 8, qPrintable(QString::number(monkey.windows.size())));
    }
};

WINDOW_TESTS(MonkeyTest)
#include "MonkeyTest.moc"
