#include "files/Leftovers.hpp"

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "files/HostFile.hpp"

namespace karvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMark = ".~";

/// Whether `name` is one that besidePath made for a program which is no longer running.
bool isLeftover(std::string_view name)
{
    const std::size_t mark = name.rfind(kMark);
    if (mark == std::string_view::npos || mark == 0) {
        return false;
    }
    const std::string_view number = name.substr(mark + kMark.size());
    unsigned long process = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), process);
    // Any other spelling, as with a zero in front, is not ours.
    return error == std::errc() && std::to_string(process) == number && !isRunning(process);
}

}  // namespace

fs::path besidePath(const fs::path& target)
{
    fs::path beside = target;
    beside += std::string(kMark) + std::to_string(processNumber());
    return beside;
}

void removeLeftoversIn(const fs::path& directory)
{
    std::vector<fs::path> leftovers;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unknown;
        if (isLeftover(utf8Path(entry->path().filename())) &&
            fs::is_regular_file(entry->symlink_status(unknown))) {
            leftovers.push_back(entry->path());
        }
    }
    for (const fs::path& leftover : leftovers) {
        fs::remove(leftover, error);
    }
}

void removeLeftovers(const FileSystem& files)
{
    for (const std::string_view below : {"", "edizione", "settaggi", "prefe", "GeroLink"}) {
        try {
            removeLeftoversIn(files.drives().toHost(installed(below)));
        } catch (const RuntimeError&) {
            continue;  // not in this drive: what needs a file of it reports that
        }
    }
}

}  // namespace karvel
