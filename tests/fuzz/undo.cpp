// The undo file with any content, and composing that goes on from whatever it brought back.

#include <algorithm>
#include <limits>

#include "Composing.hpp"
#include "compose/UndoFile.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::errorOf;
using fuzz::expectedNumber;
using fuzz::ExpectedNumber;
using fuzz::require;

namespace {

struct ExpectedState {
    int error = 0;
    UndoState state;
};

ExpectedState stateIn(std::string_view bytes)
{
    testing::FieldModel model(bytes);
    const bool header = model.field().has_value();
    const auto codes = header ? model.field() : std::nullopt;
    if (!codes) {
        return {.error = 62, .state = {}};
    }
    UndoState state;
    state.DisplayCodes = decode(*codes);
    constexpr double kLowest = std::numeric_limits<std::int16_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int16_t>::max();
    const ExpectedNumber count = expectedNumber(model, 0, 255);
    const ExpectedNumber first = count.error != 0 ? count : expectedNumber(model, kLowest, kHighest);
    const ExpectedNumber position = first.error != 0 ? first : expectedNumber(model, kLowest, kHighest);
    if (position.error != 0) {
        return {.error = position.error, .state = {}};
    }
    state.DisplayCount = static_cast<std::uint8_t>(count.value);
    state.FirstVisibleOffset = static_cast<std::int16_t>(first.value);
    state.InsertPosition = static_cast<std::int16_t>(position.value);
    const auto plain = [](char c) { return c >= ' ' && c < 0x7F && c != '"'; };
    const bool bad = state.DisplayCodes.size() > 84 * 3 || !std::ranges::all_of(state.DisplayCodes, plain);
    return {.error = bad ? 13 : 0, .state = state};
}

void looksRight(const DisplayLine& display)
{
    const std::string& codes = display.DisplayCodes();
    require(codes.size() <= 84 * 3, "never more than 84 signs");
    const auto borders = std::ranges::count_if(display.cells(), [](const auto& cell) { return cell.border; });
    require(borders <= 1, "one border at most");
    for (const DisplayLine::Cell& cell : display.cells()) {
        if (cell.offset >= 0 && !cell.code.empty()) {
            // The last piece of a damaged phrase may be shorter than a sign.
            const std::string shown = cell.code.substr(0, 3);
            require(codes.compare(static_cast<std::size_t>(cell.offset), shown.size(), shown) == 0,
                    "a cell shows the sign of the phrase that it stands for");
        }
    }
    // Signs that are taken away without a redraw leave it where it was, even behind the phrase's end.
    require(display.FirstVisibleOffset() >= 0, "what is visible begins in the phrase");
}

void act(fuzz::Composing& composing, unsigned what)
{
    DisplayLine& display = composing.display;
    switch (what % 16) {
        case 0:
            return display.cursorLeft();
        case 1:
            return display.cursorRight();
        case 2:
            return display.startOfPhrase();
        case 3:
            return display.endOfPhrase();
        case 4:
            return display.clickCell(what / 16 % DisplayLine::kCells);
        case 5:
            return display.deleteSelected();
        case 6:
            return display.removeLast();
        case 7:
            return display.dropLastCode();
        case 8:
            return what / 16 == 0 ? display.clearAll() : display.reload();
        case 9:
            (void)errorOf([&] { display.undo(); });
            return;
        case 10:
            return display.consume(std::min<std::size_t>(what / 16 % 4 * 3, display.DisplayCodes().size()));
        case 11:
            return display.showFound("a01b02");
        case 12:
            composing.palette.pressCode("p47");
            return;
        default:
            composing.palette.pressCode("a0" + std::to_string(1 + what % 9));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::Drive drive;
    static fuzz::Quiet quiet;
    fuzz::Input input(data, size);
    const std::string_view actions = input.tail(10);
    drive.put("Undo.dat", input.rest());
    const ExpectedState expected = stateIn(input.rest());
    UndoState state;
    require(errorOf([&] { state = loadUndo(drive.files); }) == expected.error, "a state is read or refused");
    require(state == expected.state || expected.error != 0, "the state is what the file says");

    fuzz::Composing composing(drive.files, quiet);
    DisplayLine& display = composing.display;
    require(errorOf([&] { display.undo(); }) == expected.error, "undoing says the same");
    require(display.DisplayCodes() == (expected.error == 0 ? state.DisplayCodes : ""),
            "the phrase is back, or none");
    looksRight(display);
    for (const char action : actions) {
        act(composing, static_cast<unsigned char>(action));
        looksRight(display);
    }
    display.saveUndoState(display.InsertPosition());
    require(loadUndo(drive.files) == UndoState{display.DisplayCodes(), display.DisplayCount(),
                                               display.FirstVisibleOffset(), display.InsertPosition()},
            "what is saved can be read");
    return 0;
}
