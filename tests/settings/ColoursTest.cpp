#include "settings/Colours.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

TEST(Colours, AreWrittenByteForByteAndReadBack)
{
    const testing::TemporaryDrive drive;
    drive.writeSettings();
    Colours colours;
    for (const auto& [colour, line] :
         {std::pair{Colour::rgb(255, 0, 0), " 255\r\n"}, std::pair{Colour::rgb(0, 0, 255), " 16711680\r\n"},
          std::pair{Colours::kDisplayDefault, " 8421376\r\n"},
          std::pair{Colours::kWindowDefault, " 12632256\r\n"}}) {
        applyDisplayColour(drive.files(), colours, colour);
        EXPECT_EQ(drive.read(kDisplayColourPath), line);
        applyWindowColour(drive.files(), colours, colour);
        EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\settaggi\\coloreF.prf"), line);
        const Colours restarted = readColours(drive.files());
        EXPECT_EQ(restarted.display, colour);
        EXPECT_EQ(restarted.window, colour);
    }
    drive.files().remove(kWindowColourPath);
    EXPECT_THROW((void)readColours(drive.files()), RuntimeError);
}

TEST(Colours, TextIsDarkWhereBlackContrastsMoreThanWhite)
{
    // Greys and pure colours beside the bound: the luminance of grey 117 is 0.178, that of 118 is 0.181.
    for (const auto& [colour, dark] :
         {std::pair{Colour::rgb(117, 117, 117), false}, std::pair{Colour::rgb(118, 118, 118), true},
          std::pair{Colour::rgb(255, 0, 0), true}, std::pair{Colour::rgb(0, 0, 255), false},
          std::pair{Colour::rgb(0, 136, 0), false}, std::pair{Colour::rgb(0, 138, 0), true}}) {
        EXPECT_EQ(colour.wantsDarkText(), dark) << colour.packed;
    }
}

}  // namespace
}  // namespace karvel
