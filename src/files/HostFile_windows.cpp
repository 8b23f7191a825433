#if defined(_WIN32)

#include <algorithm>

#include "base/WindowsHeader.hpp"
#include "files/HostFile.hpp"

namespace karvel {

namespace {

[[noreturn]] void fail(DWORD error)
{
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            throw RuntimeError(ErrorNumber::FileNotFound);
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_NOT_READY:
        case ERROR_BAD_NETPATH:
            throw RuntimeError(ErrorNumber::PathNotFound);
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            throw RuntimeError(ErrorNumber::PermissionDenied);
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            throw RuntimeError(ErrorNumber::PathFileAccess);
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            throw RuntimeError(ErrorNumber::DiskFull);
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            throw RuntimeError(ErrorNumber::BadFileName);
        default:
            throw RuntimeError(ErrorNumber::DeviceIo);
    }
}

/// Here a lock forbids reading: one byte far behind the end is locked in place of the file.
constexpr std::uint64_t kBehindAnyFile = 0x7FFFFFFFFFFFFFFE;

OVERLAPPED at(std::uint64_t offset)
{
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

/// Reports a name that is too long; the system itself would report that the file or its directory is missing.
void refuseLongNames(const std::filesystem::path& path)
{
    constexpr std::size_t kLongest = 255;
    for (const std::filesystem::path& name : path) {
        if (name.native().size() > kLongest) {
            throw RuntimeError(ErrorNumber::BadFileName);
        }
    }
}

}  // namespace

HostFile::HostFile(const std::filesystem::path& path, Mode mode) : handle_(INVALID_HANDLE_VALUE)
{
    refuseLongNames(path);
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    const DWORD access = mode == Mode::Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const DWORD creation = mode == Mode::Append      ? OPEN_ALWAYS
                           : mode == Mode::CreateNew ? CREATE_NEW
                                                     : OPEN_EXISTING;
    handle_ = ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, creation, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) {
        fail(::GetLastError());
    }
    if (::GetFileType(handle_) != FILE_TYPE_DISK) {
        ::CloseHandle(handle_);
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    if (mode == Mode::Read) {
        end_ = size();
    }
}

HostFile::~HostFile()
{
    ::CloseHandle(handle_);
}

std::size_t HostFile::readAt(std::uint64_t offset, std::span<char> buffer) const
{
    OVERLAPPED place = at(offset);
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), 1U << 30));
    if (::ReadFile(handle_, buffer.data(), wanted, &count, &place) == 0) {
        const DWORD error = ::GetLastError();
        if (error != ERROR_HANDLE_EOF) {
            fail(error);
        }
    }
    return count;
}

std::uint64_t HostFile::size() const
{
    LARGE_INTEGER size{};
    if (::GetFileSizeEx(handle_, &size) == 0) {
        fail(::GetLastError());
    }
    return static_cast<std::uint64_t>(size.QuadPart);
}

void HostFile::writeAt(std::uint64_t offset, std::string_view bytes)
{
    while (!bytes.empty()) {
        OVERLAPPED place = at(offset);
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
        if (::WriteFile(handle_, bytes.data(), wanted, &count, &place) == 0) {
            fail(::GetLastError());
        }
        if (count == 0) {
            fail(ERROR_DISK_FULL);
        }
        bytes.remove_prefix(count);
        offset += count;
    }
}

void HostFile::truncate(std::uint64_t size)
{
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    if (::SetFilePointerEx(handle_, place, nullptr, FILE_BEGIN) == 0 || ::SetEndOfFile(handle_) == 0) {
        fail(::GetLastError());
    }
}

void HostFile::flush()
{
    if (::FlushFileBuffers(handle_) == 0) {
        fail(::GetLastError());
    }
}

void HostFile::lock()
{
    OVERLAPPED place = at(kBehindAnyFile);
    ::LockFileEx(handle_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place);
}

bool HostFile::tryLockForReading() const
{
    OVERLAPPED place = at(kBehindAnyFile);
    return ::LockFileEx(handle_, LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

void HostFile::unlock() const
{
    OVERLAPPED place = at(kBehindAnyFile);
    ::UnlockFileEx(handle_, 0, 1, 0, &place);
}

bool HostFile::isStillAt(const std::filesystem::path& /*path*/) const
{
    return true;  // an open file is not replaced here
}

void renameOver(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        fail(::GetLastError());
    }
}

bool mayBeWritten(const std::filesystem::path& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

unsigned long processNumber()
{
    return ::GetCurrentProcessId();
}

bool isRunning(unsigned long process)
{
    const HANDLE opened = ::OpenProcess(SYNCHRONIZE, FALSE, process);
    if (opened == nullptr) {
        return ::GetLastError() == ERROR_ACCESS_DENIED;  // another user's
    }
    const bool ended = ::WaitForSingleObject(opened, 0) == WAIT_OBJECT_0;
    ::CloseHandle(opened);
    return !ended;
}

}  // namespace karvel

#endif
