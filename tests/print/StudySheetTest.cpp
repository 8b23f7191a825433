#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "app/PhraseStudy.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "print/StudySheet.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

/// Every byte of a text is 100 units wide.
double width(std::string_view text, StudyFont /*font*/)
{
    return 100.0 * static_cast<double>(text.size());
}

/// A line for each piece: its page, its left edge and its top, then its text or the codes of its signs.
std::vector<std::string> told(const std::vector<StudyPage>& pages)
{
    std::vector<std::string> lines;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        for (const StudyPiece& piece : pages[page]) {
            std::string line = std::to_string(page) + " " + std::to_string(std::lround(piece.left)) + " " +
                               std::to_string(std::lround(piece.top)) + " " + piece.text;
            for (const PlacedSign& sign : piece.signs.signs) {
                line += sign.code;
            }
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(StudySheetTest, PutsSignsTextsAndWordsBelowEachOther)
{
    const StudySheet sheet{.remark = "proposta",
                           .lines = {"a01a02a03", "a04"},
                           .texts = {{.transliteration = "sr nfr", .translation = "uno due tre", .note = ""}},
                           .words = {{.signs = "a01", .text = {.translation = "perché"}},
                                     {.signs = "a02", .text = {.transliteration = "nfr", .note = "n"}}}};
    // Two blocks of people fit into the width; a word stands whole on the second page.
    EXPECT_EQ(
        told(layOut(sheet, 1200, 4500, width)),
        (std::vector<std::string>{"0 0 0 proposta", "0 0 440 a01a02", "0 0 1266 a03", "0 0 2092 a04",
                                  "0 0 3119 sr nfr", "0 0 3439 uno due tre", "1 0 0 a01", "1 629 0 perch",
                                  "1 629 320 é", "1 0 840 a02", "1 629 840 nfr", "1 629 1160 n"}));
    EXPECT_EQ(told(layOut({}, 1200, 4500, width)), std::vector<std::string>());
    EXPECT_EQ(layOut({}, 1200, 4500, width).size(), 1U);
}

TEST(StudySheetTest, LosesNothingHoweverSmallThePageIs)
{
    StudySheet sheet;
    std::string signs;
    for (int i = 0; i < 84; ++i) {
        signs += i % 3 == 0 ? "n38" : "a01";
    }
    sheet.lines = {signs};
    sheet.words.assign(3, {.signs = signs, .text = {.translation = "città molto lontana", .note = "perché"}});
    for (const auto& [wide, high] : {std::pair(9638, 14570), std::pair(9638, 700), std::pair(60, 60)}) {
        std::string shown;
        std::string text;
        for (const StudyPage& page : layOut(sheet, wide, high, width)) {
            EXPECT_FALSE(page.empty());
            for (const StudyPiece& piece : page) {
                const double height = piece.text.empty() ? piece.blockHeight : lineStep(piece.font);
                EXPECT_TRUE(piece.top == 0 || piece.top + height <= high);
                EXPECT_TRUE(piece.text.empty() ||
                            (static_cast<unsigned char>(piece.text[0]) & 0xC0U) != 0x80);
                text += piece.text;
                for (const PlacedSign& sign : piece.signs.signs) {
                    shown += sign.code;
                    EXPECT_TRUE(sign.box.y >= -1 && sign.box.y + sign.box.height <= kBlockHeight + 1);
                }
            }
        }
        EXPECT_EQ(shown.size(), 4 * signs.size());
        std::erase(text, ' ');
        EXPECT_EQ(text.size(), 3 * std::string("cittàmoltolontanaperché").size());
    }
}

TEST(StudySheetTest, OfAPhraseHasItsEntriesAndTheWordsOfWhichItConsists)
{
    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
    drive.write(kDictionaryPath,
                "\"a01\",\"uomo\",\"s\",\"*FOTO\"\r\n\"a02\",\"donna\",\"Hmt\",\"nota\"\r\n"
                "\"a02a03\",\"coppia\",\"x\",\"\"\r\n\"a02a03\",\"paio\",\"y\",\"\"\r\n");
    const struct {
        const char* phrase;
        std::vector<std::string> texts;  ///< transliteration, translation and note
        std::vector<std::string> words;
    } kCases[] = {
        {"a01", {"s/uomo/"}, {}},
        {"a02a03", {"ḫ/coppia/", "y/paio/"}, {}},
        {"a01a02", {"s ḥmt/uomo | donna/"}, {"a01 s/uomo/", "a02 ḥmt/donna/nota"}},
        {"a01a04", {"s/uomo/"}, {"a01 s/uomo/", "a04 //Qui non comincia nessuna parola."}},
        {"a04", {"//Qui non comincia nessuna parola."}, {}},
    };
    const auto all = [](const StudyText& text) {
        return text.transliteration + "/" + text.translation + "/" + text.note;
    };
    for (const auto& [phrase, texts, words] : kCases) {
        const PhraseStudy study = studyOf(drive.files(), ui, phrase);
        EXPECT_FALSE(study.failure);
        EXPECT_EQ(study.sheet.lines, std::vector<std::string>{phrase});
        std::vector<std::string> shown;
        std::ranges::transform(study.sheet.texts, std::back_inserter(shown), all);
        EXPECT_EQ(shown, texts);
        shown.clear();
        for (const StudyWord& word : study.sheet.words) {
            shown.push_back(word.signs + " " + all(word.text));
        }
        EXPECT_EQ(shown, words);
    }
    drive.write(kDictionaryPath, "\"a01\",\"uomo\"");
    EXPECT_EQ(studyOf(drive.files(), ui, "a01").failure.value().value(), 62);
    drive.write(kDictionaryPath, "\"a01\",\"uomo\",\"s\",\"\"\r\n");
    EXPECT_FALSE(studyOf(drive.files(), ui, "a01").stopped);
    ui.stopReading = true;
    EXPECT_TRUE(studyOf(drive.files(), ui, "a01").stopped);
}

}  // namespace
}  // namespace karvel
