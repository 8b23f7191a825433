#include "app/Session.hpp"

#include <gtest/gtest.h>

#include "app/Installer.hpp"
#include "app/Views.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::record;

class SessionTest : public ::testing::Test {
  protected:
    SessionTest()
    {
        drive.writeSettings();
        session.palette().changed(1);
    }

    void expectView(const std::string& code, const std::string& count)
    {
        ui.expect({.title = "Visualizza",
                   .text = "Codice geroglifico: " + code + "\r\rNumero totale di voci immesse: " + count,
                   .icon = Icon::Information});
    }

    void expectError(const std::string& number, const std::string& text)
    {
        ui.expect({.title = "Karvel",
                   .text = "Errore di run-time '" + number + "':\n\n" + text,
                   .icon = Icon::Critical});
    }

    void expectPhrase(const std::string& codes, const std::string& count)
    {
        ui.expect({.title = "sistema",
                   .text = "Codice frase: " + codes + "\r\rNumero caratteri: " + count,
                   .icon = Icon::Information,
                   .systemModal = true});
        showPhrase(session);
    }

    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
};

TEST_F(SessionTest, TheCodeViewCountsInTheFavouritesPage)
{
    const std::string one = record("a01", "uno");
    session.FavouritePage = 3;
    expectView("", "0");
    showCode(session);
    EXPECT_EQ(session.FavouritePage, 0);

    drive.write(kDictionaryPath, one + one + one + one + one);
    session.palette().press(4);
    expectView("a05", "4");
    showCode(session);
    EXPECT_EQ(session.FavouritePage, 4);

    drive.write(kDictionaryPath, one);  // the fifth field is missing: told, and the count shown all the same
    expectError("62", "Input oltre la fine del file");
    expectView("a05", "1");
    showCode(session);

    drive.files().remove(kDictionaryPath);
    expectError("53", "File non trovato");
    expectView("a05", "0");
    showCode(session);
    EXPECT_EQ(session.FavouritePage, 0);

    std::string many;
    for (int i = 0; i < 200000; ++i) {
        many += "x\n";
    }
    drive.write(kDictionaryPath, many);
    expectView("a05", "40000");
    showCode(session);
    EXPECT_EQ(session.FavouritePage, 32767);
    EXPECT_EQ(ui.busyDepth, 0);
}

TEST_F(SessionTest, ThePhraseViewCountsSigns)
{
    expectPhrase("", "0");
    session.palette().press(0);
    session.palette().press(52);
    expectPhrase("a01a53", "2");
    drive.write(kUndoPath, "file undo\r\na01b\r\n 1 \r\n 0 \r\n 0 \r\n");
    session.display().undo();
    expectPhrase("a01b", "1,33333333333333");
}

TEST_F(SessionTest, LeavingAsksOneWayOrTheOther)
{
    for (const auto& [icon, confirm] :
         {std::pair{Icon::None, &confirmExit}, std::pair{Icon::Question, &confirmClose}}) {
        for (const Button answer : {Button::Yes, Button::No}) {
            ui.expect({.title = "Uscita programma:",
                       .text = "Sei sicuro ?",
                       .icon = icon,
                       .buttons = Buttons::YesNo,
                       .defaultButton = Button::No},
                      answer);
            EXPECT_EQ(confirm(ui), answer == Button::Yes);
        }
    }
}

TEST_F(SessionTest, SearchingWithNothingComposedOpensTheItalianSearch)
{
    session.search();
    EXPECT_EQ(windows.opened, (std::vector<std::string>{"Ingrandimento", "italiano"}));
}

TEST_F(SessionTest, TheMissingSignKeyAndTheMenuShareOneMode)
{
    drive.write(kDictionaryPath, record("a01b02", "casa"));
    session.modes().choose(Mode::StartsWith, drive.files());
    session.palette().press(0);
    session.palette().changed(14);
    ui.expect({.title = "Informazione",
               .text = "Hai selezionato un carattere speciale che attiva la ricerca 'Geroglifico mancante'",
               .icon = Icon::Information});
    session.palette().press(46);
    EXPECT_TRUE(session.modes().ticked(Mode::MissingSign));
    ui.expect({.title = "Traduzione", .text = "1) -  CASA\n\n2) -  \n\nNote: ", .buttons = Buttons::OkCancel},
              Button::Cancel);
    session.search();
    EXPECT_EQ(session.display().cells()[1].code, "b02");
    EXPECT_EQ(session.last().translation, "CASA");
    session.display().clearAll();
    EXPECT_TRUE(session.modes().ticked(Mode::Equal));
    EXPECT_EQ(session.modes().caption(), "TIPO RICERCA: Inizia per...");
}

TEST_F(SessionTest, APictureIsLookedForAsItIsAndThenInTheInstallation)
{
    const struct {
        const char *name, *missing, *opened;
    } kCases[] = {
        {"occhio.gif", "", "imm1 C:\\programmi\\Karvel\\occhio.gif|occhio.gif"},
        {"foto\\re.jpg", "", "imm1 C:\\programmi\\Karvel\\foto\\re.jpg|foto\\re.jpg"},
        {"D:\\re.jpg", "", "imm1 D:\\re.jpg|D:\\re.jpg"},
        {"/srv/re.jpg", "", "imm1 /srv/re.jpg|/srv/re.jpg"},
        {"occhio.gif", "C:\\programmi\\Karvel\\occhio.gif", "imm1 |occhio.gif"},
        {"", "C:\\programmi\\Karvel\\", "imm1 |"},
    };
    for (const auto& [name, missing, opened] : kCases) {
        pictures.missing = {missing};
        session.resultView().showPicture(name);
        EXPECT_EQ(windows.opened.back(), opened);
    }
}

TEST_F(SessionTest, InstallingNeverTouchesWhatIsThere)
{
    const fs::path tree = drive.directory().parent_path() / "tree";
    const FileSystem host{Drives()};
    fs::create_directories(tree / "GR");
    fs::create_directories(tree / "settaggi");
    for (const char* const name : {"dizio.txt", "GR/a01.gif", "GR/a02.gif", "settaggi/conf.cfg"}) {
        host.replace(utf8Path(tree / name), std::string("nuovo ") + name);
    }
    fs::permissions(tree / "GR/a01.gif", fs::perms(0444));  // installed for everyone, read-only
    drive.files().remove(kDictionaryPath);
    drive.write("C:\\programmi\\Karvel\\DIZIO.TXT", "mio");
    drive.write("C:\\programmi\\Karvel\\gr\\A02.GIF", "mio");
    EXPECT_EQ(installTree(tree, drive.files().drives()), 1U);
    EXPECT_EQ(drive.read(kDictionaryPath), "mio");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\GR\\a02.gif"), "mio");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\settaggi\\conf.cfg"), " 3\r\n");
    const fs::path copied = drive.host("C:\\programmi\\Karvel\\GR\\a01.gif");
    EXPECT_EQ(copied.parent_path().filename(), "gr");
    EXPECT_NE(fs::status(copied).permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(installTree(tree, drive.files().drives()), 0U);
    fs::permissions(tree / "GR/a01.gif", fs::perms::owner_write, fs::perm_options::add);  // so that it can go

    const testing::TemporaryDrive blocked;
    blocked.write("C:\\programmi\\Karvel\\GR", "un file dove serve una directory");
    EXPECT_THROW((void)installTree(tree, blocked.files().drives()), RuntimeError);
    EXPECT_EQ(blocked.read("C:\\programmi\\Karvel\\GR"), "un file dove serve una directory");
}

}  // namespace
}  // namespace karvel
