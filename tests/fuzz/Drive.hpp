#pragma once

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "Target.hpp"
#include "app/WindowOpener.hpp"
#include "base/Pictures.hpp"
#include "base/UserInterface.hpp"
#include "files/FileSystem.hpp"
#include "support/FieldModel.hpp"

namespace karvel::fuzz {

/// An installation of its own, in memory where the system has such a place, gone when the program ends.
class Drive {
  public:
    Drive() : Drive(place()) {}
    ~Drive()
    {
        std::error_code ignored;
        std::filesystem::remove_all(above, ignored);
    }
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;

    /// Makes `bytes` the content of `path`, below the installation.
    void put(const std::string& path, std::string_view bytes) const
    {
        std::ofstream(root / path, std::ios::binary | std::ios::trunc) << bytes;
    }

    [[nodiscard]] std::string get(const std::string& path) const
    {
        std::ifstream file(root / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void drop(const std::string& path) const { ::unlink((root / path).c_str()); }

    const std::filesystem::path above;
    const std::filesystem::path root;
    const FileSystem files;

  private:
    static std::filesystem::path place()
    {
        const bool memory = std::getenv("TMPDIR") == nullptr && std::filesystem::is_directory("/dev/shm");
        return memory ? "/dev/shm" : std::filesystem::temp_directory_path();
    }

    explicit Drive(const std::filesystem::path& place)
        : above(place / ("karvel-fuzz-" + std::to_string(::getpid()))),
          root(above / "drive_c" / "programmi" / "Karvel"),
          files(Drives(above / "drive_c"))
    {
        std::filesystem::remove_all(above);
        for (const char* const directory : {"settaggi", "prefe", "GeroLink", "GR"}) {
            std::filesystem::create_directories(root / directory);
        }
    }
};

/// Answers every box in the way of whoever wants to go on, and keeps nothing.
class Quiet : public UserInterface, public Pictures, public WindowOpener {
  public:
    Button ask(const MessageBox& box) override
    {
        require(!box.text.empty(), "a box says something");
        return box.buttons == Buttons::YesNo ? Button::Yes : Button::Ok;
    }
    std::optional<std::string> input(const std::string&, const std::string&) override { return std::nullopt; }
    void beep() override {}
    void setBusy(bool) override {}
    bool continueReading(std::uint64_t, std::uint64_t) override { return true; }
    bool canLoad(const std::string& path) override { return path.size() % 7 != 0; }
    void openItalian() override {}
    void openPicture(const std::string&, const std::string&) override {}
    void raiseMagnifier() override {}
};

/// The number of the RuntimeError that `work` throws, 0 when it throws none.
template <typename Work>
int errorOf(const Work& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.value();
    }
    return 0;
}

/// What a field holds as a number, rounded; 0 where it is none.
inline double numberIn(const std::string& field)
{
    if (field.find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return 0;
    }
    char* end = nullptr;
    const double value = std::strtod(field.c_str(), &end);
    return *end != '\0' ? 0 : std::nearbyint(value);
}

/// What reading a number between `lowest` and `highest` must give, or the number of the error.
struct ExpectedNumber {
    int error = 0;
    double value = 0;
};

inline ExpectedNumber expectedNumber(testing::FieldModel& model, double lowest, double highest)
{
    const auto field = model.field();
    if (!field) {
        return {.error = 62};
    }
    const double value = numberIn(*field);
    return value < lowest || value > highest ? ExpectedNumber{.error = 6} : ExpectedNumber{.value = value};
}

}  // namespace karvel::fuzz
