#include "cli/Output.hpp"

#include <cstdio>

namespace karvel::cli {

namespace {

/// A tab or a line end inside a field would part what belongs together: it becomes a blank.
std::string oneLine(std::string text)
{
    for (std::size_t at = 0; (at = text.find_first_of("\t\r\n", at)) != std::string::npos; ++at) {
        text.replace(at, text.compare(at, 2, "\r\n") == 0 ? 2 : 1, " ");
    }
    return text;
}

}  // namespace

void Output::entry(const RawRecord& record)
{
    entry(record.decoded());
}

void Output::entry(const DictionaryEntry& entry)
{
    line(oneLine(entry.signs) + '\t' + oneLine(entry.translation) + '\t' + oneLine(entry.transliteration) +
         '\t' + oneLine(entry.note));
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
