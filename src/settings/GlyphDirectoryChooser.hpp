#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"
#include "compose/SignImages.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// What the window "Sistema" proposes as the directory of the signs, and takes over on confirmation.
///
/// The user points at the directory that contains GR, and the window adds GR. Kept: pointing at a directory
/// GR itself proposes a GR inside it, so that what is pointed at is always the place of a whole set of signs.
class GlyphDirectoryChooser {
  public:
    /// The entry of the system drive in the drive list.
    static constexpr std::string_view kSystemDrive = "C: [HARDDISK]";

    /// The root of the drive that may be without a disc.
    static constexpr std::string_view kDisc = "d:\\";

    /// All must outlive the chooser.
    GlyphDirectoryChooser(const FileSystem& files, UserInterface& ui, SignImages& images, Palette& palette,
                          DisplayLine& display);

    /// The directory that would be taken; kept from one opening of the window to the next.
    [[nodiscard]] const std::string& DirectoryCandidate() const { return candidate_; }

    /// The entries of the drive list: diskettes as "a:", the system drive by its name, the others as "d:\".
    [[nodiscard]] std::vector<std::string> drives() const;
    /// The entry that the drive list shows.
    [[nodiscard]] const std::string& drive() const { return drive_; }
    /// Where the directory list stands.
    [[nodiscard]] const std::string& directory() const { return directory_; }
    [[nodiscard]] bool directoryEnabled() const { return directoryEnabled_; }

    /// The window was opened.
    void open();

    /// `drive`, an entry of the drive list, was chosen. The comparisons are exact, letter case included.
    /// Drive d: has to be read first, because it may be without a disc: `readingDisc` is then true, the
    /// candidate is the bare drive, and `discRead` or `stopReading` completes it.
    void driveChanged(std::string_view drive);

    /// Whether kDisc is being read; until that ends, the candidate must not be taken over or edited.
    [[nodiscard]] bool readingDisc() const { return readingDisc_; }

    /// kDisc was read; `readable` is false when there is no disc, and the user is told.
    void discRead(bool readable);

    /// The reading of kDisc was given up: the drive and the candidate chosen before are in force again.
    void stopReading();

    /// The directory list was moved to `path`.
    void directoryChanged(std::string_view path);

    /// "Modifica percorso": lets the directory list start from the candidate.
    void editPath();

    /// "Conferma": takes the candidate over, saves it and shows palette and display with the signs that are
    /// there. False, after a message, when the settings file cannot hold its name; nothing has changed then.
    /// Throws RuntimeError when the file cannot be written; the directory is then in force for this run.
    bool confirm();

  private:
    void appendGr();
    bool refuseUnwritable();

    const FileSystem& files_;
    UserInterface& ui_;
    SignImages& images_;
    Palette& palette_;
    DisplayLine& display_;

    std::string candidate_;
    std::string drive_{kSystemDrive};
    std::string directory_;
    bool directoryEnabled_ = false;
    bool readingDisc_ = false;
    std::string driveBefore_;      ///< while kDisc is read
    std::string candidateBefore_;  ///< the same
};

}  // namespace karvel
