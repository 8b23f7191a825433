#include "files/Drives.hpp"

#include <algorithm>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "base/RuntimeError.hpp"
#include "base/WindowsHeader.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace fs = std::filesystem;

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool hasDrive(std::string_view path)
{
    return path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
}

char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

#if defined(_WIN32)

/// The entry of the file or directory at `path`; nothing when there is none. No file has a name with a
/// wildcard.
std::optional<WIN32_FIND_DATAW> foundOnDisk(const fs::path& path)
{
    WIN32_FIND_DATAW found{};
    if (path.native().find_first_of(L"*?") != std::wstring::npos) {
        return std::nullopt;
    }
    const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    ::FindClose(search);
    return found;
}

/// The name that `wanted` has in `directory`, as it is spelled there; `wanted` itself when there is none.
/// The system accepts any letter case of a name, so that asking whether it exists does not tell its spelling.
fs::path nameIn(const fs::path& directory, const std::string& wanted)
{
    const fs::path asGiven = hostPath(wanted);
    const auto found = foundOnDisk(directory / asGiven);
    return found ? fs::path(found->cFileName) : asGiven;
}

#else

/// The name that `wanted` has in `directory`; `wanted` itself when nothing matches.
fs::path nameIn(const fs::path& directory, const std::string& wanted)
{
    std::error_code error;
    fs::path asGiven = hostPath(wanted);
    if (fs::exists(fs::symlink_status(directory / asGiven, error))) {
        return asGiven;
    }
    const std::string upper = upperCase(wanted);
    fs::path found;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        fs::path name = entry->path().filename();
        if (upperCase(utf8Path(name)) == upper && (found.empty() || name < found)) {
            found = std::move(name);  // the first in order, so that the choice is the same on every run
        }
    }
    return found.empty() ? asGiven : found;
}

#endif

std::vector<std::string> namesOf(std::string_view path)
{
    std::vector<std::string> names;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find_first_of("\\/", at), path.size());
        std::string_view name = path.substr(at, end - at);
        while (name.ends_with(' ')) {
            name.remove_suffix(1);
        }
        at = end + 1;
        if (name == "..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != ".") {
            names.emplace_back(name);
        }
    }
    return names;
}

/// Throws RuntimeError 75 unless the file or directory that `path` really is, all symbolic links followed,
/// lies below `root`. What does not exist is judged by the directory that does. A link to nothing is refused
/// too: to write through it would create a file anywhere.
void refuseOutside(const fs::path& root, const fs::path& path)
{
    std::error_code error;
    fs::path present = path;
    while (!fs::exists(fs::symlink_status(present, error))) {
        present = present.parent_path();
    }
    const fs::path real = fs::canonical(present, error);
    const fs::path top = error ? fs::path() : fs::canonical(root, error);
    if (error || std::ranges::mismatch(top, real).in1 != top.end()) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

}  // namespace

fs::path hostPath(std::string_view utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string utf8Path(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

Drives::Drives(fs::path driveC) : driveC_(std::move(driveC)) {}

Drives Drives::ofUser()
{
#if defined(_WIN32)
    const wchar_t* const given = _wgetenv(L"KARVEL_DRIVE_C");
    return given != nullptr && *given != 0 ? Drives(fs::path(given)) : Drives();
#else
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return fs::path(value != nullptr ? value : "");
    };
    if (const fs::path given = variable("KARVEL_DRIVE_C"); !given.empty()) {
        return Drives(fs::absolute(given));
    }
    fs::path data = variable("XDG_DATA_HOME");
    if (!data.is_absolute()) {
        data = variable("HOME") / ".local/share";
    }
    return Drives(fs::absolute(data) / "karvel" / "drive_c");
#endif
}

fs::path Drives::root(char letter) const
{
    const char lower = lowerCase(letter);
    return lower == 'c' ? driveC_ : driveC_.parent_path() / (std::string("drive_") + lower);
}

fs::path Drives::toHost(std::string_view path) const
{
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    if (!hasDrive(path) || !mapped()) {
        return hostPath(path);
    }
    const fs::path top = root(path[0]);
    fs::path host = top;
    bool linked = false;
    std::error_code error;
    for (const std::string& name : namesOf(path.substr(2))) {
        host /= nameIn(host, name);
        linked = linked || fs::is_symlink(host, error);
    }
    if (linked) {
        refuseOutside(top, host);
    }
    return host;
}

std::string Drives::toSystem(const fs::path& path) const
{
    if (!mapped()) {
        fs::path own = path;
        return utf8Path(own.make_preferred());
    }
    const fs::path wanted = path.lexically_normal();
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const fs::path below = wanted.lexically_relative(root(letter).lexically_normal());
        if (below.empty() || *below.begin() == "..") {
            continue;
        }
        std::string system = {static_cast<char>(letter - 'a' + 'A'), ':', '\\'};
        for (const fs::path& name : below) {
            if (name != "." && !name.empty()) {
                system += (system.size() > 3 ? "\\" : "") + utf8Path(name);
            }
        }
        return system;
    }
    return utf8Path(path);
}

std::optional<std::string> Drives::directoryName(std::string_view path) const
{
    std::error_code error;
#if defined(_WIN32)
    if (!mapped()) {
        const auto found = foundOnDisk(hostPath(path));
        const bool directory = found && (found->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        return directory ? std::optional(utf8Path(fs::path(found->cFileName))) : std::nullopt;
    }
#endif
    const fs::path host = toHost(path);
    return fs::is_directory(host, error) ? std::optional(utf8Path(host.filename())) : std::nullopt;
}

std::vector<std::string> Drives::subdirectories(std::string_view path) const
{
    std::error_code error;
    std::vector<std::string> names;
    fs::directory_iterator entry(toHost(path), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        if (entry->is_directory(unreadable)) {
            names.push_back(utf8Path(entry->path().filename()));
        }
    }
    if (error) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    std::ranges::sort(names, {}, [](const std::string& name) { return upperCase(name); });
    return names;
}

std::vector<char> Drives::letters() const
{
    std::vector<char> letters;
#if defined(_WIN32)
    const unsigned long present = mapped() ? 0 : ::GetLogicalDrives();
#endif
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        std::error_code error;
#if defined(_WIN32)
        if (!mapped()) {
            if ((present >> (letter - 'a') & 1U) != 0) {
                letters.push_back(letter);
            }
            continue;
        }
#endif
        if (fs::is_directory(root(letter), error)) {
            letters.push_back(letter);
        }
    }
    return letters;
}

}  // namespace karvel
