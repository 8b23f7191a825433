#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel::testing {

/// A mapped drive C: of its own with an empty installation on it, gone when the test ends.
class TemporaryDrive {
  public:
    TemporaryDrive();
    ~TemporaryDrive();
    TemporaryDrive(const TemporaryDrive&) = delete;
    TemporaryDrive& operator=(const TemporaryDrive&) = delete;

    [[nodiscard]] const FileSystem& files() const { return files_; }
    /// The host's directory of drive C:.
    [[nodiscard]] std::filesystem::path directory() const { return directory_ / "drive_c"; }
    [[nodiscard]] std::filesystem::path host(std::string_view systemPath) const;

    /// Writes `bytes` at `systemPath`, directories included.
    void write(std::string_view systemPath, std::string_view bytes) const;
    /// The bytes at `systemPath`; "(none)" when there is no file.
    [[nodiscard]] std::string read(std::string_view systemPath) const;

    /// The four settings files with their shipped values, and an empty dictionary.
    void writeSettings() const;

  private:
    std::filesystem::path directory_;
    FileSystem files_;
};

/// One record in the four-line form.
[[nodiscard]] std::string record(std::string_view signs, std::string_view translation,
                                 std::string_view transliteration = "", std::string_view note = "");

}  // namespace karvel::testing
