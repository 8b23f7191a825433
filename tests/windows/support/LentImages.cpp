#include "windows/support/LentImages.hpp"

#include <algorithm>

namespace karvel::testing {

namespace fs = std::filesystem;

namespace {

fs::path imagesOn(const TemporaryDrive& drive)
{
    return drive.directory() / "programmi" / "Karvel" / "GR";
}

/// Where the images lie while no test has them, gone with the program.
fs::path store()
{
    static const TemporaryDrive drive;
    return imagesOn(drive);
}

/// True when `directory` holds the files that ship and no others, as long as they are there.
bool asTheyShip(const fs::path& directory)
{
    const fs::path shipped = fs::path(KARVEL_SOURCE_DIR) / "data" / "tree" / "GR";
    const auto count = [](const fs::path& files) {
        return std::distance(fs::directory_iterator(files), fs::directory_iterator());
    };
    return count(directory) == count(shipped) &&
           std::all_of(fs::directory_iterator(shipped), fs::directory_iterator(), [&](const auto& file) {
               std::error_code missing;
               return fs::file_size(directory / file.path().filename(), missing) == file.file_size();
           });
}

}  // namespace

LentImages::LentImages(const TemporaryDrive& drive) : drive_(drive)
{
    if (fs::exists(store())) {
        fs::rename(store(), imagesOn(drive_));
    }
}

LentImages::~LentImages()
{
    try {
        if (!fs::exists(store()) && asTheyShip(imagesOn(drive_))) {
            fs::rename(imagesOn(drive_), store());
        }
    } catch (const fs::filesystem_error&) {
        // Moved away or still open: they go with the drive.
    }
}

}  // namespace karvel::testing
