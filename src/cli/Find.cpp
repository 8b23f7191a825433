#include <array>
#include <optional>
#include <utility>

#include "cli/Command.hpp"
#include "cli/Output.hpp"
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
    WordFinder finder(files, path.empty() ? kDictionaryPath : std::string_view(path));
    const auto search = finder.search(arguments[0], kind);
    search->readAll();
    print(search->answers(), spellings);
    if (search->failure()) {
        complain(dictionaryErrorBox(*search->failure()).text);
        return Exit::Error;
    }
    if (search->found() == 0) {
        complain(kNothingFound);
    }
    return search->found() == 0 ? Exit::Nothing : Exit::Done;
}

}  // namespace karvel::cli
