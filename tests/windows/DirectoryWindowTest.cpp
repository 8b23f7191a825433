#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <atomic>
#include <memory>
#include <semaphore>

#include "windows/DirectoryWindow.hpp"
#include "windows/signs/SignButton.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr const char* kSettings = "C:\\programmi\\Karvel\\settaggi\\conf2.cfg";

/// A drive that answers when it is told to.
struct SlowDrive {
    std::binary_semaphore answer{0};
    std::atomic<int> asked = 0;
};

DirectoryReader::List slowList(const std::shared_ptr<SlowDrive>& drive)
{
    return [drive](const Drives& drives, const std::string& path) {
        if (path.starts_with("d:")) {
            ++drive->asked;
            drive->answer.acquire();
        }
        return listDirectory(drives, path);
    };
}

}  // namespace

class TestSysform : public QObject {
    Q_OBJECT

  private:
    void addDrive(const Stage& stage, const char* name)
    {
        std::filesystem::create_directories(stage.drive().directory().parent_path() / name / "Karvel");
    }

    template <typename Control>
    Control* in(Sysform* sysform, const char* name)
    {
        return sysform->findChild<Control*>(QLatin1String(name));
    }
    QString proposed(Sysform* sysform) { return in<QLabel>(sysform, "Label2")->text(); }
    QWidget* readingLine(Sysform* sysform) { return in<QLabel>(sysform, "lettura")->parentWidget(); }
    void press(Sysform* sysform, const char* name)
    {
        QTest::mouseClick(in<QPushButton>(sysform, name), Qt::LeftButton);
    }

    /// Chooses an entry of the drive list by its keyboard.
    void chooseDrive(Sysform* sysform, const QString& entry)
    {
        auto* const drives = in<QComboBox>(sysform, "Drive1");
        QVERIFY(drives->findText(entry) >= 0);
        drives->setFocus();
        const int steps = drives->findText(entry) - drives->currentIndex();
        for (int step = 0; step < qAbs(steps); ++step) {
            QTest::keyClick(drives, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
        }
    }

    QListWidgetItem* entry(Sysform* sysform, const QString& name)
    {
        auto* const list = in<QListWidget>(sysform, "Dir1");
        for (int row = 0; row < list->count(); ++row) {
            if (list->item(row)->text().trimmed() == name) {
                return list->item(row);
            }
        }
        return nullptr;
    }

    void enter(Sysform* sysform, const QString& name)
    {
        QTRY_VERIFY(entry(sysform, name) != nullptr);
        auto* const list = in<QListWidget>(sysform, "Dir1");
        const QPoint place = list->visualItemRect(entry(sysform, name)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    }

  private slots:
    void choosesADirectoryAndRedrawsAtOnce()
    {
        Stage stage;
        const std::string signs = "C:\\programmi\\Karvel\\GR\\a01.gif";
        stage.drive().write("C:\\segni\\GR\\a02.gif", stage.drive().read(signs));
        stage.press("a01");
        stage.choose("percorso");
        auto* const sysform = stage.windows().opened<Sysform>();
        QCOMPARE(sysform->windowTitle(), QStringLiteral("Sistema"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\Programmi\\Karvel\\GR"));
        QVERIFY(!in<QListWidget>(sysform, "Dir1")->isEnabled());

        press(sysform, "Command2");
        QVERIFY(in<QListWidget>(sysform, "Dir1")->isEnabled());
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\Programmi\\Karvel\\GR"));
        enter(sysform, QStringLiteral("C:\\"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\GR"));
        enter(sysform, QStringLiteral("segni"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\segni\\GR"));
        QCOMPARE(stage.drive().read(kSettings), std::string("C:\\Programmi\\Karvel\\GR\r\n"));

        press(sysform, "Command1");
        QTRY_VERIFY(stage.windows().opened<Sysform>() == nullptr);
        QCOMPARE(stage.drive().read(kSettings), std::string("C:\\segni\\GR\r\n"));
        QCOMPARE(stage.control<SignButton>("tasto(1)")->picturePath(), std::string("C:\\segni\\GR\\a02.gif"));
        QVERIFY(stage.control<SignButton>("tasto(0)")->picturePath().empty());
        QVERIFY(stage.control<SignCell>("Vendol(0)")->cell().blank());
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a01"));
    }

    void enterKeyOpensTheDirectoryAndDoesNotConfirm()
    {
        Stage stage;
        stage.choose("percorso");
        auto* const sysform = stage.windows().opened<Sysform>();
        press(sysform, "Command2");
        auto* const list = in<QListWidget>(sysform, "Dir1");
        QTRY_VERIFY(entry(sysform, QStringLiteral("GR")) != nullptr);
        list->setFocus();
        list->setCurrentItem(entry(sysform, QStringLiteral("GR")));
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\Programmi\\Karvel\\GR\\GR"));
        QVERIFY(sysform->isVisible());
        QTest::keyClick(sysform, Qt::Key_Escape);
        QVERIFY(!sysform->isVisible());
        QCOMPARE(stage.session().images().GlyphDirectory(), std::string("C:\\Programmi\\Karvel\\GR"));
    }

    void refusesADisketteAndFindsNoDisc()
    {
        Stage stage;
        addDrive(stage, "drive_a");
        addDrive(stage, "drive_d");
        stage.choose("percorso");
        auto* const sysform = stage.windows().opened<Sysform>();
        stage.expect({.title = "Messaggio",
                      .text = "E' possibile leggere i geroglifici solo da Hard disk e lettore CD",
                      .icon = Icon::Critical});
        chooseDrive(sysform, QStringLiteral("a:"));
        QCOMPARE(in<QComboBox>(sysform, "Drive1")->currentText(), QStringLiteral("C: [HARDDISK]"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\Programmi\\Karvel\\GR"));

        std::filesystem::remove_all(stage.drive().directory().parent_path() / "drive_d");
        stage.expect({.title = "Messaggio",
                      .text = "Attenzione: manca il cd nel lettore\ninserirlo e ricomporre il percorso",
                      .icon = Icon::Critical});
        chooseDrive(sysform, QStringLiteral("d:\\"));
        QTRY_VERIFY(stage.noBoxLeft());
        QTRY_COMPARE(proposed(sysform), QStringLiteral("d:\\GR"));
    }

    void aSlowDriveLeavesTheWindowAliveAndCanBeGivenUp()
    {
        Stage stage;
        addDrive(stage, "drive_d");
        const auto drive = std::make_shared<SlowDrive>();
        auto* const sysform = new Sysform(stage.desktop(), &stage.form1(), slowList(drive));
        sysform->show();
        chooseDrive(sysform, QStringLiteral("d:\\"));
        QTRY_VERIFY(readingLine(sysform)->isVisible());  // the sign of life: the event loop runs
        QCOMPARE(drive->asked.load(), 1);
        press(sysform, "interrompi");
        QVERIFY(!readingLine(sysform)->isVisible());
        QCOMPARE(in<QComboBox>(sysform, "Drive1")->currentText(), QStringLiteral("C: [HARDDISK]"));
        drive->answer.release();  // too late: nobody listens

        chooseDrive(sysform, QStringLiteral("d:\\"));
        QTRY_COMPARE(drive->asked.load(), 2);
        QCOMPARE(proposed(sysform), QStringLiteral("d:\\"));
        QVERIFY(!in<QPushButton>(sysform, "Command1")->isEnabled());
        drive->answer.release();
        QTRY_COMPARE(proposed(sysform), QStringLiteral("d:\\Karvel\\GR"));
        QVERIFY(entry(sysform, QStringLiteral("Karvel")) != nullptr);

        // Closed while a drive is silent: the answer finds nobody, and nothing breaks.
        chooseDrive(sysform, QStringLiteral("C: [HARDDISK]"));
        chooseDrive(sysform, QStringLiteral("d:\\"));
        QTRY_COMPARE(drive->asked.load(), 3);
        delete sysform;
        drive->answer.release();
        QTRY_COMPARE(drive.use_count(), 1L);
    }
};

QTEST_MAIN(TestSysform)
#include "DirectoryWindowTest.moc"
