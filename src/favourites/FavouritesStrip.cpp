#include "favourites/FavouritesStrip.hpp"

#include <algorithm>

#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

constexpr std::string_view kMark = "Canc ?";
constexpr int kFirstPage = 1;
constexpr int kLastPage = 99;

std::string pageFile(std::string_view name)
{
    return std::string(kPageDirectory) + std::string(name) + ".prf";
}

/// Characters `first` to `first` + 2 of `path`, counted from 0. The phrase holds three characters a sign, so
/// one that is no plain text is replaced; so is a quote, which no file could give back.
std::string threeCharacters(std::string_view path, std::size_t first)
{
    std::string found;
    for (std::size_t at = 0, number = 0; at < path.size() && number < first + kCodeLength; ++number) {
        const char32_t character = nextCharacter(path, at);
        if (number >= first) {
            found += character >= U' ' && character < 0x7F && character != U'"' ? static_cast<char>(character)
                                                                                : '?';
        }
    }
    return found;
}

}  // namespace

FavouritesStrip::FavouritesStrip(const FileSystem& files, UserInterface& ui, const SignImages& images,
                                 DisplayLine& display, Palette& palette, Insertion& insertion,
                                 std::int16_t& page)
    : files_(files),
      ui_(ui),
      images_(images),
      display_(display),
      palette_(palette),
      insertion_(insertion),
      page_(page)
{
}

bool FavouritesStrip::empty() const
{
    return std::all_of(favourites_.begin(), favourites_.begin() + kButtons,
                       [](const std::string& slot) { return slot.empty(); });
}

void FavouritesStrip::insertCurrent()
{
    const std::string& sign = palette_.CurrentSignCode();
    if (sign == kMissingSign) {
        ui_.ask({.title = "Messaggio di sistema",
                 .text = "Non è possibile inserire questo carattere nei preferiti",
                 .icon = Icon::Critical});
        return;
    }
    if (sign.empty()) {
        ui_.ask({.title = "Sistema:",
                 .text = "Selezionare con il mouse il geroglifico da inserire nei preferiti e poi premere F4",
                 .icon = Icon::Critical});
        return;
    }
    // Kept: always the first place, which is a scratch place by intent; whole strips come from page files.
    favourites_[0] = images_.path(sign);
    buttons_[0].picture = favourites_[0];
    // The sign was pressed to be chosen, not to be written: it leaves the phrase again.
    display_.dropLastCode();
    display_.clearPictures(0, 0);
    for (Key& button : buttons_) {
        button.visible = !button.picture.empty();
    }
    palette_.setCurrentSignCode({});
    writeStripFile();
}

std::string FavouritesStrip::signOf(std::size_t index) const
{
    // Kept: a fixed place, the one that the code has below the installation's own sign directory.
    constexpr std::size_t kPlace = 23;
    return threeCharacters(favourites_[index], kPlace);
}

void FavouritesStrip::press(std::size_t index)
{
    if (display_.refuseAtLimit()) {
        return;
    }
    lastPressed_ = static_cast<std::uint8_t>(index);
    display_.restartIfBlank();
    const std::string sign = signOf(index);
    display_.saveUndoState(display_.InsertPosition());
    palette_.setCurrentSignCode(sign);
    insertion_(sign, display_.InsertPosition());
}

void FavouritesStrip::openPanel()
{
    selected_ = 0;
    buttons_[0].caption = kMark;
    panelVisible_ = true;
}

void FavouritesStrip::markRight()
{
    const auto marked = static_cast<std::size_t>(selected_);
    buttons_[marked].caption.clear();
    if (marked + 1 < kButtons && buttons_[marked + 1].visible) {
        ++selected_;
    }
    buttons_[static_cast<std::size_t>(selected_)].caption = kMark;
}

void FavouritesStrip::markLeft()
{
    buttons_[static_cast<std::size_t>(selected_)].caption.clear();
    if (selected_ != 0) {
        --selected_;
    }
    buttons_[static_cast<std::size_t>(selected_)].caption = kMark;
}

void FavouritesStrip::deleteMarked()
{
    const auto first = static_cast<std::size_t>(selected_);
    count_ = static_cast<std::int16_t>(count_ - 1);
    for (std::size_t i = first; i < kButtons; ++i) {
        favourites_[i] = favourites_[i + 1];
    }
    for (std::size_t i = first; i < kButtons; ++i) {
        buttons_[i].picture = favourites_[i];
        if (!favourites_[i].empty()) {
            continue;
        }
        buttons_[i].visible = false;
        // Kept: the mark goes back once for every empty place, and its caption stays where it was, so that
        // the next deletion usually begins at the first favourite.
        if (selected_ > 0) {
            --selected_;
        }
        if (selected_ + 1 == count_) {
            buttons_[static_cast<std::size_t>(selected_)].caption = kMark;
        }
    }
    writeStripFile();
}

void FavouritesStrip::closePanel()
{
    for (Key& button : buttons_) {
        button.caption.clear();
    }
    panelVisible_ = false;
}

void FavouritesStrip::deleteAll()
{
    for (std::size_t i = 0; i < kButtons; ++i) {
        buttons_[i].picture.clear();
        buttons_[i].visible = false;
        favourites_[i].clear();
    }
    count_ = 0;
    writeStripFile();
}

void FavouritesStrip::hide()
{
    for (Key& button : buttons_) {
        button.visible = false;
    }
}

void FavouritesStrip::hideForFacilitated()
{
    hide();
    for (Key& button : buttons_) {
        button.picture.clear();
    }
    count_ = 0;
}

void FavouritesStrip::showButton(std::size_t index)
{
    buttons_[index].picture = favourites_[index];
    buttons_[index].visible = !favourites_[index].empty();
}

void FavouritesStrip::showStrip()
{
    for (std::size_t i = 0; i < kButtons; ++i) {
        showButton(i);
    }
}

/// Slots 0 to 7 from the file at `path`, all or none.
void FavouritesStrip::readWhole(std::string_view path)
{
    const auto source = files_.open(path);
    FieldReader fields(*source);
    std::array<std::string, kButtons> read;
    for (std::string& slot : read) {
        slot = decode(fields.field());
    }
    std::ranges::copy(read, favourites_.begin());
    showStrip();
}

void FavouritesStrip::showFirstPage()
{
    readWhole(pageFile("pre1"));
}

void FavouritesStrip::previousPage()
{
    turnTo(page_ > kFirstPage ? page_ - 1 : page_);
}

void FavouritesStrip::nextPage()
{
    turnTo(page_ < kLastPage ? page_ + 1 : page_);
}

/// Kept: a page without a file shows its name over the favourites of the page before, so that a strip can be
/// carried over and saved under the new name.
void FavouritesStrip::turnTo(int page)
{
    page_ = static_cast<std::int16_t>(page);
    pageName_ = "pre" + std::to_string(page);
    try {
        const auto source = files_.open(pageFile(pageName_));
        FieldReader fields(*source);
        for (std::size_t i = 0; i < kButtons; ++i) {
            favourites_[i] = decode(fields.field());
        }
    } catch (const RuntimeError&) {
        // The slots read so far are the page's, the others stay.
    }
    showStrip();
}

void FavouritesStrip::save(std::string_view chosen) const
{
    if (!chosen.empty()) {
        std::string text;
        for (const std::string& slot : favourites_) {
            text += readableLine(slot);
        }
        // Kept: the ending is added to every name, also to one that has it already.
        files_.replace(std::string(chosen) + ".prf", text);
    }
}

void FavouritesStrip::load(std::string_view chosen)
{
    if (chosen.ends_with("prf")) {
        readWhole(chosen);
    }
}

/// A record for the user, which nothing reads back: a failure is none of his business here.
void FavouritesStrip::writeStripFile() const
{
    std::string text;
    for (std::size_t i = 0; i < kButtons; ++i) {
        text += fieldLine(favourites_[i]);
    }
    try {
        files_.replace(kStripPath, text, Durability::Process);
    } catch (const RuntimeError&) {
        return;
    }
}

}  // namespace karvel
