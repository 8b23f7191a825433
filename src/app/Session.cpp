#include "app/Session.hpp"

#include <algorithm>
#include <utility>

namespace karvel {

Session::Session(FileSystem files, Pictures& pictures, UserInterface& ui, WindowOpener& windows)
    : files_(std::move(files)),
      pictures_(pictures),
      ui_(ui),
      windows_(windows),
      display_(files_, pictures_, ui_, images_, modeSwitch_),
      insertion_(display_, finder_),
      palette_(pictures_, ui_, images_, modeSwitch_, display_, insertion_),
      favourites_(files_, ui_, images_, display_, palette_, insertion_, FavouritePage),
      directoryChooser_(files_, ui_, images_, palette_, display_)
{
}

void Session::showPicture(const std::string& name)
{
    const bool absolute = name.starts_with('/') || (name.size() > 2 && name[1] == ':');
    for (const std::string& path : {absolute ? name : std::string(), installed(name)}) {
        if (!path.empty() && pictures_.canLoad(path)) {
            windows_.openPicture(path, name);
            return;
        }
    }
    windows_.openPicture({}, name);
}

void Session::search()
{
    windows_.raiseMagnifier();
    if (display_.DisplayCodes().empty()) {
        windows_.openItalian();
        return;
    }
    // A copy: the phrase stays what was searched for while a box is open.
    const std::string phrase = display_.DisplayCodes();
    rememberPhrase();
    if (modes_.is(Mode::Split)) {
        WordSplitter(files_, ui_, *this, last_, translatedWords_).run(phrase);
        return;
    }
    TranslationLookup(files_, ui_, *this, last_).run(modes_.mode(), phrase);
}

void Session::rememberPhrase()
{
    history_.rememberPhrase(static_cast<std::uint8_t>(modes_.mode()), display_.DisplayCodes());
}

void Session::bringBack(const std::string& codes)
{
    display_.bringBack(codes);
    const auto pieces = splitCodes(codes);
    if (std::ranges::find(pieces, kMissingSign) != pieces.end() && !modes_.is(Mode::MissingSign)) {
        modes_.activateMissingSign();
    }
}

void Session::bringBackOrBeep(const std::optional<std::string>& codes)
{
    if (codes) {
        bringBack(*codes);
    } else {
        ui_.beep();
    }
}

void Session::earlierPhrase()
{
    bringBackOrBeep(history_.earlier(display_.DisplayCodes()));
}

void Session::laterPhrase()
{
    bringBackOrBeep(history_.later(display_.DisplayCodes()));
}

void Session::clearHistory()
{
    if (ui_.ask({.title = "Cronologia",
                 .text = "Cancellare tutte le ricerche della cronologia ?",
                 .icon = Icon::Question,
                 .buttons = Buttons::YesNo,
                 .defaultButton = Button::No}) == Button::Yes) {
        history_.clear();
    }
}

}  // namespace karvel
