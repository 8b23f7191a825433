#include "app/Session.hpp"

#include <gtest/gtest.h>

#include "app/Installer.hpp"
#include "app/PhraseClipboard.hpp"
#include "app/ReadOnlyData.hpp"
#include "app/Views.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"
#include "writing/Grouping.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/UnicodeLayout.hpp"

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

    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
};

TEST_F(SessionTest, TheCodeViewCountsInTheFavouritesPage)
{
    const std::string one = record("a01", "uno");
    std::string many;
    for (int i = 0; i < 200000; ++i) {
        many += "x\n";
    }
    const struct {
        std::string dictionary, error, count;  ///< no count: the view does not open
        std::int16_t page;
    } kCases[] = {
        {"", "", "0", 0},
        {one + one + one + one + one, "", "4", 4},
        {one, "62':\n\nInput oltre la fine del file", "1", 1},  // the fifth field is missing
        {many, "", "40000", 32767},
        {"(none)", "53':\n\nFile non trovato", "", 0},
    };
    session.palette().press(4);
    for (const auto& [dictionary, error, count, page] : kCases) {
        drive.write(kDictionaryPath, dictionary);
        if (dictionary == "(none)") {
            drive.files().remove(kDictionaryPath);
        }
        if (!error.empty()) {
            ui.expect({.title = "Karvel", .text = "Errore di run-time '" + error, .icon = Icon::Critical});
        }
        if (!count.empty()) {
            ui.expect({.title = "Visualizza",
                       .text = "Codice geroglifico: a05\r\rNumero totale di voci immesse: " + count,
                       .icon = Icon::Information});
        }
        showCode(session);
        EXPECT_EQ(session.FavouritePage, page);
    }
    EXPECT_EQ(ui.busyDepth, 0);
}

TEST_F(SessionTest, ThePhraseViewCountsSigns)
{
    for (const auto& [codes, count] :
         {std::pair{"", "0"}, std::pair{"a01a53", "2"}, std::pair{"a01b", "1,33333333333333"}}) {
        drive.write(kUndoPath, "file undo\r\n" + std::string(codes) + "\r\n 1 \r\n 0 \r\n 0 \r\n");
        session.display().undo();
        ui.expect({.title = "sistema",
                   .text = "Codice frase: " + std::string(codes) + "\r\rNumero caratteri: " + count,
                   .icon = Icon::Information,
                   .systemModal = true});
        showPhrase(session);
    }
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

TEST_F(SessionTest, TheSearchButtonOpensTheItalianSearchOrUsesTheMissingSign)
{
    session.search();
    EXPECT_EQ(windows.opened, (std::vector<std::string>{"Ingrandimento", "italiano"}));

    drive.write(kDictionaryPath, record("a01b02", "casa", "", "*occhio.gif"));
    session.palette().press(0);
    session.modes().activateMissingSign();
    session.insertion()(std::string(kMissingSign), 1);
    ui.expect({.title = "Traduzione",
               .text = "1) -  CASA\n\n2) -  \n\nNote: *occhio.gif",
               .buttons = Buttons::OkCancel},
              Button::Cancel);
    session.search();
    EXPECT_EQ(session.display().cells()[1].code, "b02");
    EXPECT_EQ(session.last().translation, "CASA");
    EXPECT_EQ(session.last().phrase, "a01p47");
    session.display().clearAll();
    EXPECT_TRUE(session.modes().ticked(Mode::Equal));
}

TEST_F(SessionTest, APictureIsLookedForAsItIsAndThenInTheInstallation)
{
    const struct {
        const char *name, *missing, *opened;
    } kCases[] = {
        {"foto\\re.jpg", "", "imm1 C:\\programmi\\Karvel\\foto\\re.jpg|foto\\re.jpg"},
        {"D:\\re.jpg", "", "imm1 D:\\re.jpg|D:\\re.jpg"},
        {"/srv/re.jpg", "", "imm1 /srv/re.jpg|/srv/re.jpg"},
        {"occhio.gif", "C:\\programmi\\Karvel\\occhio.gif", "imm1 |occhio.gif"},
    };
    for (const auto& [name, missing, opened] : kCases) {
        pictures.missing = {missing};
        session.resultView().showPicture(name);
        EXPECT_EQ(windows.opened.back(), opened);
    }
}

TEST_F(SessionTest, WhatCannotBeWrittenIsToldOnceAndKeptInMemory)
{
    keepInMemoryWhatCannotBeWritten(session.files(), ui);
    const auto present = std::distance(fs::directory_iterator(drive.host(kUndoPath).parent_path()), {});
    fs::create_directory(drive.host(kUndoPath));
    ui.expect({.title = "Attenzione",
               .text = "La directory dei dati C:\\programmi\\Karvel non si può scrivere.\n\n"
                       "Si può comporre e cercare come sempre, ma alla chiusura del programma non "
                       "resteranno: lo stato per Undo, il modo di ricerca, i colori, la directory dei "
                       "geroglifici, la cronologia e le scelte delle finestre.",
               .icon = Icon::Exclamation});
    keepInMemoryWhatCannotBeWritten(session.files(), ui);
    session.palette().press(0);
    session.palette().press(1);
    undo(session);
    EXPECT_EQ(session.display().DisplayCodes(), "a01");
    session.modes().choose(Mode::EndsWith, session.files());
    applyWindowColour(session.files(), session.colours(), Colour::rgb(1, 2, 3));
    EXPECT_EQ(readColours(session.files()).window, Colour::rgb(1, 2, 3));
    EXPECT_EQ(drive.read(kSearchModePath), " 3\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(drive.host(kUndoPath).parent_path()), {}), present + 1);
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
    EXPECT_EQ(installTree(tree, drive.files().drives()), 2U);
    EXPECT_EQ(drive.read(kDictionaryPath), "mio");
    host.replace(utf8Path(tree / "dizio.txt"), "ancora nuovo");
    EXPECT_EQ(installTree(tree, drive.files().drives()), 1U);  // the program's own copy is renewed
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\edizione\\dizio.txt"), "ancora nuovo");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\GR\\a02.gif"), "mio");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\settaggi\\conf.cfg"), " 3\r\n");
    const fs::path copied = drive.host("C:\\programmi\\Karvel\\GR\\a01.gif");
    EXPECT_EQ(copied.parent_path().filename(), "gr");
    EXPECT_NE(fs::status(copied).permissions() & fs::perms::owner_write, fs::perms::none);
    fs::permissions(tree / "GR/a01.gif", fs::perms::owner_write, fs::perm_options::add);  // so that it can go
}

TEST_F(SessionTest, APastedGroupingStaysUntilThePhraseChanges)
{
    const auto codage = [this] { return copied(session, session.display().DisplayCodes()).codage; };
    paste(session, "<-F35:I9*D21->");
    EXPECT_EQ(session.display().DisplayCodes(), "d51f21b47");
    EXPECT_EQ(codage(), "<-F35:I9*D21->");
    EXPECT_EQ(copied(session, "d51f21b47").text, "𓄤𓆑𓂋");
    paste(session, "𓀀𓐰𓀁");  // with the joiner of signs above each other
    EXPECT_EQ(codage(), "<-F35:I9*D21->-A1:A2");
    copyJoiners(session, true);
    EXPECT_EQ(copied(session, "a01a02").text, unicodeWithJoiners(blocksOf("a01a02")));
    session.arrangement().follow(session.display().DisplayCodes());
    EXPECT_EQ(codage(), "<-F35:I9*D21->-A1:A2");
    session.display().removeLast();
    session.arrangement().follow(session.display().DisplayCodes());
    session.palette().pressCode("a02");
    EXPECT_EQ(codage(), manuelDeCodage(blocksOf(session.display().DisplayCodes())));
    ui.expect({.title = "Incolla",
               .text = "Questi segni non sono conosciuti e non sono stati inseriti:\n\nXX9",
               .icon = Icon::Exclamation});
    paste(session, "(F35:XX9)*F35");
    EXPECT_EQ(session.display().signs(), 7U);
}

}  // namespace
}  // namespace karvel
