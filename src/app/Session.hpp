#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/Arrangement.hpp"
#include "app/Choices.hpp"
#include "app/ModeSwitch.hpp"
#include "app/WindowOpener.hpp"
#include "base/Pictures.hpp"
#include "base/UserInterface.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"
#include "compose/SignImages.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/SearchModes.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "dictionary/WordSplitter.hpp"
#include "favourites/FavouritesStrip.hpp"
#include "files/FileSystem.hpp"
#include "settings/Colours.hpp"
#include "settings/GlyphDirectoryChooser.hpp"
#include "words/DictionaryInsertion.hpp"
#include "words/ItalianSearch.hpp"

namespace karvel {

/// Owns every piece of state that the windows share, and connects the pieces.
class Session : private SplittingView {
  public:
    /// All four must outlive the session.
    Session(FileSystem files, Pictures& pictures, UserInterface& ui, WindowOpener& windows);

    [[nodiscard]] const FileSystem& files() const { return files_; }
    [[nodiscard]] Pictures& pictures() { return pictures_; }
    [[nodiscard]] UserInterface& ui() { return ui_; }
    [[nodiscard]] WindowOpener& windows() { return windows_; }

    [[nodiscard]] SearchModes& modes() { return modes_; }
    [[nodiscard]] SignImages& images() { return images_; }
    [[nodiscard]] DisplayLine& display() { return display_; }
    [[nodiscard]] Palette& palette() { return palette_; }
    [[nodiscard]] Insertion& insertion() { return insertion_; }
    [[nodiscard]] const SignFinder& finder() const { return finder_; }
    [[nodiscard]] FavouritesStrip& favourites() { return favourites_; }
    [[nodiscard]] Colours& colours() { return colours_; }
    [[nodiscard]] GlyphDirectoryChooser& directoryChooser() { return directoryChooser_; }
    [[nodiscard]] LastResult& last() { return last_; }
    [[nodiscard]] ResultView& resultView() { return *this; }
    [[nodiscard]] TranslatedWords& translatedWords() { return translatedWords_; }
    [[nodiscard]] DictionaryInsertion& dictionaryInsertion() { return dictionaryInsertion_; }
    [[nodiscard]] ItalianSearch& italianSearch() { return italianSearch_; }
    [[nodiscard]] Choices& choices() { return choices_; }
    [[nodiscard]] Arrangement& arrangement() { return arrangement_; }
    [[nodiscard]] const Arrangement& arrangement() const { return arrangement_; }

    /// The number of the favourites page. Kept: "Visualizza codice" counts in it, so that after that view the
    /// page buttons go on from the count.
    std::int16_t FavouritePage = 0;
    /// The first panel of the status bar; start-up alone writes it.
    std::string termsPanel;

    /// The search button: translates the phrase in the current mode, or opens the Italian search when nothing
    /// is composed. Throws RuntimeError as the mode's search does.
    void search();

  private:
    void showFound(std::string_view signs) override { display_.showFound(signs); }
    void showPicture(const std::string& name) override;
    void closePicture() override { windows_.closePicture(); }
    void consume(std::size_t characters) override { display_.consume(characters); }
    void clearCells() override { display_.clearCells(); }

    FileSystem files_;
    Pictures& pictures_;
    UserInterface& ui_;
    WindowOpener& windows_;

    SearchModes modes_;
    ModeSwitch modeSwitch_{modes_};
    SignImages images_;
    Colours colours_;
    LastResult last_;
    DisplayLine display_;
    SignFinder finder_;
    Insertion insertion_;
    Palette palette_;
    FavouritesStrip favourites_;
    GlyphDirectoryChooser directoryChooser_;
    TranslatedWords translatedWords_;
    DictionaryInsertion dictionaryInsertion_{files_, ui_, last_};
    ItalianSearch italianSearch_{files_, ui_, display_, last_};
    Choices choices_{files_};
    Arrangement arrangement_;
};

}  // namespace karvel
