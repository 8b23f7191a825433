#include "app/StartUp.hpp"

#include <gtest/gtest.h>

#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;

const std::string kSettings = "C:\\programmi\\Karvel\\settaggi\\";

const MessageBox kBrokenInstallation{.title = "ATTENZIONE INSTALLAZIONE ERRATA       ",
                                     .text =
                                         "INSTALLARE NUOVAMENTE IL PROGRAMMA     \r\r"
                                         "Mancano directory o file di configurazione.",
                                     .icon = Icon::Critical,
                                     .systemModal = true};
const MessageBox kMissingSigns{
    .title = "ERRORE DI SISTEMA",
    .text =
        "Attenzione: non trovo la directory dei geroglifici, il percorso selezionato è errato.\n\n"
        "Impostarlo dal menu opzioni-dir geroglifici.",
    .icon = Icon::Critical};

/// A program that has just been started on a tree of its own.
struct Program {
    Program() { drive.writeSettings(); }

    /// "ready", "ended", or the number of the run-time error that ends the program.
    std::string start()
    {
        try {
            return formLoad(session) == StartUp::Ready ? "ready" : "ended";
        } catch (const RuntimeError& error) {
            return std::to_string(error.value());
        }
    }

    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
};

TEST(StartUp, OnAWholeTreePutsEverythingInPlace)
{
    Program program;
    program.drive.write(kSettings + "coloreD.prf", "\" 255 \"\r\n");
    program.drive.write(kSettings + "coloreF.prf", " 65280\r\n");
    program.drive.write(kSettings + "conf2.cfg", "\"D:\\segni, miei\"\r\n");
    EXPECT_EQ(program.start(), "ready");
    Session& session = program.session;
    EXPECT_EQ(session.colours().display, Colour::rgb(255, 0, 0));
    EXPECT_EQ(session.colours().window, Colour::rgb(0, 255, 0));
    EXPECT_EQ(session.termsPanel, "Termini: 0");
    EXPECT_EQ(session.FavouritePage, 1);
    EXPECT_EQ(session.modes().caption(), "TIPO RICERCA: Cerca simile");
    EXPECT_EQ(session.images().savedGlyphDirectory(), "C:\\Programmi\\Karvel\\GR");
    EXPECT_TRUE(session.display().cells()[0].border);
    EXPECT_EQ(session.palette().CurrentPage(), 1);
    EXPECT_EQ(session.palette().codeOf(52), "a53");
    EXPECT_EQ(session.palette().picture(0), "D:\\segni, miei\\a01.gif");
}

TEST(StartUp, EndsWhereASettingsFileFails)
{
    for (const char* const name : {"coloreD.prf", "coloreF.prf", "conf.cfg", "conf2.cfg"}) {
        Program missing;
        missing.drive.files().remove(kSettings + name);
        EXPECT_EQ(missing.start(), "53") << name;
        Program empty;
        empty.drive.write(kSettings + name, "");
        EXPECT_EQ(empty.start(), "62") << name;
    }
    Program nothingAtAll;
    fs::remove_all(nothingAtAll.drive.directory());
    EXPECT_EQ(nothingAtAll.start(), "76");
}

TEST(StartUp, WantsTheInstallationUnderItsOwnName)
{
    // What fails first is what is reported: a colour before the installation, the mode after it.
    for (const auto& [lost, end] : {std::pair{"conf.cfg", "ended"}, std::pair{"coloreF.prf", "53"}}) {
        Program program;
        const fs::path root = program.drive.host("C:\\programmi\\Karvel");
        const fs::path between = root.parent_path() / "rinomina";
        fs::rename(root, between);  // in two steps: not every Windows changes the case of letters in one
        fs::rename(between, root.parent_path() / "KARVEL");
        program.drive.files().remove(kSettings + lost);
        if (end == std::string("ended")) {
            program.ui.expect(kBrokenInstallation);
        }
        EXPECT_EQ(program.start(), end);
    }
}

TEST(StartUp, ReportsMissingSignsOnceAndGoesOn)
{
    Program one;
    one.pictures.missing.insert("C:\\Programmi\\Karvel\\GR\\a20.gif");
    one.pictures.missing.insert("C:\\Programmi\\Karvel\\GR\\a30.gif");
    one.ui.expect(kMissingSigns);
    EXPECT_EQ(one.start(), "ready");
    EXPECT_EQ(one.session.palette().picture(18), "C:\\Programmi\\Karvel\\GR\\a19.gif");
    EXPECT_EQ(one.session.palette().picture(20), "");
    EXPECT_EQ(one.session.palette().codeOf(52), "a53");  // its key works without a picture
    EXPECT_TRUE(one.session.display().cells()[0].border);
    one.session.palette().changed(1);  // every later load passes over them in silence
    EXPECT_EQ(one.session.palette().picture(20), "C:\\Programmi\\Karvel\\GR\\a21.gif");
}

}  // namespace
}  // namespace karvel
