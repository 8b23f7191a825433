#include "cards/CardEditor.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

const std::string kDirectory(kCardDirectory);

MessageBox attention(const std::string& text, Icon icon = Icon::Exclamation)
{
    return {.title = "Attenzione:", .text = text, .icon = icon};
}

MessageBox question(const std::string& text)
{
    return {
        .title = "Domanda di sistema:", .text = text, .icon = Icon::Question, .buttons = Buttons::OkCancel};
}

MessageBox deletion(const std::string& name)
{
    MessageBox box = question("Elimino la scheda [" + name + "] ?");
    box.defaultButton = Button::Cancel;
    return box;
}

MessageBox gone(const std::string& name)
{
    return {
        .title = "Attenzione:",
        .text = "Il file della scheda [" + name + "] non c'è più.\rTolgo il nome dall'elenco delle schede ?",
        .icon = Icon::Exclamation,
        .buttons = Buttons::YesNo,
        .defaultButton = Button::No};
}

class CardEditorTest : public ::testing::Test {
  protected:
    CardEditorTest()
    {
        drive.writeSettings();
        drive.write(kFirstCardPath, "a01\r\na02\r\n");
        drive.write(kCardListPath, "donne\r\ndei\r\n");
        drive.write(kDirectory + "donne.txt", "b03\r\nb04\r\n");
        drive.write(kDirectory + "dei.txt", "b10\r\n");
        session.palette().loadPage();
    }

    /// The card shown, its place in the list and its fields, in one line.
    [[nodiscard]] static std::string shown(const CardEditor& editor)
    {
        std::string text = editor.name() + (editor.current() ? std::to_string(*editor.current()) : "-");
        for (const std::string& field : editor.fields()) {
            text += " " + field;
        }
        return text;
    }

    void compose(const std::string& codes)
    {
        session.display().clearAll();
        for (const auto code : splitCodes(codes)) {
            session.palette().pressCode(std::string(code));
        }
    }

    testing::TemporaryDrive drive;
    testing::FakePictures pictures;
    testing::ScriptedUi ui;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
    CardEditor editor{drive.files(), ui, session.display(), session.palette()};
};

TEST_F(CardEditorTest, OpensOnTheFirstCardAndReopensTheLastOne)
{
    editor.open();
    EXPECT_EQ(shown(editor), "UOMINI- a01 a02");
    editor.load(1);
    EXPECT_EQ(shown(editor), "DEI1 b10");
    EXPECT_EQ(drive.read(kLastCardPath), "DEI\r\n");
    CardEditor again{drive.files(), ui, session.display(), session.palette()};
    again.open();
    EXPECT_EQ(again.name(), "DEI");

    drive.write(kCardListPath, "..\\dizio\r\nDei\r\ndei\r\nuomini\r\ncon\r\n\r\ndonne\r\n");
    drive.write(kLastCardPath, "..\\dizio\r\n");
    again.open();
    EXPECT_EQ(shown(again), "UOMINI- a01 a02");
    EXPECT_EQ(again.names(), (std::vector<std::string>{"Dei", "donne"}));
}

TEST_F(CardEditorTest, MakesACardAndRefusesNamesThatWouldReachElsewhere)
{
    editor.open();
    ui.answerInput("  prova ");
    editor.create();
    EXPECT_EQ(shown(editor), "PROVA2 a01");
    EXPECT_EQ(drive.read(kCardListPath), "donne\r\ndei\r\nprova\r\n");

    ui.answerInput(std::nullopt);
    editor.create();
    ui.expect(attention("Esiste già una scheda con il nome [Dei].\rScegliere un altro nome."));
    ui.answerInput("Dei");
    editor.create();
    ui.expect(attention("Il nome [uomini] è riservato ai file della finestra Schede."));
    ui.answerInput("uomini");
    editor.create();
    EXPECT_EQ(shown(editor), "PROVA2 a01");
    EXPECT_EQ(drive.read(kCardListPath), "donne\r\ndei\r\nprova\r\n");
}

TEST_F(CardEditorTest, TakesUpAFilePutThereByHand)
{
    drive.write(kDirectory + "mia.txt", "e16\r\n");
    editor.open();
    MessageBox box = {.title = "Domanda di sistema:",
                      .text =
                          "Il file [mia.txt] esiste già, ma la scheda non è nell'elenco.\r"
                          "La aggiungo all'elenco così com'è ?",
                      .icon = Icon::Question,
                      .buttons = Buttons::YesNo,
                      .defaultButton = Button::No};
    ui.expect(box, Button::No);
    ui.answerInput("mia");
    editor.create();
    EXPECT_EQ(shown(editor), "UOMINI- a01 a02");
    ui.expect(box, Button::Yes);
    ui.answerInput("mia");
    editor.create();
    EXPECT_EQ(shown(editor), "MIA2 e16");
}

TEST_F(CardEditorTest, FillsACardToItsLimit)
{
    editor.open();
    editor.add();  // nothing in the system writes the first card
    editor.load(1);
    ui.expect(
        attention("Sul display non è presente il geroglifico da aggiungere \r"
                  "Digitare prima il geroglifico e ripetere l'operazione.",
                  Icon::Critical));
    editor.add();
    compose("e16a01");
    for (int i = 1; i < 48; ++i) {
        editor.add();
    }
    EXPECT_EQ(editor.fields().size(), 48U);
    EXPECT_EQ(editor.fields().back(), "e16");
    ui.expect(
        attention("La scheda [DEI] è già piena \r"
                  "Per aggiungere un geroglifico è neccessario eliminarne almeno uno !"));
    editor.add();
    drive.write(kDirectory + "dei.txt", drive.read(kDirectory + "dei.txt") + "a01\r\n");
    editor.load(1);
    editor.press(48);  // has no button
    EXPECT_EQ(session.display().DisplayCodes(), "e16a01");
    editor.press(47);
    EXPECT_EQ(session.display().DisplayCodes(), "e16a01e16");
    compose("");
    session.insertion()("o\\a", 0);  // as a favourite from another directory does
    ui.expect(
        attention("Il primo segno del display (o\\a) non è un geroglifico della tavolozza.", Icon::Critical));
    editor.load(0);
    editor.add();
    EXPECT_EQ(drive.read(kDirectory + "donne.txt"), "b03\r\nb04\r\n");
}

TEST_F(CardEditorTest, ThinsACardButNeverEmptiesIt)
{
    const MessageBox last = attention(
        "La scheda [DEI] contiene un solo geroglifico. \rNon posso lasciare la scheda vuota !\r"
        "Aggiungere prima un geroglifico e poi eliminare il presente.");
    const MessageBox ask = question("Elimino il geroglifico, presente sul display, alla scheda [DEI] ?");
    editor.open();
    editor.removeSign();  // nothing in the system writes the first card
    editor.load(1);
    ui.expect(last);
    editor.removeSign();
    drive.write(kDirectory + "dei.txt", "b10\r\nb11\r\nb10\r\nb12\r\n");
    ui.expect(attention(
        "Sul display non è presente il geroglifico da eliminare \r"
        "Digitare prima il geroglifico selezionandolo dalla presente scheda e ripetere l'operazione.",
        Icon::Critical));
    editor.removeSign();
    compose("b10b12");
    ui.expect(ask, Button::Cancel);
    editor.removeSign();
    EXPECT_EQ(shown(editor), "DEI1 b10 b11 b10 b12");
    ui.expect(ask, Button::Ok);
    editor.removeSign();
    EXPECT_EQ(shown(editor), "DEI1 b11 b12");
    EXPECT_EQ(drive.read(kDirectory + "dei.txt"), "b11\r\nb12\r\n");
    drive.write(kDirectory + "dei.txt", "b10\r\nb10\r\n");
    ui.expect(last);
    editor.removeSign();
    EXPECT_EQ(drive.read(kDirectory + "dei.txt"), "b10\r\nb10\r\n");
}

TEST_F(CardEditorTest, DeletesACardButNotTheOnlyOne)
{
    editor.open();
    editor.deleteCard();  // not the first one
    editor.load(0);
    ui.expect(deletion("DONNE"), Button::Cancel);
    editor.deleteCard();
    EXPECT_EQ(shown(editor), "DONNE0 b03 b04");
    ui.expect(deletion("DONNE"), Button::Ok);
    editor.deleteCard();
    EXPECT_EQ(shown(editor), "DEI0 b10");
    EXPECT_EQ(drive.read(kDirectory + "donne.txt"), "(none)");
    EXPECT_EQ(drive.read(kCardListPath), "dei\r\n");
    EXPECT_EQ(drive.read(kLastCardPath), "DEI\r\n");
    ui.expect(
        attention("Attenzione non è possibile eliminare questa scheda poichè è l'unica \r"
                  "Procedere aggiungendo una nuova scheda e successivamente cancellare questa."));
    editor.deleteCard();
    EXPECT_EQ(drive.read(kDirectory + "dei.txt"), "b10\r\n");
}

TEST_F(CardEditorTest, SaysSoWhenACardHasGoneOrCannotBeRead)
{
    editor.open();
    editor.load(1);
    compose("e16");
    drive.files().remove(kDirectory + "dei.txt");
    ui.expect(gone("DEI"), Button::No);
    editor.add();  // does not bring it back with one sign
    EXPECT_EQ(shown(editor), "UOMINI- a01 a02");
    EXPECT_EQ(drive.read(kDirectory + "dei.txt"), "(none)");
    ui.expect(gone("DEI"), Button::Yes);
    editor.load(1);
    EXPECT_EQ(editor.names(), std::vector<std::string>{"donne"});

    drive.write(kDirectory + "donne.txt", "\"mai chiusa\r\n");
    ui.expect(
        attention("Non riesco a leggere la scheda [DONNE].\rInput oltre la fine del file.", Icon::Critical));
    editor.load(0);
    EXPECT_EQ(shown(editor), "UOMINI- a01 a02");
}

}  // namespace
}  // namespace karvel
