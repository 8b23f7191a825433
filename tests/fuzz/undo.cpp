// An undo file of any content, and composing that goes on from the phrase that it restores.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "Target.hpp"
#include "compose/Palette.hpp"
#include "compose/UndoFile.hpp"
#include "support/FieldModel.hpp"
#include "support/TemporaryDrive.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::require;

namespace {

/// Answers every box with its first button. Every seventh picture is missing.
class Surroundings : public UserInterface, public Pictures, public MissingSignMode {
  public:
    Button ask(const MessageBox& box) override
    {
        require(!box.text.empty(), "a box has a text");
        return Button::Ok;
    }
    std::optional<std::string> input(const std::string&, const std::string&) override { return std::nullopt; }
    void beep() override {}
    void setBusy(bool) override {}
    bool continueReading(std::uint64_t, std::uint64_t) override { return true; }
    bool canLoad(const std::string& path) override { return (path[path.size() - 5] - '0') % 7 != 0; }
    [[nodiscard]] bool active() const override { return on; }
    void activate() override { on = true; }
    void leave() override { on = false; }
    bool on = false;
};

/// The number of the RuntimeError that `work` throws, 0 when it throws none.
template <typename Work>
int errorOf(const Work& work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.value();
    }
    return 0;
}

/// The next field as a number from `lowest` to `highest`; sets `error` when there is none or it is out of
/// range.
std::int64_t numberIn(testing::FieldModel& model, std::int64_t lowest, std::int64_t highest, int& error)
{
    const auto field = error == 0 ? model.field() : std::nullopt;
    error = error == 0 && !field ? 62 : error;
    if (error != 0 || field->find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return 0;
    }
    char* end = nullptr;
    const double value = std::strtod(field->c_str(), &end);
    if (*end != '\0') {
        return 0;
    }
    const double whole = std::nearbyint(value);
    const bool fits = whole >= static_cast<double>(lowest) && whole <= static_cast<double>(highest);
    error = fits ? 0 : 6;
    return fits ? static_cast<std::int64_t>(whole) : 0;
}

/// What the bytes of an undo file mean; sets `error` when they mean nothing.
UndoState stateIn(std::string_view bytes, int& error)
{
    constexpr std::int64_t kLowest = std::numeric_limits<std::int16_t>::min();
    constexpr std::int64_t kHighest = std::numeric_limits<std::int16_t>::max();
    testing::FieldModel model(bytes);
    const bool header = model.field().has_value();
    const auto codes = header ? model.field() : std::nullopt;
    error = codes ? 0 : 62;
    UndoState state;
    state.DisplayCodes = decode(codes.value_or(""));
    state.DisplayCount = static_cast<std::uint8_t>(numberIn(model, 0, 255, error));
    state.FirstVisibleOffset = static_cast<std::int16_t>(numberIn(model, kLowest, kHighest, error));
    state.InsertPosition = static_cast<std::int16_t>(numberIn(model, kLowest, kHighest, error));
    const auto plain = [](char c) { return c >= ' ' && c < 0x7F && c != '"'; };
    if (error == 0 &&
        (state.DisplayCodes.size() > 84 * 3 || !std::ranges::all_of(state.DisplayCodes, plain))) {
        error = 13;
    }
    return state;
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

void act(DisplayLine& display, Palette& palette, unsigned what)
{
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
            palette.pressCode("p47");
            return;
        default:
            palette.pressCode("a0" + std::to_string(1 + what % 9));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const testing::TemporaryDrive drive;
    static SignFinder finder;
    Surroundings around;
    SignImages images;
    DisplayLine display(drive.files(), around, around, images, around);
    Insertion insertion(display, finder);
    Palette palette(around, around, images, around, display, insertion);

    fuzz::Input input(data, size);
    const std::string_view actions = input.tail(10);
    drive.write(kUndoPath, input.rest());
    int error = 0;
    const UndoState expected = stateIn(input.rest(), error);
    UndoState state;
    require(errorOf([&] { state = loadUndo(drive.files()); }) == error, "a state is read or refused");
    require(error != 0 || state == expected, "the state is what the file says");
    require(errorOf([&] { display.undo(); }) == error, "undo reports the same error");
    require(display.DisplayCodes() == (error == 0 ? expected.DisplayCodes : ""),
            "the phrase is restored, or empty");
    looksRight(display);
    for (const char action : actions) {
        act(display, palette, static_cast<unsigned char>(action));
        looksRight(display);
    }
    display.saveUndoState(display.InsertPosition());
    require(loadUndo(drive.files()) == UndoState{display.DisplayCodes(), display.DisplayCount(),
                                                 display.FirstVisibleOffset(), display.InsertPosition()},
            "what is saved can be read");
    return 0;
}
