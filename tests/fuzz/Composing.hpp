#pragma once

#include "Drive.hpp"
#include "app/ModeSwitch.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"
#include "compose/SignFinder.hpp"

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
