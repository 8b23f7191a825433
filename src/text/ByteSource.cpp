#include "text/ByteSource.hpp"

#include <utility>

namespace karvel {

std::size_t TextSource::read(std::span<char> buffer)
{
    const std::size_t count = text_.copy(buffer.data(), buffer.size());
    text_.remove_prefix(count);
    return count;
}

WatchedSource::WatchedSource(std::unique_ptr<ByteSource> source, Watcher watcher)
    : source_(std::move(source)), watcher_(std::move(watcher))
{
}

std::size_t WatchedSource::read(std::span<char> buffer)
{
    if (!watcher_(done_, source_->size())) {
        throw ReadingStopped();
    }
    const std::size_t count = source_->read(buffer);
    done_ += count;
    return count;
}

}  // namespace karvel
