#include "settings/Colours.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::TemporaryDrive;

constexpr const char* kDisplayFile = "C:\\programmi\\Karvel\\settaggi\\coloreD.prf";
constexpr const char* kWindowFile = "C:\\programmi\\Karvel\\settaggi\\coloreF.prf";

struct Choice {
    Colour colour;
    const char* line;
};

TEST(Colours, AreWrittenByteForByteAndReadBack)
{
    const TemporaryDrive drive;
    drive.writeSettings();
    Colours colours;
    for (const Choice& choice :
         {Choice{Colour::rgb(255, 0, 0), " 255\r\n"}, Choice{Colour::rgb(0, 0, 255), " 16711680\r\n"},
          Choice{Colour::rgb(0, 0, 0), " 0\r\n"}, Choice{Colours::kDisplayDefault, " 8421376\r\n"},
          Choice{Colours::kWindowDefault, " 12632256\r\n"}}) {
        applyDisplayColour(drive.files(), colours, choice.colour);
        EXPECT_EQ(drive.read(kDisplayFile), choice.line);
        applyWindowColour(drive.files(), colours, choice.colour);
        EXPECT_EQ(drive.read(kWindowFile), choice.line);

        Colours restarted;
        rereadColours(drive.files(), restarted);
        EXPECT_EQ(restarted.display, choice.colour);
        EXPECT_EQ(restarted.window, choice.colour);
    }
}

TEST(Colours, StayAsTheyAreWhenAFileIsMissing)
{
    const TemporaryDrive drive;
    drive.writeSettings();
    Colours colours{.display = Colour::rgb(1, 2, 3), .window = Colour::rgb(4, 5, 6)};
    drive.files().remove(kWindowFile);
    EXPECT_THROW(rereadColours(drive.files(), colours), RuntimeError);
    EXPECT_EQ(colours.display, Colour::rgb(1, 2, 3));
    EXPECT_EQ(colours.window, Colour::rgb(4, 5, 6));
}

TEST(Colours, AreInForceThoughTheFileCannotBeWritten)
{
    const TemporaryDrive drive;  // no directory settaggi
    Colours colours;
    EXPECT_THROW(applyDisplayColour(drive.files(), colours, Colour::rgb(9, 9, 9)), RuntimeError);
    EXPECT_EQ(colours.display, Colour::rgb(9, 9, 9));
}

/// The contrast of two luminances as the accessibility guidelines define it.
double contrast(const Colour& colour, bool dark)
{
    const auto light = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const double luminance =
        0.2126 * light(colour.red()) + 0.7152 * light(colour.green()) + 0.0722 * light(colour.blue());
    return dark ? (luminance + 0.05) / 0.05 : 1.05 / (luminance + 0.05);
}

TEST(Colours, TextReadsWellOnEveryColour)
{
    for (int red = 0; red <= 255; red += 15) {
        for (int green = 0; green <= 255; green += 15) {
            for (int blue = 0; blue <= 255; blue += 15) {
                const Colour colour = Colour::rgb(red, green, blue);
                ASSERT_GE(contrast(colour, colour.wantsDarkText()), 4.5)
                    << red << ' ' << green << ' ' << blue;
            }
        }
    }
}

}  // namespace
}  // namespace karvel
