#include "dictionary/TranslationLookup.hpp"

#include <cstdint>
#include <utility>

#include "dictionary/Lookup.hpp"
#include "text/CodePage.hpp"

namespace karvel {

MessageBox translationBox(const DictionaryEntry& entry)
{
    return {.title = "Traduzione",
            .text = "1) -  " + entry.translation + "\n\n2) -  " + entry.transliteration +
                    "\n\nNote: " + entry.note,
            .buttons = Buttons::OkCancel};
}

MessageBox dictionaryErrorBox(const RuntimeError& error)
{
    return {.title = "ERRORE",
            .text = "C'e' un errore nel file dizio.txt ERR>" + std::to_string(error.value()) + "\n" +
                    std::string(error.text()) + "\nCi sono caratteri in meno o in più nel file !",
            .icon = Icon::Critical};
}

std::unique_ptr<ByteSource> openDictionary(const FileSystem& files, UserInterface& ui, std::string_view path)
{
    return std::make_unique<WatchedSource>(files.open(path), [&ui](std::uint64_t done, std::uint64_t total) {
        return ui.continueReading(done, total);
    });
}

void TranslationLookup::run(Mode mode, std::string_view phrase)
{
    End end = End::NothingFound;
    try {
        end = pass(mode, phrase);
    } catch (const RuntimeError& error) {
        // Kept: only these two modes explain the fault of the file; the others report the bare error.
        if (mode != Mode::Contains && mode != Mode::Equal) {
            throw;
        }
        ui_.ask(dictionaryErrorBox(error));
        return;
    }
    if (end == End::Cancelled) {
        return;
    }
    ui_.ask({.title = "Ricerca:", .text = end == End::Found ? "Fine Ricerca" : std::string(kNothingFound)});
}

TranslationLookup::End TranslationLookup::pass(Mode mode, std::string_view phrase)
{
    RecordReader reader(openDictionary(files_, ui_));
    const MatchRule rule(mode, phrase);
    Lookup lookup(reader, rule);
    End end = End::NothingFound;
    const auto rememberLast = [&] {
        if (const auto last = reader.last()) {
            // A match stays as it was shown, any other record as it is stored.
            last_.translation = rule.matches(last->signs) ? upperCase(last->translation) : last->translation;
            last_.note = last->note;
            last_.phrase = phrase;
        }
    };
    try {
        for (;;) {
            bool found = false;
            {
                const BusyPointer hourglass(ui_);
                found = lookup.next();
            }
            if (!found) {
                break;
            }
            end = End::Found;
            last_.phrase = phrase;
            if (!show(mode, reader.record().decoded())) {
                return End::Cancelled;
            }
        }
    } catch (const RuntimeError&) {
        rememberLast();
        throw;
    } catch (const ReadingStopped&) {
        rememberLast();
        return End::Cancelled;
    }
    rememberLast();
    return end;
}

/// False when the user has seen enough.
bool TranslationLookup::show(Mode mode, DictionaryEntry entry)
{
    view_.showFound(entry.signs);
    entry.translation = upperCase(entry.translation);
    last_.translation = entry.translation;
    last_.note = entry.note;
    // Kept: only the containment search opens pictures; in the others the note is read, not seen.
    const bool hasPicture = mode == Mode::Contains && entry.note.starts_with('*');
    if (!hasPicture) {
        view_.closePicture();
    }
    const Button answer = ui_.ask(translationBox(entry));
    if (hasPicture) {
        view_.showPicture(entry.note.substr(1));
    }
    return answer != Button::Cancel;
}

}  // namespace karvel
