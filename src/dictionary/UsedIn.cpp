#include "dictionary/UsedIn.hpp"

#include "dictionary/Lookup.hpp"
#include "dictionary/TranslationLookup.hpp"

namespace karvel {

std::vector<DictionaryEntry> entriesWith(const FileSystem& files, UserInterface& ui, std::string_view code)
{
    const BusyPointer hourglass(ui);
    std::vector<DictionaryEntry> entries;
    try {
        RecordReader reader(openDictionary(files, ui));
        Lookup lookup(reader, MatchRule(Mode::Contains, code));
        while (lookup.next()) {
            entries.push_back(reader.record().decoded());
        }
    } catch (const RuntimeError& error) {
        ui.ask(dictionaryErrorBox(error));
    } catch (const ReadingStopped&) {
        // The user has seen enough: what was found so far is shown.
    }
    return entries;
}

}  // namespace karvel
