#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QTextEdit>

#include "windows/AboutWindow.hpp"
#include "windows/AlphabetWindow.hpp"
#include "windows/ColourWindow.hpp"
#include "windows/DirectoryWindow.hpp"
#include "windows/Form6.hpp"
#include "windows/GuideWindow.hpp"
#include "windows/InsertionWindow.hpp"
#include "windows/ItalianWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/NumeralsWindow.hpp"
#include "windows/PictureWindow.hpp"
#include "windows/PrintingWindow.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/TranslatedWordsWindow.hpp"
#include "windows/UsedIn.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

bool isControl(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const QTextEdit*>(widget) != nullptr;
}

/// The controls of `window` that a screen reader could not name; those that the toolkit puts inside others
/// speak through them.
QStringList nameless(QWidget& window)
{
    QStringList found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || !isControl(widget) ||
            widget->objectName().startsWith(QLatin1String("qt_")) ||
            widget->parentWidget()->inherits("QAbstractScrollArea") ||
            widget->parentWidget()->objectName().startsWith(QLatin1String("qt_")) ||
            widget->parentWidget()->inherits("QComboBox") || widget->parentWidget()->inherits("QLineEdit") ||
            widget->parentWidget()->inherits("QAbstractSpinBox") || widget->inherits("QComboBoxListView")) {
            continue;
        }
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
        if (spoken == nullptr || spoken->text(QAccessible::Name).trimmed().isEmpty()) {
            found << QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') +
                         widget->objectName();
        }
    }
    return found;
}

}  // namespace

class TestAccessibility : public QObject {
    Q_OBJECT

  private slots:
    void everyControlHasAName()
    {
        Stage stage(record("a01", "uomo", "z", "nota"));
        stage.press("a01");
        stage.choose("prefins");
        stage.choose("elim");
        Desktop& desktop = stage.desktop();
        QWidget* const parent = &stage.form1();
        QWidget* const windows[] = {parent,
                                    new frmAbout(desktop, parent),
                                    new Form2(desktop, parent),
                                    new Form4(desktop, parent),
                                    new Form5(desktop, parent),
                                    new Form6(desktop, parent),
                                    new Guide(desktop, parent),
                                    new Inserimento(desktop, parent),
                                    new italiano(desktop, parent),
                                    new Ingrandimento(desktop, parent),
                                    new Numerals(desktop, parent),
                                    new imm1(desktop, parent),
                                    new form9(desktop, parent),
                                    new Sysform(desktop, parent),
                                    new UsedIn(desktop, parent)};
        for (QWidget* const window : windows) {
            window->show();
            QVERIFY2(!window->windowTitle().isEmpty(), window->metaObject()->className());
            const QStringList found = nameless(*window);
            QVERIFY2(found.isEmpty(), qPrintable(QLatin1String(window->metaObject()->className()) +
                                                 QStringLiteral(": ") + found.join(QStringLiteral(", "))));
        }
    }
};

QTEST_MAIN(TestAccessibility)
#include "AccessibilityTest.moc"
