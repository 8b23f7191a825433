#include "windows/monkey/PhraseRules.hpp"

#include <QAction>
#include <algorithm>

#include "windows/signs/MagnifiedPhrase.hpp"
#include "windows/signs/PhraseStrip.hpp"
#include "windows/signs/SignCell.hpp"
#include "windows/support/Text.hpp"

namespace karvel::testing {

namespace {

std::string_view signAt(const std::string& codes, std::size_t offset)
{
    return offset < codes.size() ? std::string_view(codes).substr(offset, kCodeLength) : std::string_view();
}

}  // namespace

std::string PhraseRules::phraseBroken(const std::string& codes)
{
    if (codes.size() > DisplayLine::kLimit * kCodeLength) {
        return "more than 84 signs";
    }
    return codes.size() % kCodeLength == 0 ? "" : "a sign of the phrase is cut";
}

/// The cells on the screen are the session's.
std::string PhraseRules::windowBroken(Session& session, const Form1& form1)
{
    const DisplayLine& display = session.display();
    for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
        const auto* const shown = form1.findChild<SignCell*>(element("Vendol", i));
        const DisplayLine::Cell& meant = display.cells()[i];
        if (shown->cell().path != meant.path || shown->cell().code != meant.code ||
            shown->cell().border != meant.border) {
            return "cell " + std::to_string(i) + " of the window is not the session's";
        }
    }
    return {};
}

/// A cell that stands for a sign of the phrase shows it; and all twelve are the stretch that begins at
/// FirstVisibleOffset, unless something else was put there.
std::string PhraseRules::cellsBroken(const DisplayLine& display)
{
    const std::string& codes = display.DisplayCodes();
    const auto first = display.FirstVisibleOffset();
    if (first < 0 || first % static_cast<int>(kCodeLength) != 0) {
        return "FirstVisibleOffset is " + std::to_string(first);
    }
    bool inLine = first == 0 || static_cast<std::size_t>(first) < codes.size();
    for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
        const DisplayLine::Cell& cell = display.cells()[i];
        if (cell.offset >= 0 && (static_cast<std::size_t>(cell.offset) >= codes.size() ||
                                 signAt(codes, static_cast<std::size_t>(cell.offset)) != cell.code)) {
            return "cell " + std::to_string(i) + " shows another sign than the phrase's at its place";
        }
        inLine = inLine && cell.code == signAt(codes, static_cast<std::size_t>(first) + i * kCodeLength);
    }
    const bool redrawn = first != offset_ && first != 0;
    offset_ = first;
    // A blank first cell begins the display anew at the next sign, be the phrase as long as it may: so it is
    // when the signs' pictures are missing.
    const bool begunAnew = display.cells()[0].blank() && !codes.empty();
    // A splitting takes words from the phrase and leaves the count of the cells: the next sign goes into the
    // cell that the count names.
    const bool counted =
        display.DisplayCount() >= DisplayLine::kCells || display.DisplayCount() == display.signs();
    if (inLine) {
        excused_ = begunAnew || !counted;
        return {};
    }
    excused_ = excused_ || begunAnew;
    if (!excused_ || redrawn) {
        return "the cells do not show the phrase from FirstVisibleOffset " + std::to_string(first) + " on";
    }
    return {};
}

std::string PhraseRules::ticksBroken(Session& session, const Form1& form1)
{
    int ticked = 0;
    for (std::size_t i = 0; i < kModes; ++i) {
        const auto mode = static_cast<Mode>(i + 1);
        const bool shown = form1.findChild<QAction*>(qtext(SearchModes::kItems[i]))->isChecked();
        if (shown != session.modes().ticked(mode)) {
            return "the menu's tick is not the session's";
        }
        if (shown && !session.modes().is(mode)) {
            return "another mode is ticked than the one in force";
        }
        ticked += shown ? 1 : 0;
    }
    // A mode from the settings that is none of the menu's first five ticks nothing until one is chosen.
    everTicked_ =
        everTicked_ || ticked > 0 || (session.modes().SearchMode() >= 1 && session.modes().SearchMode() <= 5);
    return ticked == (everTicked_ ? 1 : 0) ? "" : std::to_string(ticked) + " modes are ticked";
}

std::string PhraseRules::broken(Session& session, const Form1& form1)
{
    for (const std::string& what :
         {phraseBroken(session.display().DisplayCodes()), windowBroken(session, form1),
          cellsBroken(session.display()), ticksBroken(session, form1)}) {
        if (!what.empty()) {
            return what;
        }
    }
    return {};
}

}  // namespace karvel::testing
