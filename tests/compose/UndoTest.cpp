#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "app/Views.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

class Undo : public ::testing::Test {
  protected:
    Undo() { session_.palette().loadPage(); }

    testing::TemporaryDrive drive_;
    testing::ScriptedUi ui_;
    testing::FakePictures pictures_;
    testing::RecordedWindows windows_;
    Session session_{drive_.files(), pictures_, ui_, windows_};
};

TEST_F(Undo, AndClearAllLeaveTheMissingSignSearch)
{
    for (const bool byUndo : {false, true}) {
        session_.palette().press(0);
        session_.modes().activateMissingSign();
        byUndo ? undo(session_) : session_.display().clearAll();
        EXPECT_TRUE(session_.modes().is(Mode::Equal));
        EXPECT_TRUE(session_.modes().ticked(Mode::Equal));
        EXPECT_FALSE(session_.modes().ticked(Mode::MissingSign));
        EXPECT_EQ(session_.modes().caption(), "TIPO RICERCA: Termine presente");
    }
}

TEST_F(Undo, ReportsAMissingOrDamagedFile)
{
    for (const bool missing : {true, false}) {
        session_.palette().press(0);
        missing ? drive_.files().remove(kUndoPath) : drive_.write(kUndoPath, "file undo\r\n");
        ui_.expect(
            {.title = "Messaggio di sistema",
             .text = std::string("Non è possibile tornare allo stato precedente: il file Undo.dat manca o "
                                 "è danneggiato.\n\nErrore ") +
                     (missing ? "53: File non trovato" : "62: Input oltre la fine del file"),
             .icon = Icon::Critical});
        undo(session_);
        EXPECT_EQ(session_.display().DisplayCodes(), "");
    }
}

}  // namespace
}  // namespace karvel
