#pragma once

#include <string>

#include "app/Session.hpp"
#include "windows/main/Form1.hpp"

namespace karvel::testing {

/// What must hold of the main window whatever was done to it. Every check answers what is wrong, or nothing.
class PhraseRules {
  public:
    /// A new run begins: nothing is composed.
    void restart() { *this = PhraseRules(); }

    /// Something was begun that may put other signs into the cells than the phrase's: a search, a
    /// transcription, a favourite taken into the strip. Until the cells are drawn from the phrase again
    /// they need not show it.
    void excuse() { excused_ = true; }

    /// To be asked after every event.
    [[nodiscard]] std::string broken(Session& session, const Form1& form1);

  private:
    [[nodiscard]] static std::string phraseBroken(const std::string& codes);
    [[nodiscard]] static std::string windowBroken(Session& session, const Form1& form1);
    [[nodiscard]] std::string cellsBroken(const DisplayLine& display);
    [[nodiscard]] std::string ticksBroken(Session& session, const Form1& form1);

    bool excused_ = false;
    bool everTicked_ = false;
    std::int16_t offset_ = 0;  ///< FirstVisibleOffset when it was last asked
};

}  // namespace karvel::testing
