#pragma once

#include "Drive.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"
#include "compose/SignFinder.hpp"
#include "dictionary/SearchModes.hpp"

namespace karvel::fuzz {

/// What composing a phrase takes, wired as the session wires it.
class Composing {
  public:
    Composing(const FileSystem& files, Quiet& quiet)
        : display(files, quiet, quiet, images, modeSwitch_),
          insertion(display, finder()),
          palette(quiet, quiet, images, modeSwitch_, display, insertion)
    {
    }

    SearchModes modes;
    SignImages images;

  private:
    class ModeSwitch : public MissingSignMode {
      public:
        explicit ModeSwitch(SearchModes& modes) : modes_(modes) {}
        [[nodiscard]] bool active() const override { return modes_.is(Mode::MissingSign); }
        void activate() override { modes_.activateMissingSign(); }
        void leave() override { modes_.leaveMissingSign(); }

      private:
        SearchModes& modes_;
    };

    /// Made once: it takes longer than everything else here.
    static SignFinder& finder()
    {
        static SignFinder one;
        return one;
    }

    ModeSwitch modeSwitch_{modes};

  public:
    DisplayLine display;
    Insertion insertion;
    Palette palette;
};

}  // namespace karvel::fuzz
