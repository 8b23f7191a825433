#include "faults/Office.hpp"

#include "app/StartUp.hpp"
#include "app/Views.hpp"

namespace karvel::testing {

namespace fs = std::filesystem;

Office::Office()
{
    drive.writeSettings();
    const std::string below = "C:\\programmi\\Karvel\\";
    // The next entry is written over the blank line at the end.
    drive.write(below + "dizio.txt", record("a01", "uno") + record("b02", "due", "dw", "*foto.gif") + "\r\n");
    drive.write(below + "GeroLink\\speciale.txt", "PROVA\r\nAltra\r\n");
    drive.write(below + "GeroLink\\prova.txt", "a01\r\nb02\r\na01\r\nc03");
    drive.write(below + "GeroLink\\altra.txt", "d04\r\n");
    drive.write(below + "GeroLink\\uomini.txt", "a01\r\na02\r\n");
    drive.write(below + "GeroLink\\schedepref.txt", "PROVA\r\n");
    std::string page;
    for (const char* const code : {"a01", "a02", "a03", "a04", "a05", "a06", "a07", "a08"}) {
        page += "C:\\Programmi\\Karvel\\GR\\" + std::string(code) + ".gif\r\n";
    }
    drive.write(below + "prefe\\pre1.prf", page);
    drive.write(below + "preferiti", page);
    begin();
}

void Office::begin()
{
    attempt([](Office& office) { (void)formLoad(office.session); });
    attempt([](Office& office) { office.session.palette().pressCode("a01"); });
    attempt([](Office& office) { office.session.favourites().showFirstPage(); });
    attempt([](Office& office) { office.cards.open(); });
    ui.told.clear();
}

std::string Office::attempt(const std::function<void(Office&)>& work)
{
    ui.told.clear();
    try {
        work(*this);
    } catch (const RuntimeError& error) {
        ui.told += defaultErrorReport(error).text;
    } catch (const ReadingStopped&) {
        ui.told += "(stopped)";
    }
    EXPECT_EQ(ui.busyDepth, 0);
    return ui.told;
}

Files Office::files() const
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

const std::vector<Deed>& deeds()
{
    static const std::vector<Deed> kDeeds = {
        {"insert an entry",
         [](Office& o) {
             o.session.dictionaryInsertion().confirm("c03", {"tre, città", "", "nota"});
         }},
        {"choose a mode", [](Office& o) { o.session.modes().choose(Mode::EndsWith, o.drive.files()); }},
        {"choose a colour",
         [](Office& o) { applyWindowColour(o.drive.files(), o.session.colours(), Colour{123456}); }},
        {"choose a directory",
         [](Office& o) {
             o.session.directoryChooser().directoryChanged("C:\\Segni, nuovi");
             o.session.directoryChooser().confirm();
         }},
        {"compose a sign", [](Office& o) { o.session.palette().pressCode("b02"); }},
        {"save favourites",
         [](Office& o) { o.session.favourites().save("C:\\programmi\\Karvel\\prefe\\pre1"); }},
        {"add to a card", [](Office& o) { o.cards.add(); }},
        {"take from a card", [](Office& o) { o.cards.removeSign(); }},
        {"make a card", [](Office& o) { o.cards.create(); }},
        {"delete a card", [](Office& o) { o.cards.deleteCard(); }},
    };
    return kDeeds;
}

const std::vector<Deed>& readings()
{
    static const auto search = [](Office& o, int mode) {
        TranslationLookup(o.drive.files(), o.ui, o.session.resultView(), o.session.last())
            .run(static_cast<std::uint8_t>(mode), mode == 6 ? "a01p47" : "a01");
    };
    static const std::vector<Deed> kReadings = {
        {"start", [](Office& o) { (void)formLoad(o.session); }},
        {"search exactly", [](Office& o) { search(o, 1); }},
        {"search similar", [](Office& o) { search(o, 3); }},
        {"search beginnings", [](Office& o) { search(o, 4); }},
        {"search endings", [](Office& o) { search(o, 5); }},
        {"search with a missing sign", [](Office& o) { search(o, 6); }},
        {"split",
         [](Office& o) {
             RecordReader reader(openDictionary(o.drive.files(), o.ui));
             (void)longestWord(reader, "a01b02");
         }},
        {"list the Italian words", [](Office& o) { (void)o.session.italianSearch().buildWordList(); }},
        {"search an Italian word", [](Office& o) { o.session.italianSearch().search("due"); }},
        {"count", [](Office& o) { showCode(o.session); }},
        {"undo", [](Office& o) { undo(o.session); }},
        {"read favourites", [](Office& o) { o.session.favourites().showFirstPage(); }},
        {"turn favourites", [](Office& o) { o.session.favourites().nextPage(); }},
        {"open the cards", [](Office& o) { o.cards.open(); }},
        {"reread the colours", [](Office& o) { rereadColours(o.drive.files(), o.session.colours()); }},
    };
    return kReadings;
}

bool comfort(std::string_view file)
{
    return file == "GeroLink/schedepref.txt" || file == "preferiti";
}

}  // namespace karvel::testing
