#include "dictionary/RecordReader.hpp"

#include <array>
#include <utility>

namespace karvel {

RecordReader::RecordReader(std::unique_ptr<ByteSource> source, std::size_t window)
    : source_(std::move(source)), fields_(*source_, window)
{
}

void RecordReader::leaveOutWithout(const std::string& text)
{
    filter_.reset();
    if (!text.empty()) {
        filter_.emplace(text);
    }
}

bool RecordReader::next()
{
    if (filter_ && fields_.position() >= nextScan_) {
        const RecordFilter::Result found = filter_->scan(fields_.bytesInWindow());
        nextScan_ = fields_.position() + found.read;
        fields_.skipBytes(found.skip);
    }
    end_ = fields_.position();
    std::array<std::string_view, kRecordFields> fields;
    if (!fields_.quotedFieldsInWindow(fields)) {
        if (current_) {
            kept_ = record_.decoded();  // the window is about to move
            current_ = false;
        }
        if (fields_.atEndButBlankLines()) {
            return false;
        }
        if (!readFields(fields)) {
            return false;
        }
    }
    record_ = {fields[0], fields[1], fields[2], fields[3]};
    current_ = true;
    return true;
}

/// False when the file ends inside a record because another program was adding one.
bool RecordReader::readFields(std::span<std::string_view> fields)
{
    try {
        fields_.fields(fields);
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::InputPastEnd || !source_->writtenSinceOpened()) {
            throw;
        }
        metUnfinished_ = true;
    }
    return !metUnfinished_;
}

std::optional<DictionaryEntry> RecordReader::last() const
{
    return current_ ? std::optional(record_.decoded()) : kept_;
}

}  // namespace karvel
