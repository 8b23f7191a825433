#include <QColorDialog>
#include <QFrame>
#include <QSpinBox>

#include "windows/ColourButton.hpp"
#include "windows/ColourWindow.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kDisplayFile = "C:\\programmi\\Karvel\\settaggi\\coloreD.prf";
constexpr const char* kWindowFile = "C:\\programmi\\Karvel\\settaggi\\coloreF.prf";

/// The colour of the picture on the screen at `point` of `widget`.
QColor seen(QWidget& widget, QPoint point)
{
    return widget.grab().toImage().pixelColor(point);
}

}  // namespace

class TestForm5 : public QObject {
    Q_OBJECT

  private:
    Form5* open(Stage& stage)
    {
        stage.choose("colore");
        return stage.windows().opened<Form5>();
    }

    /// Presses `button` and answers the colour chooser: with `colour` typed into its fields, or by
    /// cancelling.
    void choose(Form5& form5, const char* button, const std::optional<QColor>& colour)
    {
        bool answered = false;
        QTimer::singleShot(0, &form5, [&] {
            auto* const chooser = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
            QVERIFY(chooser != nullptr);
            answered = true;
            if (!colour) {
                QTest::keyClick(chooser, Qt::Key_Escape);
                return;
            }
            chooser->setCurrentColor(*colour);
            QTest::keyClick(chooser, Qt::Key_Return);
        });
        QTest::mouseClick(form5.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
        QVERIFY(answered);
    }

  private slots:
    void appliesAndSavesEachChoiceAtOnce()
    {
        Stage stage;
        Form5* const form5 = open(stage);
        QVERIFY(form5 != nullptr);
        QCOMPARE(form5->windowTitle(), QStringLiteral("Impostazione colori"));
        QVERIFY(!form5->isModal());

        choose(*form5, "Command1", QColor(255, 0, 0));
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 255\r\n"));
        QCOMPARE(seen(*form5->findChild<QWidget*>(QStringLiteral("Command1")), {20, 24}), QColor(255, 0, 0));
        QCOMPARE(seen(*stage.control<QFrame>("Picture1"), {3, 3}), QColor(255, 0, 0));
        for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
            QCOMPARE(seen(*stage.control<SignCell>(qPrintable(element("Vendol", i))), {10, 10}),
                     QColor(255, 0, 0));
        }

        choose(*form5, "Command2", QColor(0, 0, 255));
        QCOMPARE(stage.drive().read(kWindowFile), std::string(" 16711680\r\n"));
        QCOMPARE(seen(stage.form1(), {3, stage.form1().height() / 2}), QColor(0, 0, 255));

        QTest::mouseClick(form5->findChild<QPushButton*>(QStringLiteral("Command3")), Qt::LeftButton);
        QTest::mouseClick(form5->findChild<QPushButton*>(QStringLiteral("Command4")), Qt::LeftButton);
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 8421376\r\n"));
        QCOMPARE(stage.drive().read(kWindowFile), std::string(" 12632256\r\n"));
        QCOMPARE(seen(*stage.control<QFrame>("Picture1"), {3, 3}), QColor(0, 128, 128));
        QCOMPARE(seen(stage.form1(), {3, stage.form1().height() / 2}), QColor(192, 192, 192));
    }

    void keepsTheColourWhenTheChooserIsCancelled()
    {
        Stage stage;
        Form5* const form5 = open(stage);
        choose(*form5, "Command1", std::nullopt);
        QCOMPARE(stage.drive().read(kDisplayFile), std::string(" 8421376\r\n"));
        QVERIFY(stage.session().colours().display == Colours::kDisplayDefault);
    }

    void showsWhatTheFilesHoldNow()
    {
        Stage stage;
        stage.drive().write(kWindowFile, " 65280\r\n");
        Form5* const form5 = open(stage);
        QCOMPARE(form5->findChild<ColourButton*>(QStringLiteral("Command2"))->colour(), QColor(0, 255, 0));
        QCOMPARE(seen(stage.form1(), {3, stage.form1().height() / 2}), QColor(0, 255, 0));
    }

    void staysClosedWithoutAColourFile()
    {
        Stage stage;
        stage.drive().files().remove(kDisplayFile);
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::FileNotFound)));
        QVERIFY(open(stage) == nullptr);
        QVERIFY(stage.noBoxLeft());
    }
};

QTEST_MAIN(TestForm5)
#include "ColourWindowTest.moc"
