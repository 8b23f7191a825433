#pragma once

#include <string>
#include <string_view>

#include "base/UserInterface.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/SearchModes.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// What a search says that found no record.
inline constexpr std::string_view kNothingFound = "Non esiste una corrispondenza per questo termine !";

/// Where a search shows what it finds besides the message boxes.
class ResultView {
  public:
    virtual ~ResultView() = default;

    /// Puts the signs of a found entry into the display cells; the phrase itself stays as it is.
    virtual void showFound(std::string_view signs) = 0;

    /// Opens the picture window with the picture that a note names.
    virtual void showPicture(const std::string& name) = 0;

    /// Closes the picture of an earlier entry, if one is open.
    virtual void closePicture() {}
};

/// The texts of a result box; `translation` is shown as given.
[[nodiscard]] MessageBox translationBox(const DictionaryEntry& entry);

/// The box for a dictionary that cannot be read.
[[nodiscard]] MessageBox dictionaryErrorBox(const RuntimeError& error);

/// Opens the dictionary so that a long reading can be watched and stopped through `ui`.
[[nodiscard]] std::unique_ptr<ByteSource> openDictionary(const FileSystem& files, UserInterface& ui,
                                                         std::string_view path = kDictionaryPath);

/// The pass over the dictionary behind the search button, for every mode but word splitting: each match in
/// a box of its own until the user cancels or the file ends.
class TranslationLookup {
  public:
    TranslationLookup(const FileSystem& files, UserInterface& ui, ResultView& view, LastResult& last)
        : files_(files), ui_(ui), view_(view), last_(last)
    {
    }

    /// Searches for `phrase`, not empty. In the modes Equal and Contains a failure of the pass is shown in
    /// the "ERRORE" box; in the others it is thrown (RuntimeError). The results shown so far stay.
    void run(Mode mode, std::string_view phrase);

  private:
    enum class End { Cancelled, NothingFound, Found };

    End pass(Mode mode, std::string_view phrase);
    bool show(Mode mode, DictionaryEntry entry);

    const FileSystem& files_;
    UserInterface& ui_;
    ResultView& view_;
    LastResult& last_;
};

}  // namespace karvel
