#include "compose/UndoFile.hpp"

#include <algorithm>

#include "base/SignCode.hpp"
#include "compose/DisplayLine.hpp"
#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

void saveUndo(const FileSystem& files, const UndoState& state)
{
    // Written before every sign: it must survive the program's end, but need not wait for the disk.
    files.replace(kUndoPath,
                  fieldLine("file undo") + readableLine(state.DisplayCodes) +
                      spacedNumberLine(state.DisplayCount) + spacedNumberLine(state.FirstVisibleOffset) +
                      spacedNumberLine(state.InsertPosition),
                  Durability::Process);
}

UndoState loadUndo(const FileSystem& files)
{
    const auto source = files.open(kUndoPath);
    FieldReader fields(*source);
    UndoState state;
    (void)fields.field();  // the header is for people who open the file
    state.DisplayCodes = decode(fields.field());
    state.DisplayCount = fields.number<std::uint8_t>();
    state.FirstVisibleOffset = fields.number<std::int16_t>();
    state.InsertPosition = fields.number<std::int16_t>();
    // Any plain text is taken: a favourite from another directory may have put unknown codes into the phrase.
    // The phrase is cut into codes of three bytes. A character of several bytes would be cut in two, and a
    // quote could become the first byte of a field, which no file can store.
    const bool plain =
        std::ranges::all_of(state.DisplayCodes, [](char c) { return c >= ' ' && c < 0x7F && c != '"'; });
    if (!plain || state.DisplayCodes.size() > DisplayLine::kLimit * kCodeLength) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return state;
}

}  // namespace karvel
