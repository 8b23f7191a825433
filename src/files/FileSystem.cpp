#include "files/FileSystem.hpp"

#include <system_error>

#include "files/HostFile.hpp"

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

/// Where no file may be created beside the old one: rewrites it in place, and puts the old bytes back if
/// that fails.
void rewriteInPlace(const fs::path& path, std::string_view bytes)
{
    HostFile file(path, HostFile::Mode::Rewrite);
    std::string old(static_cast<std::size_t>(file.size()), '\0');
    for (std::size_t at = 0; at < old.size();) {
        const std::size_t count = file.read({old.data() + at, old.size() - at});
        if (count == 0) {
            old.resize(at);
        }
        at += count;
    }
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

/// The bytes from `offset` to the end of the file when all are blanks and line ends, else nothing.
std::string blanksFrom(HostFile& file, std::uint64_t offset)
{
    std::string blanks;
    for (std::uint64_t at = offset; at < file.size(); ++at) {
        const char byte = file.byteAt(at);
        if (byte != ' ' && byte != '\r' && byte != '\n') {
            return {};
        }
        blanks.push_back(byte);
    }
    return blanks;
}

}  // namespace

std::unique_ptr<ByteSource> FileSystem::open(std::string_view path) const
{
    return std::make_unique<HostFile>(drives_.toHost(path), HostFile::Mode::Read);
}

std::string FileSystem::readAll(std::string_view path, std::size_t limit) const
{
    HostFile file(drives_.toHost(path), HostFile::Mode::Read);
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
    std::error_code error;
    return fs::is_regular_file(drives_.toHost(path), error);
}

void FileSystem::replace(std::string_view path, std::string_view bytes, Durability durability) const
{
    const fs::path target = behindLinks(drives_.toHost(path));
    if (!mayBeWritten(target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);  // renaming would ignore the file's protection
    }
    std::error_code error;
    if (fs::exists(target, error) && !fs::is_regular_file(target, error)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    fs::path beside = target;
    beside += ".~" + std::to_string(processNumber());
    fs::remove(beside, error);
    try {
        HostFile file(beside, HostFile::Mode::CreateNew);
        file.writeAt(0, bytes);
        if (durability == Durability::Disk) {
            file.flush();
        }
        if (const fs::file_status old = fs::status(target, error); fs::exists(old)) {
            fs::permissions(beside, old.permissions(), error);
        }
    } catch (const RuntimeError& failure) {
        fs::remove(beside, error);
        if (failure.number() != ErrorNumber::PermissionDenied || !fs::exists(target, error)) {
            throw;
        }
        rewriteInPlace(target, bytes);
        return;
    }
    try {
        renameOver(beside, target);
    } catch (const RuntimeError&) {
        fs::remove(beside, error);
        throw;
    }
}

void FileSystem::append(std::string_view path, std::string_view bytes,
                        std::optional<std::uint64_t> recordsEnd) const
{
    HostFile file(drives_.toHost(path), HostFile::Mode::Append);
    file.lock();
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

}  // namespace karvel
