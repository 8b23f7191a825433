#if !defined(_WIN32)

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "files/HostFile.hpp"

namespace karvel {

namespace {

[[noreturn]] void fail(int error, const std::filesystem::path& path = {})
{
    switch (error) {
        case ENOENT: {
            std::error_code ignored;
            const auto directory = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
            throw RuntimeError(std::filesystem::is_directory(directory, ignored) ? ErrorNumber::FileNotFound
                                                                                 : ErrorNumber::PathNotFound);
        }
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            throw RuntimeError(ErrorNumber::PermissionDenied);
        case EISDIR:
        case ENOTDIR:
        case EEXIST:
        case ELOOP:
        case ENXIO:
            throw RuntimeError(ErrorNumber::PathFileAccess);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            throw RuntimeError(ErrorNumber::DiskFull);
        case ENAMETOOLONG:
        case EINVAL:
            throw RuntimeError(ErrorNumber::BadFileName);
        default:
            throw RuntimeError(ErrorNumber::DeviceIo);
    }
}

int flagsOf(HostFile::Mode mode)
{
    switch (mode) {
        case HostFile::Mode::Read:
            return O_RDONLY;
        case HostFile::Mode::Append:
            return O_RDWR | O_CREAT;
        case HostFile::Mode::Rewrite:
            return O_RDWR;
        case HostFile::Mode::CreateNew:
            return O_RDWR | O_CREAT | O_EXCL;
    }
    return O_RDONLY;
}

}  // namespace

HostFile::HostFile(const std::filesystem::path& path, Mode mode)
    // Without O_NONBLOCK a pipe in the file's place would hang the program.
    : descriptor_(::open(path.c_str(), flagsOf(mode) | O_CLOEXEC | O_NONBLOCK, 0666))
{
    if (descriptor_ < 0) {
        fail(errno, path);
    }
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    if (mode == Mode::Read) {
        end_ = static_cast<std::uint64_t>(status.st_size);
    }
#if defined(POSIX_FADV_SEQUENTIAL)
    ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
}

HostFile::~HostFile()
{
    ::close(descriptor_);
}

std::size_t HostFile::readAt(std::uint64_t offset, std::span<char> buffer) const
{
    for (;;) {
        const ssize_t count = ::pread(descriptor_, buffer.data(), buffer.size(), static_cast<off_t>(offset));
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            fail(errno);
        }
    }
}

std::uint64_t HostFile::size() const
{
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
        fail(errno);
    }
    return static_cast<std::uint64_t>(status.st_size);
}

void HostFile::writeAt(std::uint64_t offset, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            fail(count < 0 ? errno : ENOSPC);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
}

void HostFile::truncate(std::uint64_t size)
{
    if (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) {
        fail(errno);
    }
}

void HostFile::flush()
{
    if (::fsync(descriptor_) != 0 && errno != EINVAL) {
        fail(errno);
    }
}

void HostFile::lock()
{
    while (::flock(descriptor_, LOCK_EX) != 0) {
        if (errno != EINTR) {
            return;  // a file system without locks: then only one program may append at a time
        }
    }
}

bool HostFile::tryLockForReading() const
{
    return ::flock(descriptor_, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void HostFile::unlock() const
{
    ::flock(descriptor_, LOCK_UN);
}

bool HostFile::isStillAt(const std::filesystem::path& path) const
{
    struct stat own {};
    struct stat there {};
    return ::fstat(descriptor_, &own) == 0 && ::stat(path.c_str(), &there) == 0 &&
           own.st_dev == there.st_dev && own.st_ino == there.st_ino;
}

void renameOver(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (std::rename(from.c_str(), to.c_str()) != 0) {
        fail(errno, to);
    }
}

bool mayBeWritten(const std::filesystem::path& path)
{
    return ::access(path.c_str(), W_OK) == 0 || errno == ENOENT;
}

unsigned long processNumber()
{
    return static_cast<unsigned long>(::getpid());
}

bool isRunning(unsigned long process)
{
    // Other numbers mean groups of processes.
    const bool possible = process > 0 && process <= std::numeric_limits<pid_t>::max();
    return possible && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

}  // namespace karvel

#endif
