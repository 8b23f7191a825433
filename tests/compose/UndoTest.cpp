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
    const struct {
        const char* bytes;  ///< null: no file
        const char* reason;
    } cases[] = {
        {nullptr, "manca.\n\nErrore 53: File non trovato"},
        {"file undo\r\na01\r\n 1 \r\n", "è danneggiato.\n\nErrore 62: Input oltre la fine del file"},
        {"file undo\r\na01\r\n 1 \r\n 0 \r\n 40000 \r\n", "è danneggiato.\n\nErrore 6: Overflow"},
    };
    for (const auto& each : cases) {
        session_.palette().press(0);
        drive_.files().remove(kUndoPath);
        if (each.bytes != nullptr) {
            drive_.write(kUndoPath, each.bytes);
        }
        ui_.expect({.title = "Messaggio di sistema",
                    .text = "Non è possibile tornare allo stato precedente: il file Undo.dat " +
                            std::string(each.reason),
                    .icon = Icon::Critical});
        undo(session_);
        EXPECT_EQ(session_.display().DisplayCodes(), "");
    }
}

}  // namespace
}  // namespace karvel
