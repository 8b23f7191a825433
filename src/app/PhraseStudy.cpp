#include "app/PhraseStudy.hpp"

#include <string>

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

}  // namespace

PhraseStudy studyOf(const FileSystem& files, UserInterface& ui, std::string_view phrase)
{
    const EntryList whole = listEntries(files, ui, Mode::Equal, phrase);
    const EntryList split = listEntries(files, ui, Mode::Split, phrase);
    PhraseStudy study{.sheet = {.lines = {std::string(phrase)}},
                      .failure = whole.failure ? whole.failure : split.failure};
    StudySheet& sheet = study.sheet;
    for (std::size_t line = 0; line < whole.answers.words(); ++line) {
        sheet.texts.push_back(textOf(*whole.answers.best(whole.answers.word(line)).entry));
    }
    for (const Answer& word : split.answers.all()) {
        sheet.words.push_back({.signs = word.entry->signs, .text = textOf(*word.entry)});
    }
    if (!split.rest.empty()) {
        sheet.words.push_back({.signs = split.rest, .text = {.note = "Qui non comincia nessuna parola."}});
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
