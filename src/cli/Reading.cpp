#include <optional>
#include <utility>

#include "base/SignCode.hpp"
#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "reading/Passage.hpp"

namespace karvel::cli {

namespace {

/// The words of a passage, one a line.
void printWords(Output& output, const Reader& reader, std::string_view codes)
{
    for (const ReadWord& word : reader.read(codes)) {
        output.entry(
            DictionaryEntry{std::string(codes.substr(word.begin * kCodeLength, word.length * kCodeLength)),
                            word.choice.translation, word.choice.transliteration, word.choice.note});
    }
}

/// The sign codes of a line in any of the forms. Unknown signs are reported with their place.
std::string codesOfLine(std::string_view line, std::size_t number, SignForm preferred)
{
    PassageSigns signs = readSigns(line, preferred);
    for (const UnknownText& unknown : signs.unknown) {
        complain("riga " + std::to_string(number) + ", carattere " + std::to_string(unknown.column) +
                 ": segno sconosciuto: \"" + unknown.text + "\"");
    }
    return std::move(signs.codes);
}

/// Every line that is not empty gives a block, also one without a known sign: block n answers line n.
Exit printFile(Output& output, const Reader& reader, std::string_view text, SignForm preferred)
{
    bool all = true;
    bool first = true;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.find_first_not_of(" \t\r") == std::string_view::npos) {
            continue;
        }
        if (!std::exchange(first, false)) {
            output.line("");
        }
        const std::string codes = codesOfLine(line, number, preferred);
        all = all && !codes.empty();
        printWords(output, reader, codes);
    }
    return all ? Exit::Done : Exit::Nothing;
}

}  // namespace

Exit readPassage(const Arguments& given)
{
    Arguments arguments = given;
    const std::string path = takeOption(arguments, "--file");
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    expectWords(arguments, path.empty() ? 1 : 0, path.empty() ? 1 : 0);
    const std::string codes = path.empty() ? codesFrom(arguments[0], gardiner) : std::string();
    const FileSystem files(Drives::ofUser());
    std::optional<Reader> reader;
    try {
        reader.emplace(files);
    } catch (const RuntimeError& error) {
        complain(dictionaryErrorBox(error).text);
        return Exit::Error;
    }
    if (!reader->warning().empty()) {
        complain(reader->warning());
    }
    Output output;
    if (path.empty()) {
        printWords(output, *reader, codes);
        return Exit::Done;
    }
    try {
        return printFile(output, *reader, passageText(files.readAll(path)),
                         gardiner ? SignForm::Gardiner : SignForm::Code);
    } catch (const RuntimeError& error) {
        complain(path + ": " + std::string(error.text()));
        return Exit::Error;
    }
}

}  // namespace karvel::cli
