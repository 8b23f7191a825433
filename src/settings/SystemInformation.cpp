#include "settings/SystemInformation.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "text/CodePage.hpp"

namespace karvel {

namespace {

constexpr std::size_t kBuffer = 1024;  // characters

constexpr const char* kProgramKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kProgramValue = "PATH";
constexpr const char* kLocationKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
constexpr const char* kLocationValue = "MSINFO";
constexpr const char* kProgramName = "\\MSINFO32.EXE";

/// From the most significant byte to the least; the registry keeps the least first.
std::string hexadecimal(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "&h";
    for (std::size_t at = bytes.size(); at-- > 0;) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

std::string asText(std::uint32_t type, std::string_view bytes)
{
    if (type == static_cast<std::uint32_t>(Registry::Type::Number)) {
        return hexadecimal(bytes);
    }
    // The program that wrote the value may have left the NUL out.
    if (type == static_cast<std::uint32_t>(Registry::Type::String) && bytes.ends_with('\0')) {
        bytes.remove_suffix(1);
    }
    return decode(bytes);
}

/// The program's path; empty when the registry does not tell.
std::string informationProgram(Registry& registry, Programs& programs)
{
    std::string path;
    if (GetKeyValue(registry, Registry::Root::LocalMachine, kProgramKey, kProgramValue, path)) {
        return path;
    }
    if (GetKeyValue(registry, Registry::Root::LocalMachine, kLocationKey, kLocationValue, path) &&
        programs.exists(path + kProgramName)) {
        return path + kProgramName;
    }
    return {};
}

}  // namespace

bool GetKeyValue(Registry& registry, Registry::Root root, const std::string& key, const std::string& value,
                 std::string& result)
{
    result.clear();
    const auto opened = registry.open(root, key);
    if (!opened) {
        return false;
    }
    std::array<char, kBuffer> buffer{};
    const auto found = registry.query(*opened, value, buffer);
    if (found) {
        result = asText(found->type, {buffer.data(), std::min(found->length, buffer.size())});
    }
    registry.close(*opened);
    return found.has_value();
}

void StartSysInfo(Registry& registry, Programs& programs, UserInterface& ui)
{
    try {
        if (const std::string path = informationProgram(registry, programs); !path.empty()) {
            programs.start(path);
            return;
        }
    } catch (const RuntimeError&) {
        // Said below, like every other reason.
    }
    ui.ask({.title = "Karvel", .text = "Le informazioni sul sistema non sono disponibili in questa fase"});
}

}  // namespace karvel
