#include "text/ByteSource.hpp"

#include <utility>

namespace karvel {

std::size_t TextSource::read(std::span<char> buffer)
{
    const std::size_t count = readAt(at_, buffer);
    at_ += count;
    return count;
}

std::size_t TextSource::readAt(std::uint64_t offset, std::span<char> buffer) const
{
    if (offset >= text_.size()) {
        return 0;
    }
    return text_.copy(buffer.data(), buffer.size(), static_cast<std::size_t>(offset));
}

WatchedSource::WatchedSource(std::unique_ptr<ByteSource> source, Watcher watcher)
    : source_(std::move(source)), watcher_(std::move(watcher))
{
}

void WatchedSource::tell()
{
    if (!watcher_(done_, source_->size())) {
        throw ReadingStopped();
    }
}

void WatchedSource::moveTo(std::uint64_t offset)
{
    tell();
    source_->moveTo(offset);
    done_ = offset;
}

std::size_t WatchedSource::read(std::span<char> buffer)
{
    tell();
    const std::size_t count = source_->read(buffer);
    done_ += count;
    return count;
}

}  // namespace karvel
