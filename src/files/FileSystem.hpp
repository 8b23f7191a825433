#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/Drives.hpp"
#include "text/FieldReader.hpp"

namespace karvel {

/// Whether a replaced file must survive a power cut, or only the end of the program.
enum class Durability { Disk, Process };

/// What changes when a file is written: its size in bytes and the time of the last writing, in ticks of the
/// host's clock.
struct FileState {
    std::uint64_t size = 0;
    std::int64_t written = 0;

    friend bool operator==(const FileState&, const FileState&) = default;
};

/// The files of the system, by their paths in the system's own form (or the host's). Contents are bytes of
/// the code page. All functions throw RuntimeError: 53 file missing, 76 directory missing, 70 not allowed,
/// 75 no plain file or one outside its drive, 61 disk full, 57 device failure, 52 impossible name.
class FileSystem {
  public:
    explicit FileSystem(Drives drives);

    [[nodiscard]] const Drives& drives() const { return drives_; }

    /// Opens `path` for reading from its start.
    [[nodiscard]] std::unique_ptr<ByteSource> open(std::string_view path) const;

    /// All bytes of `path`. Throws RuntimeError 6 when there are more than `limit`.
    [[nodiscard]] std::string readAll(std::string_view path, std::size_t limit = std::size_t{1} << 26) const;

    /// True when a plain file is at `path`. Never throws.
    [[nodiscard]] bool exists(std::string_view path) const;

    /// The state of the plain file at `path`.
    [[nodiscard]] FileState state(std::string_view path) const;

    /// Makes `bytes` the whole content of `path`, created when missing. On failure the file is as it was.
    void replace(std::string_view path, std::string_view bytes,
                 Durability durability = Durability::Disk) const;

    /// Like `replace` for a file that exists, but keeps the old one beside it, as NAME.old.EXTENSION, or
    /// NAME.old-2.EXTENSION and so on where that is taken; returns its path. Nothing, and nothing is done,
    /// when the file no longer holds `old`. Other programs that append wait meanwhile. On failure the
    /// directory is as it was.
    [[nodiscard]] std::optional<std::string> replaceKeeping(std::string_view path, std::string_view old,
                                                            std::string_view bytes) const;

    /// Adds `bytes` at the end of `path` in one write, created when missing; a line end first where the file
    /// lacks its last one. Other programs that append the same way wait for each other. On failure the file
    /// is as it was.
    ///
    /// `recordsEnd` is the offset at which the last record of a file of records ends. Blanks and line ends
    /// after it are overwritten: they would be read as empty fields once a record follows them.
    void append(std::string_view path, std::string_view bytes,
                std::optional<std::uint64_t> recordsEnd = std::nullopt) const;

    /// Deletes `path`.
    void remove(std::string_view path) const;

    /// Whether `replace` could now put a file at `path`. Nothing is changed.
    [[nodiscard]] bool canReplace(std::string_view path) const;

    /// From now on `replace` does not write the file at `path`: this object and its copies keep the new
    /// content in memory, and `open` and `readAll` give that content.
    void holdInMemory(std::string_view path) const;

  private:
    /// The content by path in upper case: the program spells each in one way. Without content, before the
    /// first `replace`, the file is read from the disk.
    using HeldFiles = std::map<std::string, std::optional<std::string>>;

    [[nodiscard]] std::string freeNameForOld(std::string_view path) const;
    [[nodiscard]] std::optional<std::string>* held(std::string_view path) const;

    Drives drives_;
    std::shared_ptr<HeldFiles> held_;
};

}  // namespace karvel
