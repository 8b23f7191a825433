#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>

#include "windows/signs/SignButton.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kFirstPage = "C:\\programmi\\Karvel\\prefe\\pre1.prf";

/// The signs on the strip as they are seen, "-" for a hidden key, "*" behind a marked one.
QString strip(Stage& stage)
{
    QStringList shown;
    for (std::size_t i = 0; i < Form1::kFavourites; ++i) {
        const auto* const key = stage.control<SignButton>(element("Cmd", i));
        shown << (key->isVisible() ? qtext(key->code()) : QStringLiteral("-")) +
                     (key->text() == QLatin1String("Canc ?") ? QStringLiteral("*") : QString());
    }
    return shown.join(QLatin1Char(' '));
}

/// Types `name` into the file dialog that `item` opens; it is left when it comes back. Returns its title.
QString chooseFile(Stage& stage, const char* item, const QString& name)
{
    QString title;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        if (!title.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        title = dialog->windowTitle();
        auto* const line = control<QLineEdit>(dialog, "fileNameEdit");
        line->setText(name);
        QTest::keyClick(line, Qt::Key_Return);
    });
    timer.start(5);
    stage.choose(item);
    return title;
}

}  // namespace

class FavouritesTest : public QObject {
    Q_OBJECT

  private slots:
    void aStripIsShownUsedAndThinned()
    {
        Stage stage;
        QCOMPARE(strip(stage), QStringLiteral("- - - - - - - -"));
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("p19 g03 p34 c09 e44 c31 i27 f21"));
        auto* const fourth = stage.control<QWidget>("Cmd(3)");
        QTest::mousePress(fourth, Qt::LeftButton);  // acts before it is let go
        QCOMPARE(stage.phrase(), std::string("c09"));
        QTest::mouseRelease(fourth, Qt::LeftButton);
        QTest::mouseClick(fourth, Qt::RightButton);
        QTest::keyClick(stage.control<QWidget>("Cmd(5)"), Qt::Key_Space);
        QTest::keyClick(stage.control<QWidget>("Cmd(7)"), Qt::Key_Return);
        QCOMPARE(stage.phrase(), std::string("c09c31f21"));
        const std::pair<const char*, const char*> steps[] = {{"Co2", "p19 g03* p34 c09 e44 c31 i27 f21"},
                                                             {"Co2", "p19 g03 p34* c09 e44 c31 i27 f21"},
                                                             {"Co3", "p19 g03* p34 c09 e44 c31 i27 f21"},
                                                             {"Co4", "p19 p34* c09 e44 c31 i27 f21 -"},
                                                             {"Co5", "p19 p34 c09 e44 c31 i27 f21 -"}};
        QVERIFY(!stage.control<QWidget>("Co4")->isVisible());
        stage.choose("elim");
        for (const auto& [button, shown] : steps) {
            stage.click(button);
            QCOMPARE(strip(stage), QLatin1String(shown));
        }
        QVERIFY(!stage.control<QWidget>("Co4")->isVisible());
        stage.choose("nascondi");
        QCOMPARE(strip(stage), QStringLiteral("- - - - - - - -"));
    }

    void f4WorksFromAnywhereInTheWindow()
    {
        Stage stage;
        stage.activate();
        for (const char* const focused : {"Text1", "tasto(4)", "Command12", "HScroll1"}) {
            stage.press("a02");
            stage.control<QWidget>(focused)->setFocus();
            QTest::keyClick(stage.control<QWidget>(focused), Qt::Key_F4);
            QVERIFY2(strip(stage).startsWith(QStringLiteral("a02 -")), focused);
            QVERIFY(stage.phrase().empty());
            stage.choose("elim");
            stage.click("Command2");
            stage.click("Co5");
        }
        stage.expect(
            {.title = "Sistema:",
             .text = "Selezionare con il mouse il geroglifico da inserire nei preferiti e poi premere F4",
             .icon = Icon::Critical});
        QTest::keyClick(&stage.form1(), Qt::Key_F4);
    }

    void pagesAndTheirFaults()
    {
        Stage stage;
        stage.click("Command6");
        QCOMPARE(stage.control<QLabel>("Label2")->text(), QStringLiteral("pre2"));
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
        stage.click("Command5");
        QCOMPARE(stage.control<QLabel>("Label2")->text(), QStringLiteral("pre1"));
        stage.drive().write(kFirstPage, "D:\\altrove\\segni\\x99.gif\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("x99 - - - - - - -"));  // its code, without its image
        stage.drive().files().remove(kFirstPage);
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::FileNotFound)));
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("x99 - - - - - - -"));
    }

    void pagesAreSavedAndLoadedThroughTheFileDialog()
    {
        Stage stage;
        const std::string saved = "C:\\programmi\\Karvel\\prefe\\mie.prf";
        stage.choose("prefins");
        QCOMPARE(chooseFile(stage, "salva", QStringLiteral("mie")), QStringLiteral("Salva file (preferiti)"));
        QCOMPARE(stage.drive().read(saved), stage.drive().read(kFirstPage));
        stage.click("Command6");
        for (const Button answer : {Button::No, Button::Yes}) {  // "No" goes back to the dialog
            stage.expect({.title = "Salva file (preferiti)",
                          .text = saved + "\resiste già.\r\rSostituirlo ?",
                          .icon = Icon::Question,
                          .buttons = Buttons::YesNo,
                          .defaultButton = Button::No},
                         answer);
            chooseFile(stage, "salva", QStringLiteral("mie"));
            QCOMPARE(stage.drive().read(saved) == stage.drive().read(kFirstPage), answer == Button::No);
        }
        stage.choose("prefins");
        QCOMPARE(chooseFile(stage, "sep", QStringLiteral("mie.prf")),
                 QStringLiteral("Seleziona un file (preferiti)"));
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
    }
};

WINDOW_TESTS(FavouritesTest)
#include "FavouritesTest.moc"
