#pragma once

#include "print/StudySheet.hpp"
#include "reading/Passage.hpp"

namespace karvel {

/// The study sheet of a passage: its lines of signs, the running texts, and its words below each other.
[[nodiscard]] StudySheet studyOf(const Passage& passage);

}  // namespace karvel
