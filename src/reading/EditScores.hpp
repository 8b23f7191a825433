#pragma once

#include <vector>

#include "reading/FlatMap.hpp"
#include "reading/Model.hpp"

namespace karvel {

/// How likely a spelling differs from a known one in a certain sign: from counts of signs, and of signs
/// beside signs where they were seen together more or less often than chance would have it.
class EditScores {
  public:
    explicit EditScores(const ReadingModel& model);

    /// Logarithm of the probability of the edit of `sign`. `beside` is the sign before it, for Edit::Other
    /// the one that `sign` replaces; 0 none.
    [[nodiscard]] float operator()(Edit edit, char16_t sign, char16_t beside) const;

  private:
    std::vector<float> alone_;      ///< logarithms, by edit and sign
    std::vector<float> counts_;     ///< by edit and sign
    std::vector<float> frequency_;  ///< of the signs in all spellings
    FlatMap<float> together_;       ///< logarithms, by edit, sign and a sign seen beside it
};

}  // namespace karvel
