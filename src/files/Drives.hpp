#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

/// The directory of everything that the program reads and writes.
inline constexpr std::string_view kInstallRoot = "C:\\programmi\\Karvel\\";

/// A path below the installation root, in the system's own form.
[[nodiscard]] inline std::string installed(std::string_view below)
{
    return std::string(kInstallRoot) + std::string(below);
}

/// A host path from UTF-8, and back.
[[nodiscard]] std::filesystem::path hostPath(std::string_view utf8);
[[nodiscard]] std::string utf8Path(const std::filesystem::path& path);

/// Maps the system's own paths (C:\programmi\Karvel\..., any letter case) to the host's.
///
/// On a mapped drive, drive C: is a directory, and another drive X: is the directory drive_x beside it.
/// Names are matched without regard to case, trailing blanks of a name are dropped, and ".." stops at the
/// drive's root. So does a symbolic link: a tree that comes from someone else cannot lead to other files of
/// the user. The root itself may be a link. Without a mapping, on Windows, paths are the host's own.
class Drives {
  public:
    /// The identity; only where the host has drives of its own.
    Drives() = default;

    /// Drive C: is `driveC`, a host directory that need not exist yet.
    explicit Drives(std::filesystem::path driveC);

    /// The drives of this user: KARVEL_DRIVE_C where it is set; else the host's own drives on Windows, and
    /// $XDG_DATA_HOME/karvel/drive_c elsewhere.
    [[nodiscard]] static Drives ofUser();

    [[nodiscard]] bool mapped() const { return !driveC_.empty(); }

    /// The host's path for `path`, UTF-8. What does not exist keeps the spelling given, so that it can be
    /// created. A path without a drive letter is taken as the host's. Throws RuntimeError 52 for a name that
    /// no file can have, 75 for one that a symbolic link leads out of its drive, or to nothing.
    [[nodiscard]] std::filesystem::path toHost(std::string_view path) const;

    /// The system's form of a host path; the host path itself where it lies on no mapped drive.
    [[nodiscard]] std::string toSystem(const std::filesystem::path& path) const;

    /// The bare name, as it is spelled on the disk, of the directory at `path`; nothing when there is none.
    /// Throws as `toHost`.
    [[nodiscard]] std::optional<std::string> directoryName(std::string_view path) const;

    /// The names of the directories in `path`, sorted without regard to case.
    /// Throws RuntimeError 76 when it cannot be listed, else as `toHost`.
    [[nodiscard]] std::vector<std::string> subdirectories(std::string_view path) const;

    /// The lower-case letters of the drives that exist, in order.
    [[nodiscard]] std::vector<char> letters() const;

  private:
    [[nodiscard]] std::filesystem::path root(char letter) const;

    std::filesystem::path driveC_;
};

}  // namespace karvel
