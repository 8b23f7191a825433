#include <gtest/gtest.h>

#include <algorithm>

#include "app/Session.hpp"
#include "app/Views.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

class Undo : public ::testing::Test {
  protected:
    Undo() { drive_.writeSettings(); }

    DisplayLine& display() { return session_.display(); }
    void press(std::size_t times)
    {
        for (; times > 0; --times) {
            session_.palette().press(0);
        }
    }
    [[nodiscard]] std::size_t filled()
    {
        return static_cast<std::size_t>(
            std::ranges::count_if(display().cells(), [](const auto& cell) { return !cell.blank(); }));
    }
    /// The one cell with a border; -1 when there are none or several.
    [[nodiscard]] int border()
    {
        int at = -1;
        for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
            if (display().cells()[i].border) {
                at = at == -1 ? static_cast<int>(i) : -2;
            }
        }
        return at;
    }

    testing::TemporaryDrive drive_;
    testing::ScriptedUi ui_;
    testing::FakePictures pictures_;
    testing::RecordedWindows windows_;
    Session session_{drive_.files(), pictures_, ui_, windows_};
};

TEST_F(Undo, IsSavedBeforeEveryInsertionWithThePositionOfTheKeyPress)
{
    session_.palette().loadPage();
    press(1);
    EXPECT_EQ("file undo\r\n\r\n 0 \r\n 0 \r\n 0 \r\n", drive_.read(kUndoPath));
    press(2);
    EXPECT_EQ("file undo\r\na01a01\r\n 2 \r\n 0 \r\n 6 \r\n", drive_.read(kUndoPath));
    press(11);
    EXPECT_EQ("file undo\r\na01a01a01a01a01a01a01a01a01a01a01a01a01\r\n 12 \r\n 3 \r\n 39 \r\n",
              drive_.read(kUndoPath));
}

TEST_F(Undo, ShowsTheFirstTwelveSignsAndCountsAsFull)
{
    drive_.write(kUndoPath,
                 "file undo\r\nb02a01a01a01a01a01a01a01a01a01a01a01a01c03\r\n 3 \r\n 6 \r\n 42 \r\n");
    session_.palette().loadPage();
    for (int again = 0; again < 2; ++again) {
        press(1);
        drive_.write(kUndoPath,
                     "file undo\r\nb02a01a01a01a01a01a01a01a01a01a01a01a01c03\r\n 3 \r\n 6 \r\n 42 \r\n");
        undo(session_);
        EXPECT_EQ(14u, display().signs());
        EXPECT_EQ("b02", display().cells()[0].code);
        EXPECT_EQ(12u, filled());
        EXPECT_EQ(0, border());
        EXPECT_EQ(12, display().DisplayCount());
        EXPECT_EQ(39, display().InsertPosition());
        EXPECT_EQ(0, display().FirstVisibleOffset());
    }
    press(1);
    EXPECT_EQ("a01", display().cells()[11].code);  // the end of the phrase, not the next free cell
    EXPECT_EQ(15u, display().signs());
}

TEST_F(Undo, OfAShortPhraseStillCountsAsFull)
{
    session_.palette().loadPage();
    press(3);
    undo(session_);
    EXPECT_EQ("a01a01", display().DisplayCodes());
    EXPECT_EQ(2u, filled());
    EXPECT_EQ(12, display().DisplayCount());
    undo(session_);  // there is one saved state only
    EXPECT_EQ("a01a01", display().DisplayCodes());
}

TEST_F(Undo, LeavesTheMissingSignSearch)
{
    drive_.write(kUndoPath, "file undo\r\na01\r\n 1 \r\n 0 \r\n 0 \r\n");
    session_.modes().activateMissingSign();
    undo(session_);
    EXPECT_TRUE(session_.modes().is(Mode::Equal));
    EXPECT_TRUE(session_.modes().ticked(Mode::Equal));
    EXPECT_FALSE(session_.modes().ticked(Mode::MissingSign));
}

TEST_F(Undo, TellsOfAMissingOrDamagedFileAndLeavesTheDisplayEmpty)
{
    const struct {
        const char* bytes;  ///< null: no file
        const char* reason;
    } cases[] = {
        {nullptr, "manca.\n\nErrore 53: File non trovato"},
        {"", "è danneggiato.\n\nErrore 62: Input oltre la fine del file"},
        {"file undo\r\na01\r\n 1 \r\n", "è danneggiato.\n\nErrore 62: Input oltre la fine del file"},
        {"file undo\r\na01\r\n 1 \r\n 0 \r\n 40000 \r\n", "è danneggiato.\n\nErrore 6: Overflow"},
        {"file undo\r\na0\x01\r\n 1 \r\n 0 \r\n 0 \r\n",
         "è danneggiato.\n\nErrore 13: Tipo non corrispondente"},
    };
    session_.palette().loadPage();
    for (const auto& each : cases) {
        press(2);
        std::filesystem::remove(drive_.host(kUndoPath));
        if (each.bytes != nullptr) {
            drive_.write(kUndoPath, each.bytes);
        }
        ui_.expect({.title = "Messaggio di sistema",
                    .text = "Non è possibile tornare allo stato precedente: il file Undo.dat " +
                            std::string(each.reason),
                    .icon = Icon::Critical});
        undo(session_);
        EXPECT_EQ("", display().DisplayCodes());
        EXPECT_EQ(0u, filled());
        EXPECT_EQ(0, border());
        press(1);  // the program goes on
        EXPECT_EQ("a01", display().DisplayCodes());
        EXPECT_EQ(0, border());
    }
}

}  // namespace
}  // namespace karvel
