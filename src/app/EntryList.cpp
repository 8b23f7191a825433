#include "app/EntryList.hpp"

#include <array>
#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "dictionary/WordSplitter.hpp"
#include "text/CodePage.hpp"
#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"

namespace karvel {

namespace {

constexpr std::string_view kPageStyle =
    "body { font-family: sans-serif; margin: 2em } h1 { font-size: 130% }"
    " table { border-collapse: collapse } th { text-align: left; border-bottom: 2px solid #888 }"
    " th, td { padding: 0.3em 1.2em 0.3em 0 } td { border-bottom: 1px solid #ddd }"
    " td:first-child { font-size: 170% } svg { display: block }";

std::string csvField(std::string_view field)
{
    std::string text = "\"";
    for (const char c : field) {
        text += c == '"' ? std::string("\"\"") : std::string(1, c);
    }
    return text + '"';
}

std::string escaped(std::string_view text)
{
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

/// Calls `row` for every spelling in the order of the list.
template <typename Row>
void forEach(const Answers& answers, const Row& row)
{
    for (std::size_t line = 0; line < answers.words(); ++line) {
        for (const std::size_t spelling : answers.word(line).spellings) {
            row(*answers.all()[spelling].entry);
        }
    }
}

}  // namespace

std::string_view nameOf(Mode mode)
{
    static constexpr std::array<std::string_view, kModes> kNames = {
        "Termine presente", "Dividi in parole", "Cerca simile",
        "Inizia per",       "Finisce per",      "Geroglifico mancante"};
    return kNames[static_cast<std::size_t>(mode) - 1];
}

EntryList::EntryList(const FileSystem& files, Mode mode, std::string_view phrase)
    : files_(files), mode_(mode), phrase_(phrase), left_(phrase_)
{
}

bool EntryList::step()
{
    if (mode_ == Mode::Split) {
        return splitOff();
    }
    if (!matches_) {
        reader_ = std::make_unique<RecordReader>(openFollowed(files_, kDictionaryPath, progress_));
        matches_.emplace(*reader_, mode_, phrase_);
    }
    return matches_->step(found_);
}

/// Finds the next word of the phrase in one pass over the file.
bool EntryList::splitOff()
{
    RecordReader reader(openFollowed(files_, kDictionaryPath, progress_));
    std::optional<Word> word = longestWord(reader, left_);
    if (!word) {
        return false;
    }
    left_.remove_prefix(word->length);
    found_.push_back(
        {.entry = std::make_shared<DictionaryEntry>(std::move(word->entry)), .word = found_.size()});
    return !left_.empty();
}

int EntryList::percent() const
{
    return mode_ == Mode::Split ? static_cast<int>(100 - 100 * left_.size() / phrase_.size())
                                : progress_.percent();
}

std::string EntryList::heading(const Answers& shown) const
{
    return gardinerOf(phrase_) + " · " + std::string(nameOf(mode_)) + " · " + shown.counts();
}

std::string faultLine(const RuntimeError& failure)
{
    return "Errore " + std::to_string(failure.value()) +
           " nel file dizio.txt: " + std::string(failure.text()) + ". L'elenco può essere incompleto.";
}

std::string stoppedLine(int percent, std::size_t found)
{
    const std::string rows = found == 0   ? "non ha ancora voci"
                             : found == 1 ? "ha la voce trovata fin lì"
                                          : "ha le " + std::to_string(found) + " voci trovate fin lì";
    return "Lettura interrotta al " + std::to_string(percent) + "% del dizionario: l'elenco " + rows + ".";
}

void showEntry(Session& session, const DictionaryEntry& entry, const std::string& searched)
{
    ResultView& view = session.resultView();
    view.showFound(entry.signs);
    session.last().translation = upperCase(entry.translation);
    session.last().note = entry.note;
    session.last().phrase = searched;
    if (entry.note.starts_with('*')) {
        view.showPicture(entry.note.substr(1));
    } else {
        view.closePicture();
    }
}

bool useSigns(Session& session, std::string_view codes)
{
    std::vector<std::string> signs;
    for (const std::string_view piece : splitCodes(codes)) {
        std::string code(piece);
        if (code[0] >= 'A' && code[0] <= 'Z') {
            code[0] = static_cast<char>(code[0] - 'A' + 'a');
        }
        if (isSignCode(code)) {
            signs.push_back(std::move(code));
        }
    }
    const bool added = session.palette().pressCodes(signs);
    if (added) {
        session.display().showPhrase();  // the cells may still show the entry
    }
    return added;
}

std::string asCsv(const Answers& answers)
{
    std::string text = "\xEF\xBB\xBFGardiner;Geroglifici;Traduzione;Traslitterazione;Nota\r\n";
    forEach(answers, [&](const DictionaryEntry& entry) {
        text += csvField(gardinerOf(entry.signs)) + ';' + csvField(unicodeOf(entry.signs)) + ';' +
                csvField(entry.translation) + ';' + csvField(printedTransliteration(entry.transliteration)) +
                ';' + csvField(entry.note) + "\r\n";
    });
    return text;
}

std::string htmlRow(const DictionaryEntry& entry, const SignsInHtml& signs)
{
    return "<tr><td title=\"" + escaped(gardinerOf(entry.signs)) + "\">" +
           (signs ? signs(entry.signs) : unicodeOf(entry.signs)) + "</td><td>" + escaped(entry.translation) +
           "</td><td><i>" + escaped(printedTransliteration(entry.transliteration)) + "</i></td><td>" +
           escaped(entry.note) + "</td></tr>\n";
}

std::string plainRow(const DictionaryEntry& entry)
{
    return unicodeOf(entry.signs) + '\t' + printedTransliteration(entry.transliteration) + '\t' +
           entry.translation;
}

std::string asHtml(const Answers& answers, std::string_view heading, const SignsInHtml& signs,
                   const std::function<std::string()>& atEnd)
{
    std::string text = "<!DOCTYPE html>\n<html lang=\"it\"><head><meta charset=\"utf-8\"><title>" +
                       escaped(heading) + "</title>\n<style>" + std::string(kPageStyle) +
                       "</style></head>\n<body><h1>" + escaped(heading) +
                       "</h1>\n<table><tr><th>Segni</th><th>Traduzione</th><th>Traslitterazione</th>"
                       "<th>Nota</th></tr>\n";
    forEach(answers, [&](const DictionaryEntry& entry) { text += htmlRow(entry, signs); });
    return text + "</table>\n" + (atEnd ? atEnd() : std::string()) + "</body></html>\n";
}

}  // namespace karvel
