#include <cstdio>
#include <utility>

#include "cli/Command.hpp"
#include "cli/Matches.hpp"
#include "cli/Output.hpp"
#include "cli/TerminalUi.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "dictionary/WordSplitter.hpp"
#include "text/CodePage.hpp"
#include "words/DictionaryInsertion.hpp"
#include "words/ItalianSearch.hpp"
#include "words/NameTranscription.hpp"

namespace karvel::cli {

namespace {

Exit exitOf(DictionaryInsertion::End end)
{
    switch (end) {
        case DictionaryInsertion::End::Written:
            return Exit::Done;
        case DictionaryInsertion::End::Failed:
            return Exit::Error;
        default:
            return Exit::Nothing;
    }
}

}  // namespace

Exit splitPhrase(const FileSystem& files, std::string_view path, std::string_view phrase)
{
    Output output;
    bool found = false;
    try {
        while (!phrase.empty()) {
            RecordReader reader(files.open(path));
            const auto word = longestWord(reader, phrase);
            if (!word) {
                break;
            }
            found = true;
            output.entry(word->entry);
            phrase.remove_prefix(word->length);
        }
    } catch (const RuntimeError& error) {
        output.flush();
        complain(dictionaryErrorBox(error).text);
        return Exit::Error;
    }
    output.flush();
    if (!phrase.empty()) {
        complain("Resta: " + std::string(phrase));
    }
    return found ? Exit::Done : Exit::Nothing;
}

Exit searchItalian(const Arguments& given)
{
    Arguments arguments = given;
    const std::string path = takeOption(arguments, "--dizionario");
    const bool contains = takeSwitch(arguments, "--contiene");
    expectWords(arguments, 1, 1);
    const ItalianWord word(arguments[0], contains ? ItalianWord::Match::Contains : ItalianWord::Match::Whole);
    const FileSystem files(Drives::ofUser());
    return printMatches(files, path, [&word](RecordReader& reader, const auto& print) {
        while (reader.next()) {
            if (word.matches(reader.record().translation)) {
                print();
            }
        }
    });
}

Exit transcribeName(const Arguments& given)
{
    Arguments arguments = given;
    expectWords(arguments, 1, 1);
    const std::string codes = transcribe(arguments[0]);
    if (codes.empty()) {
        complain("Nessuna lettera di questo nome ha un segno.");
        return Exit::Nothing;
    }
    std::string line;
    for (const std::string_view code : splitCodes(codes)) {
        line += line.empty() ? "" : " ";
        line += code;
    }
    Output().line(line);
    return Exit::Done;
}

Exit addEntry(const Arguments& given)
{
    Arguments arguments = given;
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    expectWords(arguments, 2, 4);
    arguments.resize(4);
    const FileSystem files(Drives::ofUser());
    TerminalUi ui;
    LastResult last;
    DictionaryInsertion insertion(files, ui, last);
    if (!insertion.mayOpen(arguments[0])) {
        return Exit::Nothing;
    }
    return exitOf(
        insertion.confirm(codesFrom(arguments[0], gardiner), {arguments[1], arguments[2], arguments[3]}));
}

}  // namespace karvel::cli
