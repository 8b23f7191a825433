#include "dictionary/RecordReader.hpp"

#include <array>
#include <utility>

namespace karvel {

RecordReader::RecordReader(std::unique_ptr<ByteSource> source, std::size_t window)
    : source_(std::move(source)), fields_(*source_, window)
{
}

void RecordReader::remember()
{
    if (current_) {
        kept_ = record_.decoded();
        current_ = false;
    }
}

bool RecordReader::next()
{
    std::array<std::string_view, 4> fields;
    if (!fields_.recordInWindow(fields)) {
        remember();  // the window is about to move
        if (fields_.atEndButBlankLines()) {
            return false;
        }
        fields_.fields(fields);
    }
    record_ = {fields[0], fields[1], fields[2], fields[3]};
    current_ = true;
    return true;
}

std::optional<DictionaryEntry> RecordReader::last() const
{
    return current_ ? std::optional(record_.decoded()) : kept_;
}

}  // namespace karvel
