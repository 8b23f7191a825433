#include "faults/Installation.hpp"

#include "app/EditionOffer.hpp"
#include "app/StartUp.hpp"
#include "app/Views.hpp"
#include "reading/Reader.hpp"
#include "writing/Outlines.hpp"

namespace karvel::testing {

namespace fs = std::filesystem;

Installation::Installation()
{
    drive.writeSettings();
    const std::string below = "C:\\programmi\\Karvel\\";
    // The blank line at the end is overwritten by the next entry.
    drive.write(below + "dizio.txt", record("a01", "uno") + record("b02", "due", "dw", "*foto.gif") + "\r\n");
    drive.write(below + "edizione\\dizio.txt", record("a01", "uno, il primo") + record("a02", "due"));
    drive.write(below + "GeroLink\\speciale.txt", "PROVA\r\nAltra\r\n");
    drive.write(below + "GeroLink\\prova.txt", "a01\r\nb02\r\na01\r\nc03");
    drive.write(below + "GeroLink\\altra.txt", "d04\r\n");
    drive.write(below + "GeroLink\\uomini.txt", "a01\r\na02\r\n");
    drive.write(below + "GeroLink\\schedepref.txt", "PROVA\r\n");
    std::string page;
    for (const char* const code : {"a01", "a02", "a03", "a04", "a05", "a06", "a07", "a08"}) {
        page += "C:\\Programmi\\Karvel\\GR\\" + std::string(code) + ".gif\r\n";
    }
    drive.write(below + "settaggi\\cronologia.txt", "3\ta01\r\ntesto\tuno\r\n");
    drive.write(below + "prefe\\pre1.prf", page);
    drive.write(below + "preferiti", page);
    drive.write(below + "lettura.txt", "x");
    drive.write(below + "scrittura\\segni.dat", "x");
    fs::create_directories(dataTree());
    drive.write(utf8Path(dataTree() / "dizio.txt"), std::string(60, 'd'));
    attempt([](Installation& i) { (void)formLoad(i.session); });
    attempt([](Installation& i) { i.session.palette().pressCode("a01"); });
    attempt([](Installation& i) { i.session.favourites().showFirstPage(); });
    attempt([](Installation& i) { i.cards.open(); });
}

std::string Installation::attempt(const std::function<void(Installation&)>& work)
{
    ui.told.clear();
    try {
        work(*this);
    } catch (const RuntimeError& error) {
        ui.told += defaultErrorReport(error).text;
    }
    return ui.told;
}

Files Installation::files() const
{
    Files found;
    for (const auto& entry : fs::recursive_directory_iterator(root())) {
        const std::string name = utf8Path(entry.path().lexically_relative(root()));
        std::error_code looped;
        if (entry.is_regular_file(looped) && name.find(".~") == std::string::npos) {
            found[name] = drive.read(utf8Path(entry.path()));
        }
    }
    return found;
}

const std::vector<Operation>& writings()
{
    static const std::vector<Operation> kWritings = {
        {"insert an entry",
         [](Installation& i) {
             i.session.dictionaryInsertion().confirm("c03", {"tre, città", "", "nota"});
         }},
        {"update the dictionary", [](Installation& i) { updateDictionary(i.drive.files(), i.ui); }},
        {"choose a mode", [](Installation& i) { i.session.modes().choose(Mode::EndsWith, i.drive.files()); }},
        {"choose a colour",
         [](Installation& i) { applyWindowColour(i.drive.files(), i.session.colours(), Colour{123456}); }},
        {"choose a directory",
         [](Installation& i) {
             i.session.directoryChooser().directoryChanged("C:\\Segni, nuovi");
             i.session.directoryChooser().confirm();
         }},
        {"compose a sign", [](Installation& i) { i.session.palette().pressCode("b02"); }},
        {"save favourites",
         [](Installation& i) { i.session.favourites().save("C:\\programmi\\Karvel\\prefe\\pre1"); }},
        {"add to a card", [](Installation& i) { i.cards.add(); }},
        {"take from a card", [](Installation& i) { i.cards.removeSign(); }},
        {"make a card", [](Installation& i) { i.cards.create(); }},
        {"delete a card", [](Installation& i) { i.cards.deleteCard(); }},
    };
    return kWritings;
}

const std::vector<Operation>& readings()
{
    static const auto search = [](Installation& i, int mode) {
        TranslationLookup(i.drive.files(), i.ui, i.session.resultView(), i.session.last())
            .run(modeOf(static_cast<std::uint8_t>(mode)), mode == 6 ? "a01p47" : "a01");
    };
    static const std::vector<Operation> kReadings = {
        {"start", [](Installation& i) { (void)formLoad(i.session); }},
        {"search", [](Installation& i) { search(i, 3); }},
        {"search with a missing sign", [](Installation& i) { search(i, 6); }},
        {"split",
         [](Installation& i) {
             RecordReader reader(openDictionary(i.drive.files(), i.ui));
             (void)longestWord(reader, "a01b02");
         }},
        {"list the Italian words", [](Installation& i) { (void)i.session.italianSearch().buildWordList(); }},
        {"count", [](Installation& i) { showCode(i.session); }},
        {"undo", [](Installation& i) { undo(i.session); }},
        {"read favourites", [](Installation& i) { i.session.favourites().showFirstPage(); }},
        {"turn favourites", [](Installation& i) { i.session.favourites().nextPage(); }},
        {"open the cards", [](Installation& i) { i.cards.open(); }},
        {"load a card", [](Installation& i) { i.cards.names().empty() ? void() : i.cards.load(0); }},
        {"read a passage", [](Installation& i) { (void)Reader(i.drive.files()).read("a01b02"); }},
        {"draw signs", [](Installation& i) { (void)Outlines::installed(i.drive.files()).of("a01"); }},
        {"remember a search", [](Installation& i) { i.session.rememberPhrase(); }},
        {"read the colours", [](Installation& i) { (void)readColours(i.drive.files()); }},
    };
    return kReadings;
}

bool isCache(std::string_view file)
{
    return file == "GeroLink/schedepref.txt" || file == "preferiti" || file == "settaggi/cronologia.txt";
}

}  // namespace karvel::testing
