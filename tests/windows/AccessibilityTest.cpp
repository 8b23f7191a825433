#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QTextEdit>

#include "windows/PictureWindow.hpp"
#include "windows/TrovaParola.hpp"
#include "windows/VociWindow.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

template <typename... Kinds>
bool isAny(const QWidget* widget)
{
    return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

/// True for what the toolkit puts inside another control, which speaks for it.
bool isPart(const QWidget* widget)
{
    const QWidget* const parent = widget->parentWidget();
    const auto ofToolkit = [](const QWidget* any) {
        return any->objectName().startsWith(QLatin1String("qt_"));
    };
    return ofToolkit(widget) || ofToolkit(parent) || widget->inherits("QComboBoxListView") ||
           parent->inherits("QAbstractScrollArea") || parent->inherits("QComboBox") ||
           parent->inherits("QLineEdit") || parent->inherits("QAbstractSpinBox");
}

}  // namespace

class AccessibilityTest : public QObject {
    Q_OBJECT

  private slots:
    void everyWindowAndControlHasAName()
    {
        Stage stage(record("a01", "uomo", "z", "nota"));
        stage.press("a01");
        // Every window that the menus and keys of the main window open.
        for (const char* const item : {"prefins", "elim", "stampa", "colore", "percorso", "ins", "numeri",
                                       "schede", "lettura", "Info", "guida"}) {
            stage.choose(item);
        }
        stage.click("Command7");
        stage.click("Command9");
        stage.windows().openItalian();
        stage.windows().openPicture("C:\\programmi\\Karvel\\GR\\a01.gif", "a01");
        stage.windows().open<Voci>().list(Mode::Contains, "a01");
        stage.windows().open<TrovaParola>().start(QStringLiteral("uomo"));
        stage.session().translatedWords().add("uomo", "a01");
        stage.choose("tradotte");
        int windows = 0;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window->windowType() == Qt::ToolTip) {
                continue;
            }
            ++windows;
            const char* const name = window->metaObject()->className();
            QVERIFY2(!window->windowTitle().isEmpty(), name);
            for (QWidget* const widget : window->findChildren<QWidget*>()) {
                if (widget->isVisibleTo(window) && !isPart(widget) &&
                    isAny<QAbstractButton, QLineEdit, QComboBox, QAbstractSlider, QAbstractItemView,
                          QTextEdit>(widget)) {
                    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
                    QVERIFY2(spoken != nullptr && !spoken->text(QAccessible::Name).trimmed().isEmpty(),
                             qPrintable(QLatin1String(name) + QLatin1Char(' ') + widget->objectName()));
                }
            }
        }
        QCOMPARE(windows, 17);
    }
};

WINDOW_TESTS(AccessibilityTest)
#include "AccessibilityTest.moc"
