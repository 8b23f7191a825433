#include "cli/Output.hpp"

#include <cstdio>

#include "base/CodePage.hpp"

namespace karvel::cli {

void Output::entry(const RawRecord& record)
{
    entry(record.decoded());
}

void Output::entry(const DictionaryEntry& entry)
{
    line(entry.signs + '\t' + entry.translation + '\t' + entry.transliteration + '\t' + entry.note);
}

void Output::line(std::string_view utf8)
{
    pending_ += utf8;
    pending_ += '\n';
    if (pending_.size() > 65536) {
        flush();
    }
}

void Output::flush()
{
    std::fwrite(pending_.data(), 1, pending_.size(), stdout);
    std::fflush(stdout);
    pending_.clear();
}

}  // namespace karvel::cli
