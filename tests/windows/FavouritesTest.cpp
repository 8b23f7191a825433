#include <QFileDialog>
#include <QLabel>

#include "windows/signs/SignButton.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

const char* const kKeys[] = {"Cmd(0)", "Cmd(1)", "Cmd(2)", "Cmd(3)", "Cmd(4)", "Cmd(5)", "Cmd(6)", "Cmd(7)"};

/// The signs on the strip as they are seen, "-" for a hidden key, "*" behind a marked one.
QString strip(Stage& stage)
{
    QStringList shown;
    for (const char* const name : kKeys) {
        const auto* const key = stage.control<SignButton>(name);
        shown << (key->isVisible() ? qtext(key->code()) : QStringLiteral("-")) +
                     (key->text() == QLatin1String("Canc ?") ? QStringLiteral("*") : QString());
    }
    return shown.join(QLatin1Char(' '));
}

/// Types `name` into the file dialog that `item` opens; nothing cancels it. What the dialog was is in the
/// members afterwards.
class FileDialogUser {
  public:
    FileDialogUser(Stage& stage, const char* item, const QString& name)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            title = dialog->windowTitle();
            directory = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            if (name.isEmpty() || typed_) {  // back again after "No": leave it
                QTest::keyClick(dialog, Qt::Key_Escape);
                return;
            }
            typed_ = true;
            auto* const line = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            line->setText(name);
            QTest::keyClick(line, Qt::Key_Return);
        });
        timer.start(5);
        stage.choose(item);
    }

    QString title;
    QString directory;
    QStringList filters;

  private:
    bool typed_ = false;
};

}  // namespace

class TestFavourites : public QObject {
    Q_OBJECT

  private slots:
    /// The dialog of Windows itself has no fields of ours to type into.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void buildsAStripFromAPageInsertsAndDeletesFromItsMiddle()
    {
        Stage stage;
        QCOMPARE(strip(stage), QStringLiteral("- - - - - - - -"));
        QVERIFY(!stage.control<QWidget>("Co4")->isVisible());
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("p19 g03 p34 c09 e44 c31 i27 f21"));
        QTest::mousePress(stage.control<QWidget>("Cmd(3)"), Qt::LeftButton);  // acts before it is let go
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("c09"));
        QTest::mouseRelease(stage.control<QWidget>("Cmd(3)"), Qt::LeftButton);
        QTest::mouseClick(stage.control<QWidget>("Cmd(3)"), Qt::RightButton);
        QTest::keyClick(stage.control<QWidget>("Cmd(5)"), Qt::Key_Space);
        QTest::keyClick(stage.control<QWidget>("Cmd(7)"), Qt::Key_Return);
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("c09c31f21"));

        stage.choose("elim");
        stage.click("Co2");
        stage.click("Co2");
        stage.click("Co3");
        QCOMPARE(strip(stage), QStringLiteral("p19 g03* p34 c09 e44 c31 i27 f21"));
        stage.click("Co4");
        QCOMPARE(strip(stage), QStringLiteral("p19 p34* c09 e44 c31 i27 f21 -"));
        stage.click("Co5");
        QCOMPARE(strip(stage), QStringLiteral("p19 p34 c09 e44 c31 i27 f21 -"));
        QVERIFY(!stage.control<QWidget>("Command2")->isVisible());
        stage.choose("nascondi");
        QCOMPARE(strip(stage), QStringLiteral("- - - - - - - -"));
        stage.choose("prefins");
        stage.choose("elim");
        stage.click("Command2");
        QCOMPARE(strip(stage), QStringLiteral("-* - - - - - - -"));
        QVERIFY(stage.noBoxLeft());
    }

    void f4WorksFromAnywhereInTheWindow()
    {
        Stage stage;
        stage.form1().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.form1()));
        for (const char* const focused : {"Text1", "tasto(4)", "Command12", "HScroll1"}) {
            stage.press("a02");
            stage.control<QWidget>(focused)->setFocus();
            QTest::keyClick(stage.control<QWidget>(focused), Qt::Key_F4);
            QCOMPARE(stage.control<SignButton>("Cmd(0)")->code(), std::string("a02"));
            QCOMPARE(stage.session().display().DisplayCodes(), std::string());
            stage.choose("elim");
            stage.click("Command2");
        }
        stage.expect(
            {.title = "Sistema:",
             .text = "Selezionare con il mouse il geroglifico da inserire nei preferiti e poi premere F4",
             .icon = Icon::Critical});
        QTest::keyClick(&stage.form1(), Qt::Key_F4);
        QVERIFY(stage.noBoxLeft());
    }

    void turnsPages()
    {
        Stage stage;
        auto* const page = stage.control<QLabel>("Label2");
        QCOMPARE(page->text(), QStringLiteral("pre1"));
        stage.click("Command6");
        QCOMPARE(page->text(), QStringLiteral("pre2"));
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
        stage.session().FavouritePage = 98;
        stage.click("Command6");
        QCOMPARE(page->text(), QStringLiteral("pre99"));
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
    }

    void aMissingImageShowsItsCodeAndAMissingPageIsReported()
    {
        Stage stage;
        stage.drive().write("C:\\programmi\\Karvel\\prefe\\pre1.prf",
                            "D:\\altrove\\segni\\x99.gif\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("x99 - - - - - - -"));
        stage.drive().files().remove("C:\\programmi\\Karvel\\prefe\\pre1.prf");
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::FileNotFound)));
        stage.choose("prefins");
        QCOMPARE(strip(stage), QStringLiteral("x99 - - - - - - -"));
        QVERIFY(stage.noBoxLeft());
    }

    void savesAndLoadsThroughTheFileDialog()
    {
        Stage stage;
        const std::string saved = "C:\\programmi\\Karvel\\prefe\\mie.prf";
        stage.choose("prefins");
        const FileDialogUser cancelled(stage, "salva", {});
        QCOMPARE(cancelled.title, QStringLiteral("Salva file (preferiti)"));
        QCOMPARE(cancelled.filters, QStringList{QStringLiteral("prf (*)")});
        QCOMPARE(std::filesystem::path(utf8(cancelled.directory)),
                 stage.drive().host("C:\\programmi\\Karvel\\prefe"));
        FileDialogUser(stage, "salva", QStringLiteral("mie"));
        QCOMPARE(stage.drive().read(saved), stage.drive().read("C:\\programmi\\Karvel\\prefe\\pre1.prf"));

        // The name with its ending is asked about, and "No" goes back to the dialog.
        stage.click("Command6");
        const MessageBox replace{.title = "Salva file (preferiti)",
                                 .text = saved + "\resiste già.\r\rSostituirlo ?",
                                 .icon = Icon::Question,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Button::No};
        stage.expect(replace, Button::No);
        FileDialogUser(stage, "salva", QStringLiteral("mie"));
        QVERIFY(stage.drive().read(saved).find("p19.gif") != std::string::npos);
        stage.expect(replace, Button::Yes);
        FileDialogUser(stage, "salva", QStringLiteral("mie"));
        QVERIFY(stage.drive().read(saved).find("e16.gif") != std::string::npos);

        stage.choose("prefins");
        const FileDialogUser opened(stage, "sep", QStringLiteral("mie.prf"));
        QCOMPARE(opened.title, QStringLiteral("Seleziona un file (preferiti)"));
        QCOMPARE(opened.filters,
                 (QStringList{QStringLiteral("prf (*)"), QStringLiteral("Tutti i file (*)")}));
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
        stage.drive().write("C:\\programmi\\Karvel\\prefe\\altro.PRF", "");
        FileDialogUser(stage, "sep", QStringLiteral("altro.PRF"));  // refused in silence
        QCOMPARE(strip(stage), QStringLiteral("e16 h11 b47 h19 n35 o45 d48 l35"));
        QVERIFY(stage.noBoxLeft());
    }
};

QTEST_MAIN(TestFavourites)
#include "FavouritesTest.moc"
