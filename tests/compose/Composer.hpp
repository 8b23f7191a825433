#pragma once

#include <sstream>

#include "compose/Palette.hpp"
#include "compose/SignFinder.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel::testing {

inline const MessageBox kLimitBox{
    .title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical};

class FakeMode : public MissingSignMode {
  public:
    [[nodiscard]] bool active() const override { return on; }
    void activate() override { on = true; }
    void leave() override { on = false; }
    bool on = false;
};

/// A palette and a display line, worked by short commands and told in one line.
class Composer {
  public:
    /// Does what `actions` say, separated by blanks: kN presses the next N keys (a01, a02, ... a53, b01,
    /// ...), cN clicks cell N, found:CODES shows an entry, hide:CODE takes the image of a sign away; the rest
    /// are the buttons.
    void act(const std::string& actions)
    {
        std::istringstream words(actions);
        for (std::string word; words >> word;) {
            if (word[0] == 'k') {
                for (int count = std::stoi(word.substr(1)); count > 0; --count, ++pressed) {
                    press(static_cast<int>(pressed / kKeys) + 1, pressed % kKeys);
                }
            } else if (word[0] == 'c' && std::isdigit(word[1]) != 0) {
                display.clickCell(std::stoul(word.substr(1)));
            } else if (word.starts_with("found:")) {
                display.showFound(word.substr(6));
            } else if (word.starts_with("hide:")) {
                pictures.missing.insert(images.path(word.substr(5)));
            } else {
                button(word);
            }
        }
    }

    void press(int page, std::size_t key)
    {
        if (palette.CurrentPage() != page || palette.codeOf(key).empty()) {
            palette.changed(page);
        }
        palette.press(key);
    }

    /// "phrase | DisplayCount InsertPosition FirstVisibleOffset | cells": neighbours in the palette are
    /// written a01-a05, a blank cell "-", the border "*"; blank cells at the end are left out.
    [[nodiscard]] std::string state() const
    {
        std::vector<std::string> cells;
        std::size_t used = 0;
        for (const DisplayLine::Cell& cell : display.cells()) {
            // The path is what the window shows; it must lead to the sign's own image.
            cells.push_back(cell.blank() ? "-" : cell.path.substr(cell.path.rfind('\\') + 1, kCodeLength));
            EXPECT_TRUE(cell.blank() || images.path(cells.back()) == cell.path) << cell.path;
            cells.back() += cell.border ? "*" : "";
            used = cells.back() == "-" ? used : cells.size();
        }
        cells.resize(used);
        const auto pieces = splitCodes(display.DisplayCodes());
        return runs({pieces.begin(), pieces.end()}) + " | " + std::to_string(display.DisplayCount()) + " " +
               std::to_string(display.InsertPosition()) + " " + std::to_string(display.FirstVisibleOffset()) +
               " | " + runs(cells);
    }

    TemporaryDrive drive;
    ScriptedUi ui;
    FakePictures pictures;
    SignImages images;
    FakeMode mode;
    DisplayLine display{drive.files(), pictures, ui, images, mode};
    SignFinder finder;
    Insertion insertion{display, finder};
    Palette palette{pictures, ui, images, mode, display, insertion};
    std::size_t pressed = 0;

  private:
    void button(const std::string& name)
    {
        if (name == "left") {
            display.cursorLeft();
        } else if (name == "right") {
            display.cursorRight();
        } else if (name == "start") {
            display.startOfPhrase();
        } else if (name == "end") {
            display.endOfPhrase();
        } else if (name == "delete") {
            display.deleteSelected();
        } else if (name == "clear") {
            display.clearAll();
        } else if (name == "undo") {
            display.undo();
        } else if (name == "nothing") {
            insertion({}, 99);
        } else {
            ADD_FAILURE() << "no such action: " << name;
        }
    }

    static std::string runs(const std::vector<std::string>& items)
    {
        std::string text;
        for (std::size_t i = 0; i < items.size(); ++i) {
            std::size_t last = i;
            while (last + 1 < items.size() && follows(items[last], items[last + 1])) {
                ++last;
            }
            text += (text.empty() ? "" : " ") + items[i] + (last > i ? "-" + items[last] : "");
            i = last;
        }
        return text;
    }

    static bool follows(const std::string& code, const std::string& next)
    {
        return isSignCode(code) && isSignCode(next) && code[0] == next[0] &&
               std::stoi(code.substr(1)) + 1 == std::stoi(next.substr(1));
    }
};

}  // namespace karvel::testing
