#include "app/ReadOnlyData.hpp"

#include <algorithm>
#include <array>

#include "compose/SignImages.hpp"
#include "compose/UndoFile.hpp"
#include "dictionary/SearchModes.hpp"
#include "settings/Colours.hpp"

namespace karvel {

void keepInMemoryWhatCannotBeWritten(const FileSystem& files, UserInterface& ui)
{
    constexpr std::array kKept = {kUndoPath, kSearchModePath, kDisplayColourPath, kWindowColourPath,
                                  kGlyphDirectoryPath};
    if (std::ranges::all_of(kKept, [&](std::string_view path) { return files.canReplace(path); })) {
        return;
    }
    for (const std::string_view path : kKept) {
        files.holdInMemory(path);
    }
    ui.ask({.title = "Attenzione",
            .text = "La directory dei dati C:\\programmi\\Karvel non si può scrivere.\n\n"
                    "Si può comporre e cercare come sempre, ma alla chiusura del programma non resteranno: "
                    "lo stato per Undo, il modo di ricerca, i colori, la directory dei geroglifici, "
                    "la cronologia e le scelte delle finestre.",
            .icon = Icon::Exclamation});
}

}  // namespace karvel
