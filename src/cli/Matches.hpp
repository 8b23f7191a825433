#pragma once

#include <string>

#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/TranslationLookup.hpp"

namespace karvel::cli {

/// Prints what `search` finds in the dictionary at `path`, which is the user's own when empty. `search` is
/// given the reader and what to call whenever the reader stands at a match. What was found before a fault in
/// the file is printed before the fault.
template <typename Search>
Exit printMatches(const FileSystem& files, const std::string& path, Search search)
{
    Output output;
    bool found = false;
    try {
        RecordReader reader(files.open(path.empty() ? kDictionaryPath : std::string_view(path)));
        search(reader, [&] {
            found = true;
            output.entry(reader.record());
        });
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
