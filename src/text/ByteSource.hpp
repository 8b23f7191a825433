#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "base/RuntimeError.hpp"

namespace karvel {

/// Bytes that are read once, front to back.
class ByteSource {
  public:
    virtual ~ByteSource() = default;

    /// Fills the front of `buffer`; returns the number of bytes, 0 only at the end.
    /// Throws RuntimeError when the device fails.
    virtual std::size_t read(std::span<char> buffer) = 0;

    /// The size in bytes as far as it is known, else 0.
    [[nodiscard]] virtual std::uint64_t size() const = 0;

    /// Whether another program has written to the file behind the source since that was opened. Waits while
    /// one is writing, a second at most.
    [[nodiscard]] virtual bool writtenSinceOpened() const { return false; }
};

/// A text in memory; it must outlive the source.
class TextSource : public ByteSource {
  public:
    explicit TextSource(std::string_view text) : text_(text), size_(text.size()) {}
    std::size_t read(std::span<char> buffer) override;
    [[nodiscard]] std::uint64_t size() const override { return size_; }

  private:
    std::string_view text_;  ///< what has not been read yet
    std::size_t size_;
};

/// Reports before each read how far a source has been read, and can be stopped then.
class WatchedSource : public ByteSource {
  public:
    /// Called with the bytes read so far and the bytes in all (0: unknown); false stops the reading.
    using Watcher = std::function<bool(std::uint64_t, std::uint64_t)>;

    WatchedSource(std::unique_ptr<ByteSource> source, Watcher watcher);

    /// Throws ReadingStopped when the watcher returns false.
    std::size_t read(std::span<char> buffer) override;
    [[nodiscard]] std::uint64_t size() const override { return source_->size(); }
    [[nodiscard]] bool writtenSinceOpened() const override { return source_->writtenSinceOpened(); }

  private:
    std::unique_ptr<ByteSource> source_;
    Watcher watcher_;
    std::uint64_t done_ = 0;
};

}  // namespace karvel
