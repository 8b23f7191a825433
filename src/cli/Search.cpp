#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "base/CodePage.hpp"
#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "dictionary/Lookup.hpp"
#include "dictionary/TranslationLookup.hpp"

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
    Output output;
    bool found = false;
    try {
        RecordReader reader(files.open(path.empty() ? kDictionaryPath : std::string_view(path)));
        Lookup lookup(reader, MatchRule(static_cast<std::uint8_t>(mode), phrase));
        while (lookup.next()) {
            found = true;
            output.entry(reader.record());
        }
    } catch (const RuntimeError& error) {
        output.flush();
        complain(dictionaryErrorBox(error).text);
        return Exit::Error;
    }
    output.flush();
    if (!found) {
        complain(kNothingFound);
    }
    return found ? Exit::Done : Exit::Nothing;
}

}  // namespace karvel::cli
