#pragma once

#include "compose/MissingSignMode.hpp"
#include "dictionary/SearchModes.hpp"

namespace karvel {

/// Lets composing switch the missing-sign search on and off.
class ModeSwitch : public MissingSignMode {
  public:
    /// `modes` must outlive the switch.
    explicit ModeSwitch(SearchModes& modes) : modes_(modes) {}
    [[nodiscard]] bool active() const override { return modes_.is(Mode::MissingSign); }
    void activate() override { modes_.activateMissingSign(); }
    void leave() override { modes_.leaveMissingSign(); }

  private:
    SearchModes& modes_;
};

}  // namespace karvel
