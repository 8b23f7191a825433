#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "cli/Matches.hpp"
#include "dictionary/Lookup.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "text/CodePage.hpp"

namespace karvel::cli {

namespace {

constexpr std::array<std::pair<std::string_view, Mode>, kModes> kModeNames = {{
    {"esatto", Mode::Equal},
    {"simile", Mode::Contains},
    {"inizia", Mode::StartsWith},
    {"finisce", Mode::EndsWith},
    {"mancante", Mode::MissingSign},
    {"dividi", Mode::Split},
}};

Mode modeFrom(const std::string& name)
{
    if (name.empty()) {
        return Mode::Contains;
    }
    for (const auto& [known, mode] : kModeNames) {
        if (known == name) {
            return mode;
        }
    }
    throw UsageError("modo sconosciuto: " + name);
}

}  // namespace

Exit search(const Arguments& given)
{
    Arguments arguments = given;
    const Mode mode = modeFrom(takeOption(arguments, "--modo"));
    std::string path = takeOption(arguments, "--dizionario");
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    expectWords(arguments, 1, 1);
    const std::string phrase = codesFrom(arguments[0], gardiner);
    const FileSystem files(Drives::ofUser());
    if (mode == Mode::Split) {
        return splitPhrase(files, path.empty() ? kDictionaryPath : std::string_view(path), phrase);
    }
    return printMatches(files, path, [&](RecordReader& reader, const auto& print) {
        Lookup lookup(reader, MatchRule(mode, phrase));
        while (lookup.next()) {
            print();
        }
    });
}

}  // namespace karvel::cli
