#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>
#include <QTextBrowser>
#include <algorithm>
#include <tuple>

#include "windows/SheetPreview.hpp"
#include "windows/monkey/Monkey.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Text.hpp"

namespace karvel::testing {

namespace {

template <typename... Kinds>
bool isAny(const QWidget* widget)
{
    return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

/// What a person would press, choose from or write in. Of a list it is what shows the rows.
bool isControl(const QWidget* widget)
{
    const auto* const area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
    if (area != nullptr && area->viewport() == widget) {
        return isAny<QAbstractItemView, QTextBrowser>(area);
    }
    // The button that empties a field fades in and out by the clock: whether it is there is not the seed's.
    return !widget->inherits("QLineEditIconButton") &&
           isAny<QAbstractButton, QLineEdit, QComboBox, QAbstractSlider, QTabBar, QMenuBar, SheetPreview,
                 QLabel>(widget);
}

/// The controls of a window, those that differ by their number alone together.
std::map<QString, std::vector<QWidget*>> controlsOf(const QWidget& window)
{
    std::map<QString, std::vector<QWidget*>> found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() && widget->isEnabled() && isControl(widget)) {
            QString name = widget->objectName();
            if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) {
                name = widget->parentWidget()->objectName() + QLatin1Char('/') +
                       QLatin1String(widget->metaObject()->className());
            }
            found[name.section(QLatin1Char('('), 0, 0)].push_back(widget);
        }
    }
    return found;
}

void collect(const QList<QAction*>& actions, std::vector<QAction*>& found)
{
    for (QAction* const action : actions) {
        if (action->isSeparator() || !action->isEnabled() || !action->isVisible()) {
            continue;
        }
        if (const QMenu* const menu = action->menu()) {
            collect(menu->actions(), found);
        } else {
            found.push_back(action);
        }
    }
}

}  // namespace

/// The windows that the user can get at, always in the same order.
Monkey::Widgets Monkey::reachable()
{
    Widgets found;
    QWidget* const modal = QApplication::activeModalWidget();
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowHandle() != nullptr && window->windowType() != Qt::ToolTip &&
            (modal == nullptr || window == modal)) {
            found.push_back(window);
        }
    }
    std::ranges::sort(found, {}, [](const QWidget* window) {
        return std::tuple(callOf(*window), window->windowTitle(), window->width());
    });
    return found;
}

QPoint Monkey::pointIn(const QWidget& widget)
{
    // Mostly well inside, as a hand aims.
    if (!isAny<QAbstractSlider, QTabBar, QMenuBar>(&widget) && widget.parentWidget() != nullptr &&
        !isAny<QAbstractScrollArea>(widget.parentWidget()) && dice_.below(4) > 0) {
        return widget.rect().center();
    }
    return {dice_.below(widget.width()), dice_.below(widget.height())};
}

/// Now and then a single sign is searched for, as people do and chance hardly ever does.
bool Monkey::followsPurpose()
{
    const Form1* const form1 = run_->form1();
    if (form1 == nullptr || !form1->isVisible()) {
        purpose_.clear();
        return false;
    }
    if (purpose_.empty()) {
        if (!dice_.oneIn(300)) {
            return false;
        }
        purpose_ = {QStringLiteral("Command12"), element("tasto", static_cast<std::size_t>(dice_.below(53))),
                    QStringLiteral("Command8"), QStringLiteral("Cerca")};
    }
    const QString name = purpose_.back();
    purpose_.pop_back();
    trail_.add("wants " + utf8(name));
    if (auto* const action = form1->findChild<QAction*>(name)) {
        action->trigger();
    } else if (auto* const control = form1->findChild<QWidget*>(name); control->isEnabled()) {
        hands_.click(*control, control->rect().center(), Qt::LeftButton, false);
    }
    return true;
}

void Monkey::act()
{
    if (QWidget* const popup = QApplication::activePopupWidget(); popup != nullptr && dice_.below(5) > 0) {
        actOnPopup(*popup);
        return;
    }
    if (QWidget* const modal = QApplication::activeModalWidget(); modal != nullptr && answer(*modal)) {
        return;
    }
    if (followsPurpose()) {
        return;
    }
    const Widgets windows = reachable();
    if (windows.empty()) {
        trail_.add("waits");
        return;
    }
    QWidget& window = *dice_.pick(windows);
    if (windows.size() > 6 && dice_.oneIn(3) && &window != run_->form1()) {
        trail_.add("closes " + utf8(callOf(window)));
        window.close();
        return;
    }
    const int roll = dice_.below(100);
    if (roll < 28) {
        pressKey();
    } else if (roll < 60) {
        clickControl(window, Qt::LeftButton);
    } else if (roll < 65) {
        clickControl(window, Qt::RightButton);
    } else if (roll < 76) {
        trigger(windows);
    } else if (roll < 85) {
        typeText(window);
    } else if (roll < 91) {
        handleWindow(window);
    } else {
        moveAbout(window);
    }
}

/// While the program reads a long file and lets the windows be painted: whatever is done, Escape alone may
/// have an effect.
void Monkey::interrupt()
{
    if (!dice_.oneIn(3)) {
        return;
    }
    levels_.push_back(-1);  // what is done here is not answered by doing more
    trail_.more("(in the midst of it: " + std::string(dice_.oneIn(2) ? "Escape)" : "a click)"));
    if (dice_.oneIn(2)) {
        Hands::key(Qt::Key_Escape);
    } else if (const Widgets windows = reachable(); !windows.empty()) {
        clickControl(*dice_.pick(windows), Qt::LeftButton);
    }
    levels_.pop_back();
}

void Monkey::actOnPopup(QWidget& popup)
{
    constexpr int kKeys[] = {Qt::Key_Down, Qt::Key_Up,    Qt::Key_Return, Qt::Key_Escape,
                             Qt::Key_Left, Qt::Key_Right, Qt::Key_E,      Qt::Key_Tab};
    const std::string name = utf8(callOf(popup));
    if (dice_.oneIn(2)) {
        const int key = dice_.pick(kKeys);
        trail_.add("key " + std::to_string(key) + " in the popup " + name);
        Hands::key(key);
        return;
    }
    if (auto* const menu = qobject_cast<QMenu*>(&popup); menu != nullptr && !menu->actions().isEmpty()) {
        QAction* const action = dice_.pick(menu->actions());
        trail_.add("clicks " + utf8(action->text()) + " in the menu " + name);
        ++actions_[name + "." + utf8(action->text())];
        hands_.click(popup, menu->actionGeometry(action).center());
        return;
    }
    const QPoint at(dice_.below(popup.width()), dice_.below(popup.height()));
    trail_.add("clicks in the popup " + name);
    hands_.click(popup, at);
}

void Monkey::pressKey()
{
    constexpr int kKeys[] = {
        Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,     Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Home,   Qt::Key_End,       Qt::Key_Tab,    Qt::Key_Space,    Qt::Key_Escape, Qt::Key_Return,
        Qt::Key_Enter,  Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Menu,     Qt::Key_Insert, Qt::Key_Backtab,
        Qt::Key_Return, Qt::Key_Tab,       Qt::Key_Comma,  Qt::Key_QuoteDbl, Qt::Key_Agrave, Qt::Key_Egrave};
    int key = dice_.pick(kKeys);
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    switch (dice_.below(8)) {
        case 0:
            key = Qt::Key_A + dice_.below(26);
            break;
        case 1:
            key = Qt::Key_0 + dice_.below(10);
            break;
        case 2:
            key = Qt::Key_F1 + dice_.below(12);
            break;
        case 3:
            key = dice_.pick(std::array<int, 8>{Qt::Key_C, Qt::Key_V, Qt::Key_V, Qt::Key_F, Qt::Key_P,
                                                Qt::Key_A, Qt::Key_X, Qt::Key_Z});
            modifiers = Qt::ControlModifier;
            break;
        case 4:
            key = Qt::Key_A + dice_.below(26);
            modifiers = Qt::AltModifier;
            break;
        case 5:
            modifiers = dice_.oneIn(2) ? Qt::ShiftModifier : Qt::ControlModifier;
            break;
        default:
            break;
    }
    const QWidget* const focus = QApplication::focusWidget();
    trail_.add("key " + std::to_string(key) + (modifiers ? " with " + std::to_string(int(modifiers)) : "") +
               (focus != nullptr
                    ? " at " + utf8(callOf(*focus->window()) + QLatin1Char('.') + focus->objectName())
                    : ""));
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    searching_ = searching_ || (enter && qobject_cast<const SignCell*>(focus) != nullptr);
    Hands::key(key, modifiers);
}

void Monkey::clickControl(QWidget& window, Qt::MouseButton button)
{
    const auto controls = controlsOf(window);
    if (controls.empty()) {
        trail_.add("finds nothing to click in " + utf8(callOf(window)));
        return;
    }
    const auto& [name, alike] = *std::next(controls.begin(), dice_.below(static_cast<int>(controls.size())));
    QWidget& widget = *dice_.pick(alike);
    const std::string called = utf8(callOf(window) + QLatin1Char('.') + name);
    const bool twice = button == Qt::LeftButton && dice_.oneIn(12);
    trail_.add((button == Qt::RightButton ? "right click on "
                : twice                   ? "double click on "
                                          : "clicks ") +
               called + " " + utf8(widget.objectName()));
    ++controls_[called];
    hands_.click(widget, pointIn(widget), button, twice);
}

void Monkey::moveAbout(QWidget& window)
{
    const auto controls = controlsOf(window);
    if (controls.empty()) {
        trail_.add("waits");
        return;
    }
    const auto& [name, alike] = *std::next(controls.begin(), dice_.below(static_cast<int>(controls.size())));
    QWidget& widget = *dice_.pick(alike);
    const std::string called = utf8(callOf(window) + QLatin1Char('.') + name);
    const QPoint at(dice_.below(widget.width()), dice_.below(widget.height()));
    if (isAny<QAbstractSlider>(&widget)) {
        trail_.add("drags " + called);
        hands_.drag(widget, at, {dice_.below(widget.width()), dice_.below(widget.height())});
    } else if (dice_.oneIn(2)) {
        trail_.add("turns the wheel over " + called);
        Hands::turnWheel(widget, at, dice_.below(9) - 4);
    } else {
        trail_.add("moves over " + called);
        hands_.move(widget, at);
    }
}

/// What choosing an item of a menu ends in, whichever way it was chosen.
void Monkey::trigger(const Widgets& windows)
{
    std::vector<QAction*> actions;
    for (const QWidget* const window : windows) {
        for (const QMenuBar* const bar : window->findChildren<QMenuBar*>()) {
            if (bar->window() == window) {
                collect(bar->actions(), actions);
            }
        }
    }
    if (actions.empty()) {
        pressKey();
        return;
    }
    QAction* const action = dice_.pick(actions);
    trail_.add("chooses " + utf8(action->objectName().isEmpty() ? action->text() : action->objectName()));
    action->trigger();
}

QString Monkey::text()
{
    static const QString kTexts[] = {QStringLiteral("re"),
                                     QStringLiteral("casa"),
                                     QStringLiteral("dio"),
                                     QStringLiteral("Tutankhamon"),
                                     QStringLiteral("G17"),
                                     QStringLiteral("nfr"),
                                     QStringLiteral("F35-I9-D21"),
                                     QStringLiteral("perché così più"),
                                     QStringLiteral("ÀÈÌÒÙ €"),
                                     QStringLiteral("Ωmega ἀρχή"),
                                     QStringLiteral("王 дом بيت"),
                                     QStringLiteral("𓀀𓄤𓆑𓂋"),
                                     QStringLiteral("virgolette \"dentro\""),
                                     QStringLiteral("\""),
                                     QStringLiteral("l'altro, con virgola"),
                                     QStringLiteral("*GR\\a01.gif"),
                                     QStringLiteral("*non c'è"),
                                     QStringLiteral("..\\..\\fuori"),
                                     QStringLiteral("C:\\programmi\\altro"),
                                     QStringLiteral("con/barra"),
                                     QStringLiteral("CON"),
                                     QStringLiteral("con\nriga\te tabulazione\r\n"),
                                     QStringLiteral("<b>grassetto</b> &amp; &n"),
                                     QStringLiteral("%1 %s %n"),
                                     QStringLiteral("   "),
                                     QString(QChar(0)),
                                     QString(QChar(0xD800)),
                                     QStringLiteral("e\u0301 a\u0300"),
                                     QString(5000, QLatin1Char('x')),
                                     QString(300, QLatin1Char('G')),
                                     QStringLiteral("A1 ").repeated(100)};
    if (dice_.oneIn(3)) {
        return QString(QLatin1Char(static_cast<char>('a' + dice_.below(26)))) +
               (dice_.oneIn(2) ? QString::number(dice_.below(60)) : QString());
    }
    return dice_.pick(kTexts);
}

void Monkey::typeText(QWidget& window)
{
    std::vector<QLineEdit*> fields;
    for (auto* const field : window.findChildren<QLineEdit*>()) {
        if (field->window() == &window && field->isVisible() && field->isEnabled() && !field->isReadOnly()) {
            fields.push_back(field);
        }
    }
    if (fields.empty()) {
        pressKey();
        return;
    }
    QLineEdit* const field = dice_.pick(fields);
    const QString typed = text();
    trail_.add("types [" + utf8(typed.left(24)) + "] in " +
               utf8(callOf(window) + QLatin1Char('.') + field->objectName()));
    ++controls_[utf8(callOf(window) + QLatin1Char('.') + field->objectName())];
    window.activateWindow();
    field->setFocus();
    if (dice_.oneIn(2)) {
        field->selectAll();
    }
    Hands::type(*field, typed);
    if (dice_.oneIn(2)) {
        Hands::key(Qt::Key_Return);
    }
}

void Monkey::handleWindow(QWidget& window)
{
    const std::string name = utf8(callOf(window));
    switch (dice_.below(6)) {
        case 0:
            // The main window asks, and then all is over: not too often.
            if (&window != run_->form1() || dice_.oneIn(4)) {
                trail_.add("closes " + name);
                window.close();
                return;
            }
            [[fallthrough]];
        case 1:
            trail_.add("activates " + name);
            window.activateWindow();
            return;
        case 2:
            trail_.add("maximises " + name);
            window.isMaximized() ? window.showNormal() : window.showMaximized();
            return;
        default:
            const QSize size(1 + dice_.below(1600), 1 + dice_.below(1100));
            trail_.add("resizes " + name + " to " + std::to_string(size.width()) + " x " +
                       std::to_string(size.height()));
            window.resize(size);
    }
}

}  // namespace karvel::testing
