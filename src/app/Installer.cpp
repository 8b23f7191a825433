#include "app/Installer.hpp"

#include <cstdlib>
#include <system_error>
#include <unordered_set>
#include <vector>

#include "app/EditionOffer.hpp"
#include "base/WindowsHeader.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/EditionUpdate.hpp"
#include "files/FileSystem.hpp"
#include "files/Leftovers.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDictionaryName = "dizio.txt";

bool isDataTree(const fs::path& directory)
{
    std::error_code error;
    return fs::is_regular_file(directory / kDictionaryName, error) &&
           fs::is_directory(directory / "GR", error);
}

[[noreturn]] void fail(const std::error_code& error)
{
    if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) {
        throw RuntimeError(ErrorNumber::DiskFull);
    }
    throw RuntimeError(error == std::errc::io_error ? ErrorNumber::DeviceIo : ErrorNumber::PermissionDenied);
}

/// Copies to a temporary name and renames, so that an interrupted copy does not look like the file.
void copyWhole(const fs::path& from, const fs::path& to)
{
    const fs::path beside = besidePath(to);
    std::error_code error;
    fs::remove(beside, error);  // a link of that name would be written through
    fs::copy_file(from, beside, error);
    if (!error) {
        // A tree installed for everyone is read-only; the user's own copy is not.
        fs::permissions(beside, fs::perms::owner_write, fs::perm_options::add, error);
        fs::rename(beside, to, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(beside, ignored);
        fail(error);
    }
}

std::size_t copyMissing(const fs::path& from, const std::string& systemPath, const Drives& drives)
{
    const fs::path to = drives.toHost(systemPath);
    std::error_code error;
    fs::create_directories(to, error);
    if (error) {
        fail(error);
    }
    removeLeftoversIn(to);
    std::unordered_set<std::string> present;
    for (const auto& entry : fs::directory_iterator(to, error)) {
        present.insert(upperCase(utf8Path(entry.path().filename())));
    }
    std::size_t copied = 0;
    for (const auto& entry : fs::directory_iterator(from, error)) {
        const std::string name = utf8Path(entry.path().filename());
        if (entry.is_directory()) {
            copied += copyMissing(entry.path(), systemPath + "\\" + name, drives);
        } else if (!present.contains(upperCase(name))) {
            copyWhole(entry.path(), to / entry.path().filename());
            ++copied;
        }
    }
    if (error) {
        fail(error);
    }
    return copied;
}

/// Makes the file at `systemPath`, which is the program's own, the same as `from`; 1 when it was not.
std::size_t renew(const fs::path& from, std::string_view systemPath, const FileSystem& files)
{
    const std::string bytes = FileSystem(Drives()).readAll(utf8Path(from));
    if (files.exists(systemPath) && files.readAll(systemPath) == bytes) {
        return 0;
    }
    std::error_code error;
    fs::create_directories(files.drives().toHost(systemPath).parent_path(), error);
    if (error) {
        fail(error);
    }
    files.replace(systemPath, bytes);
    return 1;
}

}  // namespace

fs::path ownProgram()
{
#if defined(_WIN32)
    constexpr std::size_t kLongestPath = 32768;  // characters, as the system limits it
    std::wstring name(kLongestPath, L'\0');
    name.resize(::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return {name};
#else
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
#endif
}

std::optional<fs::path> findDataTree(const fs::path& program)
{
    if (const char* const given = std::getenv("KARVEL_DATA"); given != nullptr && *given != '\0') {
        return isDataTree(hostPath(given)) ? std::optional(hostPath(given)) : std::nullopt;
    }
    const fs::path directory = program.parent_path();
    std::vector<fs::path> candidates = {directory / "data",
                                        directory.parent_path() / "share" / "karvel" / "tree"};
    for (fs::path above = directory; above != above.parent_path(); above = above.parent_path()) {
        candidates.push_back(above / "data" / "tree");
    }
    for (const fs::path& candidate : candidates) {
        if (isDataTree(candidate)) {
            return candidate;
        }
    }
    return std::nullopt;
}

std::size_t installTree(const fs::path& tree, const Drives& drives)
{
    constexpr const char* kRoot = "C:\\programmi\\Karvel";
    const FileSystem files(drives);
    const bool fresh = !files.exists(kDictionaryPath);
    std::size_t copied = copyMissing(tree, kRoot, drives);
    copied += renew(tree / kDictionaryName, kEditionPath, files);
    if (fresh) {
        keepEditionAnswer(files);
    }
    // The credits belong to the data and lie beside them wherever they go.
    if (const fs::path credits = tree.parent_path() / "CREDITS.md"; fs::exists(credits)) {
        copied += renew(credits, std::string(kRoot) + "\\CREDITS.md", files);
    }
    return copied;
}

}  // namespace karvel
