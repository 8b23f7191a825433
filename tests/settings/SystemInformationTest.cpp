#include "settings/SystemInformation.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "support/ScriptedUi.hpp"

namespace karvel {
namespace {

using testing::ScriptedUi;
using namespace std::string_literals;

constexpr const char* kProgram = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kLocation = "SOFTWARE\\Microsoft\\Shared Tools Location";

struct Value {
    std::uint32_t type;
    std::string bytes;
};

/// A registry in a table. Values that do not fit into the buffer are refused, as the real one does.
class TableRegistry : public Registry {
  public:
    std::optional<Key> open(Root /*root*/, const std::string& name) override
    {
        if (!keys.contains(name)) {
            return std::nullopt;
        }
        opened.push_back(name);
        ++openKeys;
        return opened.size() - 1;
    }
    std::optional<Found> query(Key key, const std::string& value, std::span<char> buffer) override
    {
        const auto& values = keys.at(opened.at(key));
        const auto found = values.find(value);
        if (found == values.end() || found->second.bytes.size() > buffer.size()) {
            return std::nullopt;
        }
        std::ranges::copy(found->second.bytes, buffer.begin());
        return Found{found->second.type, found->second.bytes.size()};
    }
    void close(Key /*key*/) override { --openKeys; }

    std::map<std::string, std::map<std::string, Value>> keys;
    std::vector<std::string> opened;
    int openKeys = 0;
};

class RecordedPrograms : public Programs {
  public:
    bool exists(const std::string& path) override { return path == existing; }
    void start(const std::string& path) override
    {
        if (path == broken) {
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
        started.push_back(path);
    }

    std::string existing;
    std::string broken = "guasto.exe";
    std::vector<std::string> started;
};

struct TextCase {
    const char* what;
    Value value;
    bool read;
    std::string result;
};

TEST(GetKeyValue, TurnsEveryTypeIntoText)
{
    for (const TextCase& c : {
             TextCase{"text with its NUL", {1, "C:\\a.exe\0"s}, true, "C:\\a.exe"},
             TextCase{"text without NUL", {1, "C:\\a.exe"}, true, "C:\\a.exe"},
             TextCase{"accents in the code page", {1, "citt\xE0\0"s}, true, "città"},
             TextCase{"just the NUL", {1, "\0"s}, true, ""},
             TextCase{"number, least byte first", {4, "\x0A\x00\x2B\xFF"s}, true, "&hFF2B000A"},
             TextCase{"another type is taken raw", {3, "ab\0c\0"s}, true, "ab\0c\0"s},
             TextCase{"as long as the buffer", {1, std::string(1024, 'x')}, true, std::string(1024, 'x')},
             TextCase{"longer than the buffer", {1, std::string(1025, 'x')}, false, ""},
         }) {
        TableRegistry registry;
        registry.keys["K"]["V"] = c.value;
        std::string result = "old";
        EXPECT_EQ(GetKeyValue(registry, Registry::Root::LocalMachine, "K", "V", result), c.read) << c.what;
        EXPECT_EQ(result, c.result) << c.what;
        EXPECT_EQ(registry.openKeys, 0) << c.what;
    }
}

TEST(GetKeyValue, EmptiesTheResultWhenSomethingIsMissing)
{
    TableRegistry registry;
    registry.keys["K"];
    for (const char* const key : {"K", "nessuna"}) {
        std::string result = "old";
        EXPECT_FALSE(GetKeyValue(registry, Registry::Root::LocalMachine, key, "V", result));
        EXPECT_EQ(result, "");
        EXPECT_EQ(registry.openKeys, 0);
    }
}

struct StartCase {
    const char* what;
    std::optional<std::string> path;
    std::optional<std::string> location;
    std::string existing;
    std::string started;  ///< empty: the message instead
};

TEST(StartSysInfo, FindsTheProgramOrSaysThatItIsNotThere)
{
    const std::string below = "C:\\comuni\\MSINFO32.EXE";
    for (const StartCase& c : {
             StartCase{"by its path", "C:\\info.exe", "C:\\comuni", below, "C:\\info.exe"},
             StartCase{"by its directory", std::nullopt, "C:\\comuni", below, below},
             StartCase{"not in that directory", std::nullopt, "C:\\comuni", "C:\\altro\\MSINFO32.EXE", ""},
             StartCase{"known nowhere", std::nullopt, std::nullopt, below, ""},
             StartCase{"does not start", "guasto.exe", "C:\\comuni", below, ""},
             StartCase{"an empty path is no way to the directory", "", "C:\\comuni", below, ""},
         }) {
        TableRegistry registry;
        if (c.path) {
            registry.keys[kProgram]["PATH"] = {1, *c.path + '\0'};
        }
        if (c.location) {
            registry.keys[kLocation]["MSINFO"] = {1, *c.location + '\0'};
        }
        RecordedPrograms programs;
        programs.existing = c.existing;
        ScriptedUi ui;
        if (c.started.empty()) {
            ui.expect({.title = "Karvel",
                       .text = "Le informazioni sul sistema non sono disponibili in questa fase"});
        }
        StartSysInfo(registry, programs, ui);
        const auto expected = c.started.empty() ? std::vector<std::string>{} : std::vector{c.started};
        EXPECT_EQ(programs.started, expected) << c.what;
    }
}

}  // namespace
}  // namespace karvel
