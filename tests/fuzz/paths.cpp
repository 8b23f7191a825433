// The system's paths on a mapped drive: nothing leads out of it, letter case and blanks do not matter, and
// what is shown to the user leads back.

#include <algorithm>

#include "Drive.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::require;

namespace fs = std::filesystem;

namespace {

constexpr const char* kTree[] = {"Uno",    "UNO",      "due", "due/Tre", "due/TRE",
                                 "PERCHÉ", "perché/x", "a b", "..c"};

/// Name by name, with a plain list of each directory.
fs::path lookedUp(const fs::path& above, std::string_view path)
{
    const char letter = static_cast<char>(path[0] | 0x20);
    std::vector<std::string> names;
    std::string name;
    for (const char c : std::string(path.substr(2)) + "\\") {
        if (c != '\\' && c != '/') {
            name += c;
            continue;
        }
        name.resize(name.find_last_not_of(' ') + 1);
        if (name == "..") {
            names.resize(names.size() - (names.empty() ? 0 : 1));
        } else if (!name.empty() && name != ".") {
            names.push_back(name);
        }
        name.clear();
    }
    fs::path host = above / (std::string("drive_") + letter);
    for (const std::string& wanted : names) {
        std::vector<std::string> fitting;
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(host, error)) {
            const std::string each = utf8Path(entry.path().filename());
            if (each == wanted) {
                fitting = {each};
                break;
            }
            if (upperCase(each) == upperCase(wanted)) {
                fitting.push_back(each);
            }
        }
        host /= hostPath(fitting.empty() ? wanted : *std::ranges::min_element(fitting));
    }
    return host;
}

bool climbs(const fs::path& below)
{
    return std::ranges::any_of(below, [](const fs::path& name) { return name == ".." || name == "."; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::Drive drive;
    static const bool made = [] {
        for (const char* const directory : kTree) {
            fs::create_directories(drive.above / "drive_c" / hostPath(directory));
            fs::create_directories(drive.above / "drive_d" / hostPath(directory));
        }
        return true;
    }();
    (void)made;
    const std::string_view path = fuzz::Input(data, size).rest();
    const Drives& drives = drive.files.drives();
    fs::path host;
    if (fuzz::errorOf([&] { host = drives.toHost(path); }) != 0) {
        require(path.empty() || path.find('\0') != std::string_view::npos,
                "only an impossible name is refused");
        return 0;
    }
    const bool letter =
        path.size() >= 2 && path[1] == ':' && ((path[0] | 0x20) >= 'a' && (path[0] | 0x20) <= 'z');
    if (!letter) {
        require(utf8Path(host) == path, "the host's own paths stay as they are");
        (void)drives.toSystem(host);
        return 0;
    }
    require(host == lookedUp(drive.above, path), "a path leads to where its names lead");
    const fs::path below = host.lexically_relative(drive.above);
    require(!climbs(below) && below.begin()->native().starts_with("drive_"), "and never out of its drive");
    const std::string shown = drives.toSystem(host);
    require(shown.substr(1, 2) == ":\\" && shown.find('/') == std::string::npos,
            "it is shown in the system's form");
    require(drives.toHost(shown) == host, "and what is shown leads back");
    (void)drives.directoryName(path);
    (void)drive.files.exists(path);
    return 0;
}
