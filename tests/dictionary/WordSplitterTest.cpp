#include "dictionary/WordSplitter.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "app/Session.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"
#include "text/CodePage.hpp"

namespace karvel {
namespace {

using testing::FakePictures;
using testing::record;
using testing::RecordedWindows;
using testing::ScriptedUi;
using testing::TemporaryDrive;

MessageBox wordBox(const DictionaryEntry& entry)
{
    return {.title = "Traduzione",
            .text = "traduzione:\n1 - " + entry.translation + "\n2 - " + entry.transliteration +
                    "\nNote: " + entry.note,
            .icon = Icon::Information,
            .buttons = Buttons::OkCancel};
}

struct Fixture {
    TemporaryDrive drive;
    ScriptedUi ui;
    FakePictures pictures;
    RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};

    explicit Fixture(const std::string& dictionary)
    {
        drive.writeSettings();
        drive.write(kDictionaryPath, dictionary);
        drive.write(kSearchModePath, " 2\r\n");
        session.modes().restore(session.files());
    }

    /// Undo brings any phrase back at once.
    void compose(const std::string& codes)
    {
        drive.write(kUndoPath, "file undo\r\n" + codes + "\r\n 0 \r\n 0 \r\n 0 \r\n");
        session.display().undo();
    }

    [[nodiscard]] std::string shown()
    {
        std::string codes;
        for (const DisplayLine::Cell& cell : session.display().cells()) {
            codes += cell.code;
        }
        return codes;
    }
};

/// The splitting done the slow, obvious way: every candidate, longest first, reads the file from its start
/// until its first match. Tells the fixture's user what to expect, and what must be left behind.
struct OneByOne {
    const std::vector<DictionaryEntry>& file;
    bool damaged;      ///< behind the last entry
    int cancelledBox;  ///< which box the user cancels; beyond the last: none
    std::string phrase;
    std::vector<std::string> list;
    std::optional<DictionaryEntry> last;  ///< read last, translation in upper case
    bool failed = false;
    bool cleared = false;

    const DictionaryEntry* read(std::string_view candidate)
    {
        for (const DictionaryEntry& entry : file) {
            last = entry;
            last->translation = upperCase(entry.translation);
            if (entry.signs == candidate) {
                return &*last;
            }
        }
        failed = damaged;
        return nullptr;
    }

    void run(ScriptedUi& ui)
    {
        for (int box = 0;; ++box) {
            const DictionaryEntry* word = nullptr;
            for (std::size_t n = phrase.size(); n > 0 && word == nullptr && !failed; n -= kCodeLength) {
                word = read(std::string_view(phrase).substr(0, n));
            }
            cleared = word == nullptr && !failed;
            if (word == nullptr) {
                return;
            }
            ui.expect(wordBox(*word), box == cancelledBox ? Button::Cancel : Button::Ok);
            if (box == cancelledBox) {
                return;
            }
            list.push_back(word->translation);
            if (word->signs == phrase) {
                return;
            }
            phrase.erase(0, word->signs.size());
        }
    }
};

TEST(WordSplitter, DoesWhatTryingTheCandidatesOneByOneDoes)
{
    std::mt19937 random(20240607);
    const auto below = [&random](unsigned limit) { return random() % limit; };
    const auto signs = [&](unsigned most) {
        std::string codes;
        for (unsigned n = 1 + below(most); n > 0; --n) {
            codes += below(2) == 0 ? "a01" : "a02";
        }
        return codes;
    };
    int failures = 0;
    int wholes = 0;
    for (int round = 0; round < 400; ++round) {
        std::vector<DictionaryEntry> entries;
        std::string file;
        for (unsigned i = 0, n = below(9); i < n; ++i) {
            const std::string number = std::to_string(i);
            entries.push_back({signs(4), "città " + number, "t" + number, "n" + number});
            const DictionaryEntry& entry = entries.back();
            file += record(entry.signs, entry.translation, entry.transliteration, entry.note);
        }
        const bool damaged = below(4) == 0;
        Fixture fixture(file + (damaged ? "\"a01\"\r\n\"metà" : ""));
        const std::string phrase = signs(9);
        fixture.compose(phrase);
        OneByOne expected{entries, damaged, static_cast<int>(below(6)), phrase, {}, {}};
        expected.run(fixture.ui);

        bool failed = false;
        try {
            fixture.session.search();
        } catch (const RuntimeError& error) {
            failed = error.number() == ErrorNumber::InputPastEnd;
        }
        EXPECT_EQ(expected.failed, failed);
        EXPECT_EQ(expected.phrase, fixture.session.display().DisplayCodes());
        EXPECT_EQ(expected.list, fixture.session.translatedWords().List1());
        EXPECT_EQ(expected.cleared, fixture.shown().empty());
        EXPECT_EQ(expected.last ? expected.last->translation : "", fixture.session.last().translation);
        EXPECT_EQ(expected.last ? expected.last->note : "", fixture.session.last().note);
        ASSERT_FALSE(::testing::Test::HasFailure()) << "round " << round << ", phrase " << phrase;
        failures += failed ? 1 : 0;
        wholes += !failed && !expected.cleared ? 1 : 0;
    }
    EXPECT_GT(failures, 20);  // the rounds did try both ends
    EXPECT_GT(wholes, 20);
}

TEST(WordSplitter, ShowsEachWordAndLeavesTheLastOneOnTheDisplay)
{
    Fixture fixture(record("a01", "uno", "w") + record("b02c03", "due", "sn", "numero"));
    fixture.compose("a01b02c03");
    fixture.ui.expect(wordBox({"", "UNO", "w", ""}));
    fixture.ui.expect(wordBox({"", "DUE", "sn", "numero"}));
    fixture.session.search();
    EXPECT_EQ("b02c03", fixture.shown());
    EXPECT_EQ("b02c03", fixture.session.display().DisplayCodes());
    EXPECT_EQ(0, fixture.ui.busyDepth);
}

TEST(WordSplitter, ClearsTheDisplayWhereNoWordBegins)
{
    Fixture fixture(record("a01", "uno"));
    fixture.compose("b02a01");
    fixture.session.search();
    EXPECT_EQ("", fixture.shown());
    EXPECT_TRUE(std::ranges::none_of(fixture.session.display().cells(), &DisplayLine::Cell::border));
    EXPECT_EQ("b02a01", fixture.session.display().DisplayCodes());
}

TEST(WordSplitter, EndsQuietlyWhenTheUserStopsTheReading)
{
    Fixture fixture(record("a01", "uno"));
    fixture.compose("a01");
    fixture.ui.stopReading = true;
    EXPECT_THROW(fixture.session.search(), ReadingStopped);
    EXPECT_EQ("a01", fixture.shown());
}

TEST(TranslatedWords, TellsWhenThereIsNothingToShow)
{
    ScriptedUi ui;
    TranslatedWords words;
    const MessageBox nothing{
        .title = "Sistema:",
        .text =
            "Questo menù visualizza i termini ricercati con il metodo DIVIDI IN PAROLE\n\n"
            "Ora non vi sono termini presenti.",
        .icon = Icon::Information};
    ui.expect(nothing);
    EXPECT_FALSE(words.mayBeShown(ui));
    words.add("UNO");
    EXPECT_TRUE(words.mayBeShown(ui));
    words.clear();
    ui.expect(nothing);
    EXPECT_FALSE(words.mayBeShown(ui));
}

}  // namespace
}  // namespace karvel
