#include "dictionary/SearchModes.hpp"

#include <limits>

#include "text/FieldReader.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

constexpr std::string_view kHeading = "TIPO RICERCA: ";

/// Kept: the heading of mode 3 has a capital S when the mode was chosen in this run, and a small one when it
/// was restored. Users tell the two cases apart by it.
constexpr std::array<std::string_view, kModes - 1> kChosen = {
    "Termine presente", "Dividi in parole", "Cerca Simile", "Inizia per...", "Finisce per..."};
constexpr std::string_view kRestoredContains = "Cerca simile";

}  // namespace

void SearchModes::tickOnly(Mode mode)
{
    ticks_.fill(false);
    ticks_[index(mode)] = true;
}

void SearchModes::restore(const FileSystem& files)
{
    const auto source = files.open(kSearchModePath);
    FieldReader fields(*source);
    const auto stored = fields.number<std::int16_t>();
    if (stored < 0 || stored > std::numeric_limits<std::uint8_t>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    number_ = static_cast<std::uint8_t>(stored);
    if (stored < 1 || stored > static_cast<int>(kChosen.size())) {
        return;
    }
    tickOnly(mode());
    caption_ =
        std::string(kHeading) + std::string(is(Mode::Contains) ? kRestoredContains : kChosen[index(mode())]);
}

void SearchModes::choose(Mode mode, const FileSystem& files)
{
    tickOnly(mode);
    number_ = static_cast<std::uint8_t>(mode);
    if (mode == Mode::MissingSign) {
        return;
    }
    files.replace(kSearchModePath, numberLine(number_));
    caption_ = std::string(kHeading) + std::string(kChosen[index(mode)]);
}

void SearchModes::activateMissingSign()
{
    tickOnly(Mode::MissingSign);
    number_ = static_cast<std::uint8_t>(Mode::MissingSign);
}

void SearchModes::leaveMissingSign()
{
    tickOnly(Mode::Equal);
    number_ = static_cast<std::uint8_t>(Mode::Equal);
    caption_ = std::string(kHeading) + std::string(kChosen[index(Mode::Equal)]);
}

}  // namespace karvel
