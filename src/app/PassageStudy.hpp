#pragma once

#include "print/StudySheet.hpp"
#include "reading/Passage.hpp"

namespace karvel {

/// The study sheet of a passage: its lines of signs, the transliteration and translation of the whole, and
/// its words one below the other.
[[nodiscard]] StudySheet studyOf(const Passage& passage);

}  // namespace karvel
