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

    /// Whether the two functions below may be called.
    [[nodiscard]] virtual bool anywhere() const { return false; }

    /// Like `read`, but from `offset` bytes behind the start, and `read` goes on where it was. Several
    /// threads may call it at once.
    virtual std::size_t readAt(std::uint64_t /*offset*/, std::span<char> /*buffer*/) const { return 0; }

    /// Lets `read` go on `offset` bytes behind the start.
    virtual void moveTo(std::uint64_t /*offset*/) {}
};

/// A text in memory; it must outlive the source.
class TextSource : public ByteSource {
  public:
    explicit TextSource(std::string_view text) : text_(text) {}
    std::size_t read(std::span<char> buffer) override;
    [[nodiscard]] std::uint64_t size() const override { return text_.size(); }
    [[nodiscard]] bool anywhere() const override { return true; }
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer) const override;
    void moveTo(std::uint64_t offset) override { at_ = static_cast<std::size_t>(offset); }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

/// Tells somebody how far a source has been read, and stops when told to.
class WatchedSource : public ByteSource {
  public:
    /// Bytes read so far, bytes in all (0: unknown); false stops the reading.
    using Watcher = std::function<bool(std::uint64_t, std::uint64_t)>;

    WatchedSource(std::unique_ptr<ByteSource> source, Watcher watcher);

    /// Throws ReadingStopped when the watcher says so; so does `moveTo`.
    std::size_t read(std::span<char> buffer) override;
    [[nodiscard]] std::uint64_t size() const override { return source_->size(); }
    [[nodiscard]] bool anywhere() const override { return source_->anywhere(); }
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer) const override
    {
        return source_->readAt(offset, buffer);
    }
    void moveTo(std::uint64_t offset) override;

  private:
    void tell();

    std::unique_ptr<ByteSource> source_;
    Watcher watcher_;
    std::uint64_t done_ = 0;
};

}  // namespace karvel
