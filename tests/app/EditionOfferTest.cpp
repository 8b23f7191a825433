#include "app/EditionOffer.hpp"

#include <gtest/gtest.h>

#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/EditionUpdate.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::record;

const std::string kEdition = record("a01", "uno") + record("a02", "due");

MessageBox question(const std::string& present)
{
    return {.title = "Aggiornamento del dizionario",
            .text = "La nuova edizione del dizionario ha 2 voci.\nIl dizionario in uso ha " + present +
                    "\n\nIl file di prima viene conservato accanto al nuovo.\n\nAggiornare il dizionario?",
            .icon = Icon::Question,
            .buttons = Buttons::YesNo,
            .defaultButton = Button::No};
}

struct EditionOffer : ::testing::Test {
    EditionOffer()
    {
        drive.writeSettings();
        drive.write(kEditionPath, kEdition);
        drive.write(kDictionaryPath, record("b01", "mia"));
    }
    void start()
    {
        provideDictionary(drive.files());
        offerEdition(drive.files(), ui);
    }

    testing::TemporaryDrive drive;
    testing::ScriptedUi ui;
};

const std::string kOne =
    "1 voci; quelle aggiunte o modificate dall'utente sono 1 e restano, in fondo alla nuova edizione.";

TEST_F(EditionOffer, AsksOnceForEachEdition)
{
    ui.expect(question(kOne), Button::No);
    start();
    start();
    EXPECT_EQ(drive.read(kDictionaryPath), record("b01", "mia"));
    drive.write(kEditionPath, record("a01", "uno") + record("a03", "due"));  // of the same length
    ui.expect(question(kOne), Button::Yes);
    ui.expect(
        {.title = "Aggiornamento del dizionario",
         .text =
             "Il dizionario è aggiornato: 3 voci.\n\nIl file di prima è C:\\programmi\\Karvel\\dizio.old.txt",
         .icon = Icon::Information});
    start();
    start();
    EXPECT_EQ(drive.read(kDictionaryPath),
              record("a01", "uno") + record("a03", "due") + record("b01", "mia"));
}

TEST_F(EditionOffer, AsksNothingWhereNothingCanCome)
{
    fs::remove(drive.host(kEditionPath));
    start();
    drive.write(kEditionPath, "\"a01");  // faulty itself
    start();
    drive.write(kEditionPath, kEdition);
    fs::create_directories(drive.host(kEditionAnswerPath));  // the answer could not be kept
    start();
    fs::remove(drive.host(kEditionAnswerPath));
    drive.write(kDictionaryPath, kEdition + record("b01", "mia"));
    start();
    drive.write(kDictionaryPath, record("b01", "mia"));  // the user's own doing: he has had the edition
    start();
}

TEST_F(EditionOffer, TellsAFaultAndTouchesNothing)
{
    drive.write(kDictionaryPath, kEdition + "\"a03");
    ui.expect({.title = "Aggiornamento del dizionario",
               .text = "Il dizionario non viene aggiornato: il file dizio.txt ha un errore.\n\nRiga 9: "
                       "virgolette aperte e "
                       "mai chiuse\n\nCorreggere il file, poi scegliere Info, Aggiorna dizionario.",
               .icon = Icon::Critical});
    start();
    start();
    EXPECT_EQ(drive.read(kDictionaryPath), kEdition + "\"a03");
}

TEST_F(EditionOffer, TheFirstStartPutsAMissingDictionaryInPlace)
{
    fs::remove(drive.host(kDictionaryPath));
    start();
    EXPECT_EQ(drive.read(kDictionaryPath), kEdition);
    fs::remove(drive.host(kDictionaryPath));
    start();
    EXPECT_EQ(drive.read(kDictionaryPath), "(none)");  // later it is missed like any other file
}

}  // namespace
}  // namespace karvel
