#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <span>
#include <string_view>

#include "text/ByteSource.hpp"

namespace karvel {

/// An open file of the host. Every failure is a RuntimeError with the number that the user knows.
class HostFile : public ByteSource {
  public:
    enum class Mode {
        Read,      ///< `read` ends where the file ended when it was opened, whatever is added meanwhile
        Append,    ///< reads and writes; created when missing
        Rewrite,   ///< reads and writes what must exist already
        CreateNew  ///< fails when the file exists
    };

    /// Throws RuntimeError 53 when the file is missing, 76 when its directory is, 70 when it may not be
    /// opened so, 75 when it is no plain file, 52 when the name is impossible.
    HostFile(const std::filesystem::path& path, Mode mode);
    ~HostFile() override;
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;

    std::size_t read(std::span<char> buffer) override
    {
        const std::uint64_t left = end_ - std::min(offset_, end_);
        const std::size_t count = readAt(
            offset_, buffer.first(static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), left))));
        offset_ += count;
        return count;
    }
    [[nodiscard]] std::uint64_t size() const override;
    [[nodiscard]] bool writtenSinceOpened() const override;

    /// Like `read`, but from `offset` bytes from the start; `read` continues where it was.
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer) const;

    /// The byte `offset` bytes from the start. Throws RuntimeError 57 when there is none.
    [[nodiscard]] char byteAt(std::uint64_t offset) const
    {
        char byte = 0;
        if (readAt(offset, {&byte, 1}) != 1) {
            throw RuntimeError(ErrorNumber::DeviceIo);
        }
        return byte;
    }

    /// Writes all of `bytes` at `offset`. On failure part of them may be in the file.
    void writeAt(std::uint64_t offset, std::string_view bytes);

    void truncate(std::uint64_t size);

    /// Waits until the bytes are on the disk.
    void flush();

    /// Waits until no other program holds the file so; released when the file is closed.
    void lock();

    /// False when another file has been put in the place of this one at `path` since it was opened.
    [[nodiscard]] bool isStillAt(const std::filesystem::path& path) const;

  private:
    /// Like `lock`, but other readers may hold the file as well, and false when that is not possible now.
    [[nodiscard]] bool tryLockForReading() const;
    void unlock() const;

#if defined(_WIN32)
    void* handle_;
#else
    int descriptor_;
#endif
    std::uint64_t end_ = std::numeric_limits<std::uint64_t>::max();  ///< where `read` ends
    std::uint64_t offset_ =
        0;  ///< of the next `read`; the system's own offset moves with `readAt` on Windows
};

/// Whether an open file can be replaced. Where it cannot, it has to be closed, and its lock released, first.
#if defined(_WIN32)
inline constexpr bool kReplacesOpenFiles = false;
#else
inline constexpr bool kReplacesOpenFiles = true;
#endif

/// Puts `from` in the place of `to` in one step. Throws RuntimeError; `to` is then as it was.
void renameOver(const std::filesystem::path& from, const std::filesystem::path& to);

/// False when `path` exists and may not be written.
[[nodiscard]] bool mayBeWritten(const std::filesystem::path& path);

/// A number that no other running program has.
[[nodiscard]] unsigned long processNumber();

/// Whether a program with this number is running.
[[nodiscard]] bool isRunning(unsigned long process);

}  // namespace karvel
