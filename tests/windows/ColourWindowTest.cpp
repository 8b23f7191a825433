#include <QColorDialog>
#include <QFrame>
#include <array>

#include "base/WindowsHeader.hpp"
#include "windows/ColourButton.hpp"
#include "windows/ColourWindow.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kDisplayFile = "C:\\programmi\\Karvel\\settaggi\\coloreD.prf";
constexpr const char* kWindowFile = "C:\\programmi\\Karvel\\settaggi\\coloreF.prf";

/// The colours on the screen: of the display line, of a cell and of the window.
QList<QColor> seen(Stage& stage)
{
    const auto at = [](QWidget* widget, QPoint point) { return widget->grab().toImage().pixelColor(point); };
    return {at(stage.control<QFrame>("Picture1"), {3, 3}), at(stage.control<QWidget>("Vendol(4)"), {10, 10}),
            at(&stage.form1(), {3, stage.form1().height() / 2})};
}

/// Answers the colour chooser; an invalid colour cancels it. False when there is none yet.
bool answerChooser(const QColor& colour)
{
#ifdef Q_OS_WIN
    // The chooser is the system's own. These are the numbers of its fields on every Windows.
    constexpr std::array kFields = {706, 707, 708};
    const HWND chooser = GetLastActivePopup(GetForegroundWindow());
    if (GetDlgItem(chooser, kFields[0]) == nullptr) {
        return false;
    }
    if (colour.isValid()) {
        const std::array values = {colour.red(), colour.green(), colour.blue()};
        for (std::size_t i = 0; i < values.size(); ++i) {
            SetDlgItemInt(chooser, kFields[i], static_cast<UINT>(values[i]), FALSE);
        }
    }
    return PostMessageW(chooser, WM_COMMAND, colour.isValid() ? IDOK : IDCANCEL, 0) != 0;
#else
    auto* const chooser = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    if (chooser == nullptr) {
        return false;
    }
    if (colour.isValid()) {
        chooser->setCurrentColor(colour);
    }
    QTest::keyClick(chooser, colour.isValid() ? Qt::Key_Return : Qt::Key_Escape);
    return true;
#endif
}

/// Presses `button` and answers the chooser that it opens.
void choose(const Form5* window, const char* button, const QColor& colour)
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (answerChooser(colour)) {
            timer.stop();
        }
    });
    timer.start(20);
    click(window, button);
    QVERIFY(!timer.isActive());
}

}  // namespace

class ColourWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void coloursAreAppliedAndSavedAtOnce()
    {
        Stage stage;
        stage.drive().write(kWindowFile, " 65280\r\n");  // the window reads the files when it opens
        const auto* const window = stage.open<Form5>("colore");
        QVERIFY(!window->isModal());
        QCOMPARE(control<ColourButton>(window, "Command2")->colour(), QColor(0, 255, 0));
        QCOMPARE(seen(stage)[2], QColor(192, 192, 192));  // the main window keeps its own
        choose(window, "Command1", {});
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 8421376\r\n"));
        choose(window, "Command1", QColor(255, 0, 0));
        choose(window, "Command2", QColor(0, 0, 255));
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 255\r\n"));
        QCOMPARE(stage.drive().read(kWindowFile), std::string(" 16711680\r\n"));
        QCOMPARE(control<ColourButton>(window, "Command1")->colour(), QColor(255, 0, 0));
        QCOMPARE(seen(stage), QList<QColor>({Qt::red, Qt::red, Qt::blue}));
        click(window, "Command3");
        click(window, "Command4");
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 8421376\r\n"));
        QCOMPARE(stage.drive().read(kWindowFile), std::string(" 12632256\r\n"));
        const QColor original(0, 128, 128);
        QCOMPARE(seen(stage), QList<QColor>({original, original, QColor(192, 192, 192)}));
    }

    void staysClosedWithoutAColourFile()
    {
        Stage stage;
        stage.drive().files().remove(kDisplayFile);
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::FileNotFound)));
        QVERIFY(stage.open<Form5>("colore") == nullptr);
    }
};

WINDOW_TESTS(ColourWindowTest)
#include "ColourWindowTest.moc"
