#include "words/NameTranscription.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

TEST(Transcription, FollowsTheLetterGroups)
{
    for (const auto& [name, codes] : {
             std::pair{"SCIA", "h15p34p19"},  // S and C are used up, the vowel is not
             std::pair{"SCENA", "h15g03h11p19"},
             std::pair{"CIRO", "n20p34b47n13"},          // the vowel after C is read again
             std::pair{"felice", "f21g03d06p34n20g03"},  // small letters, a group at the end
             std::pair{"SHARON", "h15p19b47n13h11"},     // SH uses up its H
             std::pair{"GHINO", "o03h19p34h11n13"},      // GH keeps it
             std::pair{"GUGO", "o03e44o03n13"},
             std::pair{"SCHIO", "l35n38h19p34n13"},  // SC before H is no group
             std::pair{"SC", "l35n38"},              // a group cut off by the end of the name
             std::pair{"BJKMPQTVWXYZ", "c31f22n38e16i27h05o19e44e44l46p34h49"},
             std::pair{"D'èe\u0301 1-2\xC3", "c18"},  // the rest has no sign, not even cut characters
         }) {
        EXPECT_EQ(codes, transcribe(name)) << name;
    }
}

TEST(Transcription, IsShownFromTheFirstCellWithoutTouchingThePhrase)
{
    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session(drive.files(), pictures, ui, windows);
    const DisplayLine& display = session.display();
    session.display().insert("e16", 0);
    session.display().insert("e17", 0);
    session.last().foundCodes = "z99";
    showTranscription("A", session.display(), session.last());
    EXPECT_EQ("p19", session.last().foundCodes);
    EXPECT_EQ("p19", display.cells()[0].code);
    EXPECT_TRUE(display.cells()[1].blank());
    EXPECT_EQ("e16e17", display.DisplayCodes());
    EXPECT_EQ(2, display.DisplayCount());
}

TEST(PhoneticChart, NamesTheLettersThatGiveItsSigns)
{
    for (const PhoneticSign& sign : kPhoneticSigns) {
        EXPECT_EQ(sign.code, transcribe(sign.appended).substr(0, kCodeLength)) << sign.appended;
        const std::string letters(sign.letters);
        for (std::size_t at = 0; at < letters.size();
             at = letters.find_first_not_of(' ', letters.find(' ', at))) {
            EXPECT_EQ(sign.code,
                      transcribe(letters.substr(at, letters.find(' ', at) - at)).substr(0, kCodeLength));
        }
    }
}

}  // namespace
}  // namespace karvel
