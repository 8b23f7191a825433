#include <array>
#include <optional>
#include <utility>

#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "cli/TerminalUi.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "dictionary/WordFinder.hpp"
#include "text/CodePage.hpp"

namespace karvel::cli {

namespace {

std::optional<QuestionKind> kindFrom(Arguments& arguments)
{
    std::optional<QuestionKind> kind;
    for (const QuestionKind known : kQuestionKinds) {
        if (takeSwitch(arguments, "--" + std::string(nameOf(known)))) {
            if (kind) {
                throw UsageError("si può indicare un solo tipo di testo");
            }
            kind = known;
        }
    }
    return kind;
}

void print(const Answers& answers, bool spellings)
{
    Output output;
    for (std::size_t line = 0; line < answers.words(); ++line) {
        const Answers::Word& word = answers.word(line);
        for (const std::size_t spelling : word.spellings) {
            output.entry(*answers.all()[spelling].entry);
            if (!spellings) {
                break;
            }
        }
    }
}

}  // namespace

Exit findWords(const Arguments& given)
{
    Arguments arguments = given;
    const std::optional<QuestionKind> kind = kindFrom(arguments);
    const bool spellings = takeSwitch(arguments, "--grafie");
    const std::string path = takeOption(arguments, "--dizionario");
    expectWords(arguments, 1, 1);
    const FileSystem files(Drives::ofUser());
    TerminalUi ui;
    try {
        WordFinder finder(files, ui, path.empty() ? kDictionaryPath : std::string_view(path));
        const WordFinder::Result result = finder.ask(arguments[0], kind);
        print(result.answers, spellings);
        if (result.failure) {
            throw RuntimeError(*result.failure);
        }
        if (result.answers.empty()) {
            complain(kNothingFound);
        }
        return result.answers.empty() ? Exit::Nothing : Exit::Done;
    } catch (const RuntimeError& error) {
        complain(dictionaryErrorBox(error).text);
        return Exit::Error;
    }
}

}  // namespace karvel::cli
