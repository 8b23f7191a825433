#include "dictionary/SearchModes.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

class SearchModesTest : public ::testing::Test {
  protected:
    SearchModesTest() { drive.writeSettings(); }

    /// What a person sees of the modes: the ticked items by number, then the heading.
    static std::string seen(const SearchModes& modes)
    {
        std::string text;
        for (int mode = 1; mode <= 6; ++mode) {
            text += modes.ticked(static_cast<Mode>(mode)) ? std::to_string(mode) : "";
        }
        return text + " " + modes.caption();
    }

    testing::TemporaryDrive drive;
};

TEST_F(SearchModesTest, RestoresWhatWasStored)
{
    const struct {
        std::string_view file;
        int mode;
        std::string_view seen;
    } kCases[] = {
        {" 1\r\n", 1, "1 TIPO RICERCA: Termine presente"},
        {" 2\r\n", 2, "2 TIPO RICERCA: Dividi in parole"},
        {" 3\r\n", 3, "3 TIPO RICERCA: Cerca simile"},
        {" 4\r\n", 4, "4 TIPO RICERCA: Inizia per..."},
        {"5", 5, "5 TIPO RICERCA: Finisce per..."},
        {" 6\r\n", 6, " TIPO RICERCA:"},  // never stored by the program: taken, but nothing shows it
        {" 0\r\n", 0, " TIPO RICERCA:"},
        {"255\r\n", 255, " TIPO RICERCA:"},
        {"tre\r\n", 0, " TIPO RICERCA:"},
        {"\r\n", 0, " TIPO RICERCA:"},
        {" 256\r\n", -6, ""},
        {"-1\r\n", -6, ""},
        {" 99999\r\n", -6, ""},
        {"", -62, ""},
    };
    for (const auto& [file, mode, expected] : kCases) {
        drive.write(kSearchModePath, file);
        SearchModes modes;
        try {
            modes.restore(drive.files());
            EXPECT_EQ(modes.SearchMode(), mode) << file;
            EXPECT_EQ(seen(modes), expected);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(-error.value(), mode) << file;
        }
    }
}

TEST_F(SearchModesTest, AChoiceTicksStoresAndNamesTheMode)
{
    SearchModes modes;
    modes.restore(drive.files());
    const struct {
        Mode mode;
        std::string_view seen, stored;
    } kCases[] = {
        {Mode::Equal, "1 TIPO RICERCA: Termine presente", " 1\r\n"},
        {Mode::Split, "2 TIPO RICERCA: Dividi in parole", " 2\r\n"},
        {Mode::StartsWith, "4 TIPO RICERCA: Inizia per...", " 4\r\n"},
        {Mode::EndsWith, "5 TIPO RICERCA: Finisce per...", " 5\r\n"},
        {Mode::Contains, "3 TIPO RICERCA: Cerca Simile", " 3\r\n"},  // the capital S of the chosen mode
        {Mode::Contains, "3 TIPO RICERCA: Cerca Simile", " 3\r\n"},
        {Mode::MissingSign, "6 TIPO RICERCA: Cerca Simile", " 3\r\n"},  // neither heading nor file follow
        {Mode::StartsWith, "4 TIPO RICERCA: Inizia per...", " 4\r\n"},
    };
    for (const auto& [mode, expected, stored] : kCases) {
        modes.choose(mode, drive.files());
        EXPECT_TRUE(modes.is(mode));
        EXPECT_EQ(seen(modes), expected);
        EXPECT_EQ(drive.read(kSearchModePath), stored);
    }
    modes.activateMissingSign();
    EXPECT_EQ(seen(modes), "6 TIPO RICERCA: Inizia per...");
    modes.leaveMissingSign();
    EXPECT_TRUE(modes.is(Mode::Equal));
    EXPECT_EQ(seen(modes), "1 TIPO RICERCA: Termine presente");
    EXPECT_EQ(drive.read(kSearchModePath), " 4\r\n");
}

TEST_F(SearchModesTest, AModeThatCannotBeStoredIsChosenAllTheSame)
{
    SearchModes modes;
    modes.restore(drive.files());
    std::filesystem::remove_all(drive.host("C:\\programmi\\Karvel\\settaggi"));
    EXPECT_THROW(modes.choose(Mode::EndsWith, drive.files()), RuntimeError);
    EXPECT_TRUE(modes.is(Mode::EndsWith));
    EXPECT_EQ(seen(modes), "5 TIPO RICERCA: Cerca simile");
}

}  // namespace
}  // namespace karvel
