#include "files/FileSystem.hpp"

#include <algorithm>
#include <limits>
#include <system_error>

#include "files/HostFile.hpp"
#include "files/Leftovers.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace fs = std::filesystem;

namespace {

/// A symbolic link stays one: what it points to is replaced.
fs::path behindLinks(const fs::path& path)
{
    std::error_code error;
    fs::path real = fs::canonical(path, error);
    return error ? path : real;
}

std::string contentOf(ByteSource& file, std::size_t limit)
{
    std::string bytes;
    char chunk[16384];
    while (const std::size_t count = file.read(chunk)) {
        bytes.append(chunk, count);
        if (bytes.size() > limit) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
    }
    return bytes;
}

/// Where no file may be created beside the old one: rewrites it in place, and puts the old bytes back if
/// that fails.
void rewriteInPlace(const fs::path& path, std::string_view bytes)
{
    HostFile file(path, HostFile::Mode::Rewrite);
    const std::string old = contentOf(file, std::numeric_limits<std::size_t>::max());
    try {
        file.writeAt(0, bytes);
        file.truncate(bytes.size());
        file.flush();
    } catch (const RuntimeError&) {
        file.writeAt(0, old);
        file.truncate(old.size());
        throw;
    }
}

/// The bytes from `offset` to the end of the file when all are blanks and line ends, else nothing. Throws
/// RuntimeError 6 when there are too many to be kept.
std::string blanksFrom(const HostFile& file, std::uint64_t offset)
{
    constexpr std::size_t kMost = std::size_t{1} << 24;
    std::string blanks;
    char chunk[16384];
    while (const std::size_t count = file.readAt(offset + blanks.size(), chunk)) {
        const std::string_view bytes(chunk, count);
        if (bytes.find_first_not_of(" \r\n") != std::string_view::npos) {
            return {};
        }
        if (blanks.size() >= kMost) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        blanks += bytes;
    }
    return blanks;
}

/// Writes `bytes` into a new file beside `target`, with the rights of `model` where that exists; returns its
/// path. When that fails nothing is left there.
fs::path writeBeside(const fs::path& target, std::string_view bytes, Durability durability,
                     const fs::path& model)
{
    fs::path beside = besidePath(target);
    std::error_code error;
    fs::remove(beside, error);
    try {
        HostFile file(beside, HostFile::Mode::CreateNew);
        file.writeAt(0, bytes);
        if (durability == Durability::Disk) {
            file.flush();
        }
        if (const fs::file_status old = fs::status(model, error); fs::exists(old)) {
            fs::permissions(beside, old.permissions(), error);
        }
    } catch (const RuntimeError&) {
        fs::remove(beside, error);
        throw;
    }
    return beside;
}

/// Renames the new file over `target`, or removes it when that fails.
void putInPlace(const fs::path& beside, const fs::path& target)
{
    try {
        renameOver(beside, target);
    } catch (const RuntimeError&) {
        std::error_code error;
        fs::remove(beside, error);
        throw;
    }
}

void refuseToReplace(const fs::path& target)
{
    if (!mayBeWritten(target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);  // renaming would pass over the file's protection
    }
    std::error_code error;
    if (fs::exists(target, error) && !fs::is_regular_file(target, error)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

void appendTo(HostFile& file, std::string_view bytes, std::optional<std::uint64_t> recordsEnd)
{
    const std::uint64_t size = file.size();
    const std::string overwritten = recordsEnd ? blanksFrom(file, *recordsEnd) : std::string();
    const std::uint64_t end = size - overwritten.size();
    std::string written(bytes);
    if (end > 0) {
        const char last = file.byteAt(end - 1);
        const bool commaEnds = last == ',' && end == recordsEnd;  // a line end would be one more field
        if (last != '\n' && last != '\r' && !commaEnds) {
            written.insert(0, "\r\n");
        }
    }
    try {
        file.writeAt(end, written);
        if (end + written.size() < size) {
            file.truncate(end + written.size());
        }
        file.flush();
    } catch (const RuntimeError&) {
        file.truncate(size);
        file.writeAt(end, overwritten);
        throw;
    }
}

}  // namespace

FileSystem::FileSystem(Drives drives) : drives_(std::move(drives)), held_(std::make_shared<HeldFiles>()) {}

/// The content in memory that stands for `path`; null for a file that is not held there.
std::optional<std::string>* FileSystem::held(std::string_view path) const
{
    const auto at = held_->empty() ? held_->end() : held_->find(upperCase(path));
    return at == held_->end() ? nullptr : &at->second;
}

std::unique_ptr<ByteSource> FileSystem::open(std::string_view path) const
{
    if (const auto* const file = held(path); file != nullptr && *file) {
        return std::make_unique<TextSource>(**file);
    }
    return std::make_unique<HostFile>(drives_.toHost(path), HostFile::Mode::Read);
}

std::string FileSystem::readAll(std::string_view path, std::size_t limit) const
{
    return contentOf(*open(path), limit);
}

FileState FileSystem::state(std::string_view path) const
{
    const std::uint64_t size = open(path)->size();  // reports what is missing as every reading does
    std::error_code error;
    const auto written = fs::last_write_time(drives_.toHost(path), error);
    return {.size = size,
            .written = error ? 0 : static_cast<std::int64_t>(written.time_since_epoch().count())};
}

bool FileSystem::exists(std::string_view path) const
{
    try {
        std::error_code error;
        return fs::is_regular_file(drives_.toHost(path), error);
    } catch (const RuntimeError&) {
        return false;
    }
}

void FileSystem::replace(std::string_view path, std::string_view bytes, Durability durability) const
{
    if (auto* const file = held(path)) {
        *file = bytes;
        return;
    }
    const fs::path target = behindLinks(drives_.toHost(path));
    refuseToReplace(target);
    fs::path beside;
    try {
        beside = writeBeside(target, bytes, durability, target);
    } catch (const RuntimeError& failure) {
        std::error_code error;
        if (failure.number() != ErrorNumber::PermissionDenied || !fs::exists(target, error)) {
            throw;
        }
        rewriteInPlace(target, bytes);
        return;
    }
    putInPlace(beside, target);
}

std::string FileSystem::freeNameForOld(std::string_view path) const
{
    const std::size_t dot = std::min(path.rfind('.'), path.size());
    for (int number = 1;; ++number) {
        std::string name(path.substr(0, dot));
        name += number == 1 ? ".old" : ".old-" + std::to_string(number);
        name += path.substr(dot);
        std::error_code error;
        if (!fs::exists(fs::symlink_status(drives_.toHost(name), error))) {
            return name;
        }
    }
}

std::optional<std::string> FileSystem::replaceKeeping(std::string_view path, std::string_view old,
                                                      std::string_view bytes) const
{
    const fs::path target = behindLinks(drives_.toHost(path));
    refuseToReplace(target);
    std::optional<HostFile> held(std::in_place, target, HostFile::Mode::Rewrite);
    held->lock();
    if (!held->isStillAt(target) || held->size() != old.size() || contentOf(*held, old.size()) != old) {
        return std::nullopt;
    }
    const fs::path beside = writeBeside(target, bytes, Durability::Disk, target);
    std::error_code error;
    const std::string keptName = freeNameForOld(path);
    const fs::path kept = drives_.toHost(keptName);
    try {
        putInPlace(writeBeside(kept, old, Durability::Disk, target), kept);
    } catch (const RuntimeError&) {
        fs::remove(beside, error);
        throw;
    }
    if (!kReplacesOpenFiles) {
        held.reset();
    }
    try {
        putInPlace(beside, target);
    } catch (const RuntimeError&) {
        fs::remove(kept, error);
        throw;
    }
    return keptName;
}

void FileSystem::append(std::string_view path, std::string_view bytes,
                        std::optional<std::uint64_t> recordsEnd) const
{
    const fs::path target = drives_.toHost(path);
    for (;;) {
        HostFile file(target, HostFile::Mode::Append);
        file.lock();
        if (file.isStillAt(target)) {  // else it was replaced while this program waited
            appendTo(file, bytes, recordsEnd);
            return;
        }
    }
}

void FileSystem::remove(std::string_view path) const
{
    const fs::path host = drives_.toHost(path);
    std::error_code error;
    if (!fs::is_regular_file(host, error)) {
        throw RuntimeError(fs::is_directory(host.parent_path(), error) ? ErrorNumber::FileNotFound
                                                                       : ErrorNumber::PathNotFound);
    }
    if (!mayBeWritten(host) || !fs::remove(host, error)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

bool FileSystem::canReplace(std::string_view path) const
{
    fs::path target;
    std::error_code error;
    try {
        target = behindLinks(drives_.toHost(path));
        refuseToReplace(target);
        fs::remove(writeBeside(target, {}, Durability::Process, target), error);
        return true;
    } catch (const RuntimeError& failure) {
        if (failure.number() != ErrorNumber::PermissionDenied || !fs::exists(target, error)) {
            return false;
        }
    }
    try {
        const HostFile inPlace(target, HostFile::Mode::Rewrite);  // as `replace` does it then
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void FileSystem::holdInMemory(std::string_view path) const
{
    held_->try_emplace(upperCase(path));
}

}  // namespace karvel
