#include "settings/SystemInformation.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>

#include "support/ScriptedUi.hpp"

namespace karvel {
namespace {

using namespace std::string_literals;

/// A registry in a table of "KEY|VALUE". Values that do not fit into the buffer are refused, as the real one
/// does.
class TableRegistry : public Registry {
  public:
    std::optional<Key> open(Root /*root*/, const std::string& name) override
    {
        opened.push_back(name);
        return name == "nessuna" ? std::nullopt : std::optional(opened.size() - 1);
    }
    std::optional<Found> query(Key key, const std::string& value, std::span<char> buffer) override
    {
        const auto found = values.find(opened.at(key) + "|" + value);
        if (found == values.end() || found->second.second.size() > buffer.size()) {
            return std::nullopt;
        }
        std::ranges::copy(found->second.second, buffer.begin());
        return Found{found->second.first, found->second.second.size()};
    }
    void close(Key /*key*/) override { ++closed; }

    std::map<std::string, std::pair<std::uint32_t, std::string>> values;
    std::vector<std::string> opened;
    int closed = 0;
};

TEST(GetKeyValue, TurnsEveryTypeIntoText)
{
    const struct {
        std::string key;
        std::uint32_t type;
        std::string bytes;
        bool read;
        std::string result;
    } kCases[] = {
        {"K", 1, "citt\xE0\0"s, true, "città"},
        {"K", 1, "C:\\a.exe", true, "C:\\a.exe"},  // without a NUL
        {"K", 4, "\x0A\x00\x2B\xFF"s, true, "&hFF2B000A"},
        {"K", 3, "ab\0c\0"s, true, "ab\0c\0"s},
        {"K", 1, std::string(1024, 'x'), true, std::string(1024, 'x')},
        {"K", 1, std::string(1025, 'x'), false, ""},
        {"K2", 1, "", false, ""},
        {"nessuna", 1, "", false, ""},
    };
    for (const auto& [key, type, bytes, read, text] : kCases) {
        TableRegistry registry;
        registry.values["K|V"] = {type, bytes};
        std::string result = "old";
        EXPECT_EQ(GetKeyValue(registry, Registry::Root::LocalMachine, key, "V", result), read) << text;
        EXPECT_EQ(result, text);
        EXPECT_EQ(registry.closed, key == "nessuna" ? 0 : 1);
    }
}

class RecordedPrograms : public Programs {
  public:
    bool exists(const std::string& path) override { return path == "C:\\comuni\\MSINFO32.EXE"; }
    void start(const std::string& path) override
    {
        if (path == "guasto.exe") {
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
        started = path;
    }
    std::string started;
};

TEST(StartSysInfo, FindsTheProgramOrSaysThatItIsNotThere)
{
    const struct {
        const char *path, *location, *started;  ///< empty: not in the registry; nothing started
    } kCases[] = {
        {"C:\\info.exe", "C:\\comuni", "C:\\info.exe"},
        {"", "C:\\comuni", "C:\\comuni\\MSINFO32.EXE"},
        {"", "C:\\altro", ""},
        {"", "", ""},
        {"guasto.exe", "C:\\comuni", ""},
    };
    for (const auto& [path, location, started] : kCases) {
        TableRegistry registry;
        if (*path != '\0') {
            registry.values["SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH"] = {1, path};
        }
        if (*location != '\0') {
            registry.values["SOFTWARE\\Microsoft\\Shared Tools Location|MSINFO"] = {1, location};
        }
        RecordedPrograms programs;
        testing::ScriptedUi ui;
        if (*started == '\0') {
            ui.expect({.title = "Karvel",
                       .text = "Le informazioni sul sistema non sono disponibili in questa fase"});
        }
        StartSysInfo(registry, programs, ui);
        EXPECT_EQ(programs.started, started);
    }
}

}  // namespace
}  // namespace karvel
