#include "app/PhraseStudy.hpp"

#include <cstdint>
#include <string>
#include <utility>

#include "app/EntryList.hpp"
#include "text/Transliteration.hpp"

namespace karvel {

namespace {

StudyText textOf(const DictionaryEntry& entry)
{
    // A note that begins with "*" is the name of a picture.
    return {.transliteration = printedTransliteration(entry.transliteration),
            .translation = entry.translation,
            .note = entry.note.starts_with('*') ? std::string() : entry.note};
}

void join(std::string& all, std::string_view separator, const std::string& part)
{
    if (!part.empty()) {
        all += (all.empty() ? std::string_view() : separator);
        all += part;
    }
}

/// Reads to the end, or until the user stops it; true when the user did.
bool readAll(EntryList& list, UserInterface& ui)
{
    const BusyPointer hourglass(ui);
    int shown = -1;
    return list.read([&] {
        const int percent = list.percent();
        return std::exchange(shown, percent) != percent &&
               !ui.continueReading(static_cast<std::uint64_t>(percent), 100);
    });
}

}  // namespace

PhraseStudy studyOf(const FileSystem& files, UserInterface& ui, std::string_view phrase)
{
    EntryList whole(files, Mode::Equal, phrase);
    EntryList split(files, Mode::Split, phrase);
    const bool stopped = readAll(whole, ui) || readAll(split, ui);
    PhraseStudy study{.sheet = {.lines = {std::string(phrase)}},
                      .failure = whole.failure() ? whole.failure() : split.failure(),
                      .stopped = stopped};
    StudySheet& sheet = study.sheet;
    const Answers entries = whole.answers();
    for (std::size_t line = 0; line < entries.words(); ++line) {
        sheet.texts.push_back(textOf(*entries.best(entries.word(line)).entry));
    }
    const Answers words = split.answers();
    for (const Answer& word : words.all()) {
        sheet.words.push_back({.signs = word.entry->signs, .text = textOf(*word.entry)});
    }
    if (const std::string rest = split.rest(); !rest.empty()) {
        sheet.words.push_back({.signs = rest, .text = {.note = "Qui non comincia nessuna parola."}});
    }
    if (sheet.words.size() == 1) {
        // The phrase itself is shown above.
        const StudyText only = std::move(sheet.words.front().text);
        sheet.words.clear();
        if (sheet.texts.empty()) {
            sheet.texts.push_back(only);
        }
    }
    if (sheet.texts.empty()) {
        StudyText joined;
        for (const StudyWord& word : sheet.words) {
            join(joined.transliteration, " ", word.text.transliteration);
            join(joined.translation, " | ", word.text.translation);
        }
        sheet.texts.push_back(std::move(joined));
    }
    return study;
}

}  // namespace karvel
