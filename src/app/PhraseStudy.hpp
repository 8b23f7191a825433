#pragma once

#include <optional>
#include <string_view>

#include "base/RuntimeError.hpp"
#include "base/UserInterface.hpp"
#include "files/FileSystem.hpp"
#include "print/StudySheet.hpp"

namespace karvel {

/// A study sheet, and what ended its making before the end of the dictionary: a fault, or the user. What was
/// found before is in it.
struct PhraseStudy {
    StudySheet sheet;
    std::optional<RuntimeError> failure;
    bool stopped = false;
};

/// The study sheet of `phrase`, not empty: its entries as the list of answers has them, and the words into
/// which it can be split when they are more than one. Where no entry has all its signs, the words' texts
/// joined stand for them. Reads the dictionary; changes nothing in the session.
[[nodiscard]] PhraseStudy studyOf(const FileSystem& files, UserInterface& ui, std::string_view phrase);

}  // namespace karvel
