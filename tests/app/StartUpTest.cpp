#include "app/StartUp.hpp"

#include <gtest/gtest.h>

#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRoot = "C:\\programmi\\Karvel";

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

    void expectBrokenInstallation()
    {
        ui.expect({.title = "ATTENZIONE INSTALLAZIONE ERRATA       ",
                   .text = "INSTALLARE NUOVAMENTE IL PROGRAMMA     \r\r"
                           "Mancano directory o file di configurazione.",
                   .icon = Icon::Critical,
                   .systemModal = true});
    }

    void expectMissingSigns()
    {
        ui.expect(
            {.title = "ERRORE DI SISTEMA",
             .text =
                 "Attenzione: non trovo la directory dei geroglifici, il percorso selezionato è errato.\n\n"
                 "Impostarlo dal menu opzioni-dir geroglifici.",
             .icon = Icon::Critical});
    }

    void renameRoot(const char* name) const
    {
        const fs::path root = drive.host(kRoot);
        const fs::path between = root.parent_path() / "rinomina";
        fs::rename(root, between);  // in two steps: not every Windows changes the case of letters in one
        fs::rename(between, root.parent_path() / name);
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
    program.drive.write("C:\\programmi\\Karvel\\settaggi\\coloreD.prf", " 255\r\n");
    program.drive.write("C:\\programmi\\Karvel\\settaggi\\coloreF.prf", " 65280\r\n");
    program.drive.write("C:\\programmi\\Karvel\\settaggi\\conf2.cfg", "\"D:\\segni, miei\"\r\n");
    EXPECT_EQ(program.start(), "ready");
    Session& session = program.session;
    EXPECT_EQ(session.colours().display, Colour::rgb(255, 0, 0));
    EXPECT_EQ(session.colours().window, Colour::rgb(0, 255, 0));
    EXPECT_EQ(session.termsPanel, "Termini: 0");
    EXPECT_EQ(session.FavouritePage, 1);
    EXPECT_TRUE(session.modes().ticked(Mode::Contains));
    EXPECT_EQ(session.modes().caption(), "TIPO RICERCA: Cerca simile");
    EXPECT_EQ(session.images().GlyphDirectory(), "D:\\segni, miei");
    EXPECT_EQ(session.images().savedGlyphDirectory(), "C:\\Programmi\\Karvel\\GR");
    EXPECT_TRUE(session.display().cells()[0].border);
    EXPECT_EQ(session.palette().CurrentPage(), 1);
    EXPECT_EQ(session.palette().codeOf(52), "a53");
    EXPECT_EQ(session.palette().picture(0), "D:\\segni, miei\\a01.gif");
}

TEST(StartUp, EndsWhereASettingsFileFails)
{
    // In this order: what fails first is what is reported.
    const std::string settings = std::string(kRoot) + "\\settaggi\\";
    for (const char* const name : {"coloreD.prf", "coloreF.prf", "conf.cfg", "conf2.cfg"}) {
        Program missing;
        missing.drive.files().remove(settings + name);
        EXPECT_EQ(missing.start(), "53") << name;
        Program empty;
        empty.drive.write(settings + name, "");
        EXPECT_EQ(empty.start(), "62") << name;
        Program directory;
        directory.drive.files().remove(settings + name);
        fs::create_directory(directory.drive.host(settings + name));
        EXPECT_EQ(directory.start(), "75") << name;
    }
    Program noSettings;
    fs::remove_all(noSettings.drive.host(settings));
    EXPECT_EQ(noSettings.start(), "76");
    Program nothingAtAll;
    fs::remove_all(nothingAtAll.drive.directory());
    EXPECT_EQ(nothingAtAll.start(), "76");
    Program tooLarge;
    tooLarge.drive.write(settings + "coloreD.prf", " 2147483648\r\n");
    EXPECT_EQ(tooLarge.start(), "6");
}

TEST(StartUp, WantsTheInstallationUnderItsOwnName)
{
    for (const char* const name : {"KARVEL", "karvel"}) {
        Program program;
        program.renameRoot(name);
        program.drive.files().remove(
            "C:\\programmi\\Karvel\\settaggi\\conf.cfg");  // is not looked at any more
        program.expectBrokenInstallation();
        EXPECT_EQ(program.start(), "ended");
    }
    Program colourFirst;
    colourFirst.renameRoot("KARVEL");
    colourFirst.drive.files().remove("C:\\programmi\\Karvel\\settaggi\\coloreF.prf");
    EXPECT_EQ(colourFirst.start(), "53");
}

TEST(StartUp, TakesSettingsThatNobodyWrote)
{
    const struct {
        const char *stored, *display;
        int mode;
        Colour colour;
    } kCases[] = {
        {" 6\r\n", "rosso\r\n", 6, {0}},  // searches as 6, yet nothing shows it
        {"quattro\r\n", " 16777215\r\n", 0, {0xFFFFFF}},
        {" 9", "-1", 9, {-1}},
    };
    for (const auto& [stored, display, mode, colour] : kCases) {
        Program program;
        program.drive.write(kSearchModePath, stored);
        program.drive.write(kDisplayColourPath, display);
        EXPECT_EQ(program.start(), "ready") << stored;
        EXPECT_EQ(program.session.modes().SearchMode(), mode);
        EXPECT_EQ(program.session.modes().caption(), "TIPO RICERCA:");
        EXPECT_FALSE(program.session.modes().ticked(Mode::MissingSign));
        EXPECT_EQ(program.session.colours().display, colour);
    }
}

TEST(StartUp, ReportsMissingSignsOnceAndGoesOn)
{
    Program none;
    none.pictures.allMissing = true;
    none.expectMissingSigns();
    EXPECT_EQ(none.start(), "ready");
    EXPECT_EQ(none.session.palette().picture(0), "");
    EXPECT_TRUE(none.session.display().cells()[0].border);

    Program one;
    one.pictures.missing.insert("C:\\Programmi\\Karvel\\GR\\a20.gif");
    one.pictures.missing.insert("C:\\Programmi\\Karvel\\GR\\a30.gif");
    one.expectMissingSigns();
    EXPECT_EQ(one.start(), "ready");
    EXPECT_EQ(one.session.palette().picture(18), "C:\\Programmi\\Karvel\\GR\\a19.gif");
    EXPECT_EQ(one.session.palette().picture(20), "");
    one.session.palette().changed(1);  // every later load passes over them in silence
    EXPECT_EQ(one.session.palette().picture(20), "C:\\Programmi\\Karvel\\GR\\a21.gif");
}

}  // namespace
}  // namespace karvel
