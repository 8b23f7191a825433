#include "words/NameTranscription.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "base/SignRepertoire.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

struct Case {
    std::string_view name;
    std::string_view codes;
};

class Transcription : public ::testing::TestWithParam<Case> {};

TEST_P(Transcription, FollowsTheLetterGroups)
{
    EXPECT_EQ(GetParam().codes, transcribe(GetParam().name)) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Names, Transcription,
    ::testing::Values(Case{"SCIA", "h15p34p19"},             // S and C are used up, the vowel is not
                      Case{"SCENA", "h15g03h11p19"},         //
                      Case{"CIRO", "n20p34b47n13"},          // the vowel after C is read again
                      Case{"felice", "f21g03d06p34n20g03"},  // small letters, a group at the end
                      Case{"SHARON", "h15p19b47n13h11"},     // SH swallows its H
                      Case{"GHINO", "o03h19p34h11n13"},      // GH keeps it
                      Case{"GUGO", "o03e44o03n13"},          //
                      Case{"SCHIO", "l35n38h19p34n13"},      // SC before H is no group
                      Case{"S", "l35"}, Case{"SC", "l35n38"},
                      Case{"C", "n38"},  // groups cut off by the end of the name
                      Case{"CLEOPATRA", "n38d06g03n13i27p19o19b47p19"},
                      Case{"JKQVWXYZ", "f22n38h05e44e44l46p34h49"},
                      Case{"D'è 1-2\xC3", "c18"},  // the rest has no sign, not even cut characters
                      Case{"", ""}));

TEST(Transcription, IsShownFromTheFirstCellWithoutTouchingThePhrase)
{
    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session(drive.files(), pictures, ui, windows);
    DisplayLine& display = session.display();
    display.insert("e16", 0);
    display.insert("e17", 0);
    session.last().foundCodes = "z99";

    showTranscription("CIRO", display, session.last());
    EXPECT_EQ("n20p34b47n13", session.last().foundCodes);
    EXPECT_EQ("n13", display.cells()[3].code);
    EXPECT_TRUE(display.cells()[4].blank());
    EXPECT_EQ("e16e17", display.DisplayCodes());
    EXPECT_EQ(2, display.DisplayCount());

    showTranscription("12", display, session.last());
    EXPECT_TRUE(display.cells()[0].blank());
    EXPECT_EQ("", session.last().foundCodes);
}

TEST(PhoneticChart, ShowsEverySignThatANameCanGive)
{
    std::string reached;
    for (const char* const letters :
         {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J",  "K",   "L",   "M",  "N",  "O",  "P",  "Q",
          "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "SH", "SCI", "SCE", "CI", "CE", "GH", "GU", "GO"}) {
        const std::string code = transcribe(letters).substr(0, kCodeLength);
        std::size_t times = 0;
        for (const PhoneticSign& sign : kPhoneticSigns) {
            if (sign.code != code) {
                continue;
            }
            ++times;
            const std::string shown = "  " + std::string(sign.letters) + "  ";
            EXPECT_NE(std::string::npos, shown.find("  " + std::string(letters) + "  ")) << letters;
            EXPECT_EQ(code, transcribe(sign.appended).substr(0, kCodeLength)) << sign.appended;
        }
        EXPECT_EQ(1u, times) << letters;
        reached += code;
    }
    for (const PhoneticSign& sign : kPhoneticSigns) {
        EXPECT_NE(std::string::npos, reached.find(sign.code)) << sign.code;
        EXPECT_NE(nullptr, SignRepertoire::standard().byCode(sign.code));
    }
}

}  // namespace
}  // namespace karvel
