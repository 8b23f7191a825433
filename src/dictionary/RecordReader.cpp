#include "dictionary/RecordReader.hpp"

#include <array>
#include <utility>

namespace karvel {

RecordReader::RecordReader(std::unique_ptr<ByteSource> source, std::size_t window, const SkimShape& shape)
    : source_(std::move(source)), fields_(*source_, window), shape_(shape)
{
}

void RecordReader::lookFor(Wanted wanted)
{
    text_ = wanted.text;
    skimmer_.reset();
    if (FieldSkimmer::fits(*source_, text_, shape_)) {
        skimmer_ = std::make_unique<FieldSkimmer>(*source_, std::move(wanted), shape_);
    }
}

bool RecordReader::skip()
{
    if (skimmer_ && fields_.atField()) {
        const std::uint64_t from = fields_.position();
        if (const std::uint64_t to = skimmer_->pass(from); to != from) {
            remember();
            fields_.moveTo(to);
            return true;
        }
    }
    return fields_.skipRecordsWithout(text_);
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
    end_ = fields_.position();
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
