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
const QString kShipped = QStringLiteral("C:\\Programmi\\Karvel\\GR");
const QString kHardDisk = QStringLiteral("C: [HARDDISK]");

QString proposed(const Sysform* sysform)
{
    return control<QLabel>(sysform, "Label2")->text();
}

/// Chooses an entry of the drive list by its keyboard.
void chooseDrive(const Sysform* sysform, const QString& entry)
{
    auto* const drives = control<QComboBox>(sysform, "Drive1");
    QVERIFY(drives->findText(entry) >= 0);
    const int steps = drives->findText(entry) - drives->currentIndex();
    for (int step = 0; step < qAbs(steps); ++step) {
        QTest::keyClick(drives, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
}

/// Enters the directory `name` of the list: by double click, or by its keyboard.
void enter(const Sysform* sysform, const QString& name, bool byKey = false)
{
    auto* const list = control<QListWidget>(sysform, "Dir1");
    const auto found = [list, &name] {
        return list->findItems(name, Qt::MatchContains | Qt::MatchCaseSensitive).value(0);
    };
    QTRY_VERIFY(found() != nullptr);
    if (byKey) {
        list->setCurrentItem(found());
        QTest::keyClick(list, Qt::Key_Return);
        return;
    }
    const QPoint place = list->visualItemRect(found()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
}

void addDrive(const Stage& stage, const char* name)
{
    std::filesystem::create_directories(stage.drive().directory().parent_path() / name / "Karvel");
}

}  // namespace

class DirectoryWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void aDirectoryIsChosenAndTheSignsRedrawnAtOnce()
    {
        Stage stage;
        stage.drive().write("C:\\segni\\GR\\a02.gif",
                            stage.drive().read("C:\\programmi\\Karvel\\GR\\a01.gif"));
        stage.press("a01");
        const auto* sysform = stage.open<Sysform>("percorso");
        QCOMPARE(proposed(sysform), kShipped);
        QVERIFY(!control<QWidget>(sysform, "Dir1")->isEnabled());
        click(sysform, "Command2");
        QVERIFY(control<QWidget>(sysform, "Dir1")->isEnabled());
        enter(sysform, QStringLiteral("GR"), true);
        QCOMPARE(proposed(sysform), kShipped + QStringLiteral("\\GR"));
        click(sysform, "Command3");
        QTRY_VERIFY(stage.windows().opened<Sysform>() == nullptr);
        QCOMPARE(stage.drive().read(kSettings), utf8(kShipped) + "\r\n");

        sysform = stage.open<Sysform>("percorso");
        click(sysform, "Command2");
        enter(sysform, QStringLiteral("C:\\"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\GR"));
        enter(sysform, QStringLiteral("segni"));
        QCOMPARE(proposed(sysform), QStringLiteral("C:\\segni\\GR"));
        click(sysform, "Command1");
        QTRY_VERIFY(stage.windows().opened<Sysform>() == nullptr);
        QCOMPARE(stage.drive().read(kSettings), std::string("C:\\segni\\GR\r\n"));
        QCOMPARE(stage.control<SignButton>("tasto(1)")->picturePath(), std::string("C:\\segni\\GR\\a02.gif"));
        QVERIFY(stage.control<SignButton>("tasto(0)")->picturePath().empty());
        QVERIFY(stage.control<SignCell>("Vendol(0)")->cell().blank());
        QCOMPARE(stage.phrase(), std::string("a01"));
    }

    void aDisketteAndAMissingDiscAreRefused()
    {
        Stage stage;
        addDrive(stage, "drive_a");
        addDrive(stage, "drive_d");
        const auto* const sysform = stage.open<Sysform>("percorso");
        stage.expect({.title = "Messaggio",
                      .text = "E' possibile leggere i geroglifici solo da Hard disk e lettore CD",
                      .icon = Icon::Critical});
        chooseDrive(sysform, QStringLiteral("a:"));
        QCOMPARE(control<QComboBox>(sysform, "Drive1")->currentText(), kHardDisk);
        QCOMPARE(proposed(sysform), kShipped);
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
        /// A drive that answers when it is told to.
        struct SlowDrive {
            std::binary_semaphore answer{0};
            std::atomic<int> asked = 0;
            std::atomic<int> answered = 0;
        };
        Stage stage;
        addDrive(stage, "drive_d");
        const auto drive = std::make_shared<SlowDrive>();
        auto* const sysform = new Sysform(stage.desktop(), &stage.form1(),
                                          [drive](const Drives& drives, const std::string& path) {
                                              if (path.starts_with("d:")) {
                                                  ++drive->asked;
                                                  drive->answer.acquire();
                                                  ++drive->answered;
                                              }
                                              return listDirectory(drives, path);
                                          });
        sysform->show();
        const QString slow = QStringLiteral("d:\\");
        chooseDrive(sysform, slow);
        const auto* const stop = control<QWidget>(sysform, "interrompi");
        QTRY_VERIFY(stop->isVisible());  // the event loop runs
        QCOMPARE(drive->asked.load(), 1);
        click(sysform, "interrompi");
        QVERIFY(!stop->isVisible());
        QCOMPARE(control<QComboBox>(sysform, "Drive1")->currentText(), kHardDisk);
        drive->answer.release();
        QTRY_COMPARE(drive->answered.load(), 1);  // nobody hears this answer

        chooseDrive(sysform, slow);
        QTRY_COMPARE(drive->asked.load(), 2);
        QCOMPARE(proposed(sysform), slow);
        QVERIFY(!control<QPushButton>(sysform, "Command1")->isEnabled());
        drive->answer.release();
        QTRY_COMPARE(proposed(sysform), QStringLiteral("d:\\Karvel\\GR"));

        // Closed while a drive is silent: the answer finds nobody, and nothing breaks.
        chooseDrive(sysform, kHardDisk);
        chooseDrive(sysform, slow);
        QTRY_COMPARE(drive->asked.load(), 3);
        delete sysform;
        drive->answer.release();
        QTRY_COMPARE(drive.use_count(), 1L);
    }
};

WINDOW_TESTS(DirectoryWindowTest)
#include "DirectoryWindowTest.moc"
