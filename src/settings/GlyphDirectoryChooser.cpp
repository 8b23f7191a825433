#include "settings/GlyphDirectoryChooser.hpp"

#include <utility>

#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

constexpr std::string_view kSystemDirectory = "C:\\Programmi\\Karvel\\";

bool isDiskette(std::string_view drive)
{
    return drive == "a:" || drive == "b:";
}

bool isDisc(std::string_view drive)
{
    return drive == GlyphDirectoryChooser::kDisc || drive == "d:";
}

}  // namespace

GlyphDirectoryChooser::GlyphDirectoryChooser(const FileSystem& files, UserInterface& ui, SignImages& images,
                                             Palette& palette, DisplayLine& display)
    : files_(files),
      ui_(ui),
      images_(images),
      palette_(palette),
      display_(display),
      candidate_(images.savedGlyphDirectory()),
      directory_(kSystemDirectory)
{
}

std::vector<std::string> GlyphDirectoryChooser::drives() const
{
    std::vector<std::string> entries;
    for (const char letter : files_.drives().letters()) {
        const std::string name = {letter, ':'};
        if (isDiskette(name)) {
            entries.push_back(name);
        } else {
            entries.push_back(letter == 'c' ? std::string(kSystemDrive) : name + "\\");
        }
    }
    return entries;
}

void GlyphDirectoryChooser::open()
{
    stopReading();
    drive_ = kSystemDrive;
    directory_ = kSystemDirectory;
    directoryEnabled_ = false;
}

void GlyphDirectoryChooser::driveChanged(std::string_view drive)
{
    stopReading();
    driveBefore_ = std::exchange(drive_, drive);
    candidateBefore_ = candidate_;
    if (isDiskette(drive)) {
        ui_.ask({.title = "Messaggio",
                 .text = "E' possibile leggere i geroglifici solo da Hard disk e lettore CD",
                 .icon = Icon::Critical});
        drive_ = kSystemDrive;  // what the drive list shows for "C:"
    }
    candidate_ = drive_;
    if (isDisc(candidate_)) {
        readingDisc_ = true;
        return;
    }
    if (candidate_ == "C:\\" || candidate_ == "C:") {
        candidate_ = "C:\\Karvel\\";
    } else if (candidate_ == kSystemDrive) {
        candidate_ = kSystemDirectory;
        directory_ = kSystemDirectory;
    } else if (candidate_.ends_with(":\\")) {
        directory_ = candidate_;  // any other drive: its directories can be chosen as well
    }
    appendGr();
}

void GlyphDirectoryChooser::discRead(bool readable)
{
    readingDisc_ = false;
    if (readable) {
        directory_ = kDisc;
        candidate_ = "d:\\Karvel\\";
    } else {
        ui_.ask({.title = "Messaggio",
                 .text = "Attenzione: manca il cd nel lettore\ninserirlo e ricomporre il percorso",
                 .icon = Icon::Critical});
    }
    appendGr();
}

void GlyphDirectoryChooser::stopReading()
{
    if (readingDisc_) {
        readingDisc_ = false;
        drive_ = driveBefore_;
        candidate_ = candidateBefore_;
    }
}

void GlyphDirectoryChooser::appendGr()
{
    if (!candidate_.ends_with("\\GR")) {
        candidate_ += "GR";
    }
}

void GlyphDirectoryChooser::directoryChanged(std::string_view path)
{
    stopReading();
    directory_ = path;
    candidate_ = path;
    if (!candidate_.ends_with('\\')) {
        candidate_ += "\\GR";
    }
    appendGr();
}

void GlyphDirectoryChooser::editPath()
{
    directory_ = candidate_;
    directoryEnabled_ = true;
}

bool GlyphDirectoryChooser::refuseUnwritable()
{
    std::string characters = unencodable(candidate_);
    if (candidate_.find_first_of("\r\n") != std::string::npos) {
        characters += " (fine riga)";
    }
    if (needsQuotes(candidate_) && candidate_.find('"') != std::string::npos) {
        characters += "\"";
    }
    if (characters.empty()) {
        return false;
    }
    ui_.ask({.title = "ATTENZIONE",
             .text = "Il nome di questa directory non può essere scritto nelle impostazioni.\n\n"
                     "Caratteri non ammessi: " +
                     characters,
             .icon = Icon::Critical});
    return true;
}

bool GlyphDirectoryChooser::confirm()
{
    if (refuseUnwritable()) {
        return false;
    }
    images_.setGlyphDirectory(candidate_);
    files_.replace(kGlyphDirectoryPath, readableLine(candidate_));
    palette_.loadPage();
    display_.reload();
    return true;
}

}  // namespace karvel
