#include "compose/DisplayLine.hpp"

#include <gtest/gtest.h>

#include "compose/Composer.hpp"

namespace karvel {
namespace {

using testing::Composer;

struct Case {
    const char* actions;
    const char* state;
};

void check(const std::vector<Case>& cases)
{
    for (const auto& [actions, state] : cases) {
        Composer composer;
        composer.act(actions);
        EXPECT_EQ(composer.state(), state) << "after: " << actions;
    }
}

TEST(DisplayLine, InsertsAndScrolls)
{
    check({
        {"", " | 0 0 0 | "},
        {"k1", "a01 | 1 0 0 | a01*"},
        {"k2", "a01-a02 | 2 3 0 | a01 a02*"},
        {"k11", "a01-a11 | 11 30 0 | a01-a10 a11*"},
        {"k12", "a01-a12 | 12 33 0 | a01-a11 a12*"},
        // The thirteenth sign scrolls; the count stays 12 although the cells show the last twelve.
        {"k13", "a01-a13 | 12 36 3 | a02-a12 a13*"},
        {"k84", "a01-a53 b01-b31 | 12 249 216 | b20-b30 b31*"},
        {"hide:a05 k6", "a01-a06 | 6 15 0 | a01-a04 - a06*"},  // an image may be missing, the sign counts
        {"hide:a05 k14 start", "a01-a14 | 12 39 0 | a01-a04 - a06-a11 a12*"},
        {"hide:a01 k2", "a01-a02 | 1 3 0 | a02*"},  // a blank first cell restarts the display
        {"k3 nothing", "a01-a03 | 3 6 0 | a01-a02 a03*"},
    });
}

TEST(DisplayLine, BringsAPhraseBackAsIfItHadJustBeenComposed)
{
    for (const char* const keys : {"k1", "k11", "k12", "k13", "k84"}) {
        Composer composed;
        composed.act(keys);
        Composer broughtBack;
        broughtBack.act("k3 found:b01b02");
        broughtBack.display.bringBack(composed.display.DisplayCodes());
        EXPECT_EQ(broughtBack.state(), composed.state());
        EXPECT_TRUE(broughtBack.display.cursorEnabled());
        broughtBack.act("undo");
        EXPECT_EQ(broughtBack.state(), "a01-a03 | 12 6 0 | a01* a02-a03");
    }
}

TEST(DisplayLine, MovesTheStretch)
{
    check({
        {"k5 left", "a01-a05 | 5 18 0 | a01-a04 a05*"},  // only the insert position moves
        {"k12 left", "a01-a12 | 12 33 0 | a01-a11 a12*"},
        {"k15 right right right right", "a01-a15 | 15 42 9 | a04-a14 a15*"},
        {"k13 left", "a01-a13 | 12 42 0 | a01-a11 a12*"},
        {"k15 left", "a01-a15 | 14 48 6 | a03-a13 a14*"},
        {"k15 left left left right right right right", "a01-a15 | 15 48 9 | a04-a14 a15*"},
        {"k15 start", "a01-a15 | 12 42 0 | a01-a11 a12*"},
        {"k15 end", "a01-a15 | 15 45 12 | a05-a15 -*"},  // the last cell is the place after the phrase
        {"k15 end left", "a01-a15 | 14 48 6 | a03-a13 a14*"},
        {"k15 end right k1", "a01-a16 | 15 48 12 | a05-a15 a16*"},
    });
}

TEST(DisplayLine, DeletesTheSignThatTheSelectedCellShows)
{
    check({
        {"k5 c1 delete", "a01 a03-a05 | 4 12 0 | a01 a03-a04 a05*"},
        {"k1 c0 delete", " | 0 0 0 | -*"},
        {"k1 c0 delete k1", "a02 | 1 0 0 | a02*"},
        {"k5 c7 delete", "a01-a05 | 5 12 0 | a01-a04 a05*"},     // an empty cell cannot be selected
        {"k5 c1 c1 delete", "a01-a05 | 5 12 0 | a01-a04 a05*"},  // a second click takes the selection back
        {"k5 c1 c3 delete delete", "a01-a03 a05 | 4 12 0 | a01-a03 a05*"},
        {"k13 c11 delete", "a01-a12 | 12 36 0 | a01-a11 a12*"},
        {"k13 start c0 delete", "a02-a13 | 12 36 0 | a02-a12 a13*"},
        {"k15 c0 delete", "a01-a03 a05-a15 | 14 42 6 | a03 a05-a14 a15*"},
        {"k15 start c2 delete", "a01-a02 a04-a15 | 12 42 0 | a01-a02 a04-a12 a13*"},
        {"k15 end c11 delete", "a01-a15 | 15 45 12 | a05-a15 -*"},
        {"k15 end c10 delete", "a01-a14 | 14 45 9 | a04-a14 -*"},
        {"k15 left c0 delete", "a01-a02 a04-a15 | 13 48 3 | a02 a04-a13 a14*"},
        // The selection belongs to the sign: it is forgotten when the cells come to show others.
        {"k5 c1 k1 delete", "a01 a03-a06 | 5 15 0 | a01 a03-a05 a06*"},
        {"k12 c1 k1 delete", "a01-a13 | 12 36 3 | a02-a12 a13*"},
        {"k15 c1 left delete", "a01-a15 | 14 48 6 | a03-a13 a14*"},
        {"k15 c1 start delete", "a01-a15 | 12 42 0 | a01-a11 a12*"},
        {"k15 c1 end delete", "a01-a15 | 15 45 12 | a05-a15 -*"},
        {"k2 c1 found:a01a02 delete", "a01-a02 | 2 3 0 | a01 a02*"},
        // An entry is not the phrase, unless it has exactly its signs.
        {"k2 found:c07c08c09 c1 delete", "a01-a02 | 2 3 0 | c07 c08* c09"},
        {"k14 found:a03a04 c0 delete", "a01-a14 | 12 39 6 | a03-a04 - - - - - - - - - -*"},
        {"k2 found:a01a02c09 c1 delete", "a01-a02 | 2 3 0 | a01 a02* c09"},
        {"k2 found:a01a02 c1 delete", "a01 | 1 3 0 | a01*"},
    });
}

TEST(DisplayLine, ClearsShowsEntriesAndUndoes)
{
    check({
        {"k15 c3 clear delete", " | 0 0 0 | -*"},
        {"k3 found:", "a01-a03 | 3 6 0 | a01 - -*"},  // cell 0 keeps its picture, as in every search
        {"k2 found:c01c02c03c04c05c06c07c08c09c10c11c12c13", "a01-a02 | 2 3 0 | c01 c02* c03-c12"},
        {"k2 found:c07 k1", "a01-a03 | 3 6 0 | c07 - a03*"},
        {"k1 undo", " | 12 -3 0 | -*"},        // the count is 12 whatever was restored
        {"k1 undo k1", "a02 | 1 0 0 | a02*"},  // and an emptied display restarts all the same
        {"k3 undo", "a01-a02 | 12 3 0 | a01* a02"},
        {"k3 undo k1", "a01-a02 a04 | 12 6 0 | a01-a02 a04*"},  // the scrolling way, though there is room
        {"k14 undo", "a01-a13 | 12 36 0 | a01* a02-a12"},
        {"k14 undo k1", "a01-a13 a15 | 12 39 6 | a03-a13 a15*"},
        {"k3 undo c1 delete", "a01 | 1 3 0 | a01*"},
        {"k3 undo start left right end", "a01-a02 | 12 3 0 | a01* a02"},
        {"k5 clear undo", "a01-a04 | 12 9 0 | a01* a02-a04"},  // clearing saves nothing
        {"k3 nothing undo", "a01-a03 | 12 96 0 | a01* a02-a03"},
    });
}

TEST(DisplayLine, RefusesTheSignAfterTheLast)
{
    Composer composer;
    composer.act("k84");
    const std::string full = composer.state();
    for (int i = 0; i < 2; ++i) {
        composer.ui.expect(testing::kLimitBox);
        composer.act("k1");
        EXPECT_EQ(composer.state(), full);
        EXPECT_EQ(composer.palette.CurrentSignCode(), "b31");
    }
    composer.ui.expect(testing::kLimitBox);
    composer.press(14, 46);  // the missing-sign key is refused before it changes the search
    EXPECT_FALSE(composer.mode.on);
    composer.act("c0 delete k1");
    EXPECT_EQ(composer.display.signs(), 84U);
}

TEST(DisplayLine, EnablesItsButtons)
{
    Composer composer;
    EXPECT_FALSE(composer.display.cursorEnabled());
    composer.ui.expect({.title = "Messaggio di sistema",
                        .text = "Questo pulsante vi porta a inizio frase, ora non è scritto niente.",
                        .icon = Icon::Information});
    composer.act("start c0");
    EXPECT_FALSE(composer.display.deleteEnabled());
    composer.act("k4 c2");
    EXPECT_TRUE(composer.display.cursorEnabled());
    EXPECT_TRUE(composer.display.deleteEnabled());
    EXPECT_TRUE(composer.display.selected(2));
    composer.act("c1");
    EXPECT_TRUE(composer.display.selected(1));
    EXPECT_FALSE(composer.display.selected(2));
    composer.act("clear");
    EXPECT_FALSE(composer.display.deleteEnabled());
    EXPECT_FALSE(composer.display.selected(1));
}

TEST(DisplayLine, ShowsItsSignsFromANewDirectory)
{
    Composer composer;
    composer.act("hide:a02 k3 found:c07c08c09 c2");
    composer.images.setGlyphDirectory("D:\\segni");
    composer.display.reload();
    EXPECT_EQ(composer.display.cells()[2].path, "D:\\segni\\c09.gif");
    EXPECT_EQ(composer.state(), "a01-a03 | 3 6 0 | c07-c08 c09*");
}

TEST(UndoFile, HoldsTheStateBeforeTheInsertion)
{
    const struct {
        const char *actions, *file;
    } kCases[] = {
        {"k1", "file undo\r\n\r\n 0 \r\n 0 \r\n 0 \r\n"},
        {"k3", "file undo\r\na01a02\r\n 2 \r\n 0 \r\n 6 \r\n"},
        {"k15", "file undo\r\na01a02a03a04a05a06a07a08a09a10a11a12a13a14\r\n 12 \r\n 6 \r\n 42 \r\n"},
        {"k2 nothing", "file undo\r\na01a02\r\n 2 \r\n 0 \r\n 99 \r\n"},
        {"k1 undo k1", "file undo\r\n\r\n 12 \r\n 0 \r\n 0 \r\n"},
    };
    for (const auto& [actions, file] : kCases) {
        Composer composer;
        composer.act(actions);
        EXPECT_EQ(composer.drive.read(kUndoPath), file) << actions;
    }
}

TEST(UndoFile, ADamagedOneEmptiesTheDisplayAndIsReported)
{
    std::string tooLong;
    for (int i = 0; i < 85; ++i) {
        tooLong += "a01";
    }
    const struct {
        std::string file;
        int error;
    } cases[] = {
        {"(none)", 53},
        {"", 62},
        {"file undo\r\na01\r\n 1 \r\n", 62},
        {"file undo\r\na01\r\n 256 \r\n 0 \r\n 0 \r\n", 6},
        {"file undo\r\na01\r\n 1 \r\n 40000 \r\n 0 \r\n", 6},
        {"file undo\r\n" + tooLong + "\r\n 12 \r\n 0 \r\n 0 \r\n", 13},
        {"file undo\r\n\"a\r\n\"\r\n 1 \r\n 0 \r\n 0 \r\n", 13},
    };
    for (const auto& [file, error] : cases) {
        Composer composer;
        composer.act("k3");
        if (file == "(none)") {
            composer.drive.files().remove(kUndoPath);
        } else {
            composer.drive.write(kUndoPath, file);
        }
        try {
            composer.act("undo");
            ADD_FAILURE() << file;
        } catch (const RuntimeError& thrown) {
            EXPECT_EQ(thrown.value(), error) << file;
        }
        EXPECT_EQ(composer.state(), " | 0 0 0 | -*");
    }
}

TEST(UndoFile, ThatCannotBeWrittenLeavesThePhrase)
{
    Composer composer;
    std::filesystem::create_directories(composer.drive.host(kUndoPath));
    EXPECT_THROW(composer.act("k1"), RuntimeError);
    EXPECT_EQ(composer.state(), " | 0 0 0 | ");
}

}  // namespace
}  // namespace karvel
