#include "dictionary/SearchModes.hpp"

#include "text/FieldReader.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

constexpr std::string_view kHeading = "TIPO RICERCA: ";

/// Kept: the heading of mode 3 is spelled with a capital S when it is chosen and with a small one when it is
/// restored; who reads it knows by that whether the mode was chosen in this run.
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
    if (stored < 0 || stored > 255) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    mode_ = static_cast<std::uint8_t>(stored);
    if (mode_ < 1 || mode_ > 5) {
        return;  // kept: an unknown mode stays, and searches like "Cerca simile"
    }
    const auto mode = static_cast<Mode>(mode_);
    tickOnly(mode);
    caption_ = std::string(kHeading) +
               std::string(mode == Mode::Contains ? kRestoredContains : kChosen[index(mode)]);
}

void SearchModes::choose(Mode mode, const FileSystem& files)
{
    tickOnly(mode);
    mode_ = static_cast<std::uint8_t>(mode);
    if (mode == Mode::MissingSign) {
        return;
    }
    files.replace(kSearchModePath, numberLine(mode_));
    caption_ = std::string(kHeading) + std::string(kChosen[index(mode)]);
}

void SearchModes::activateMissingSign()
{
    tickOnly(Mode::MissingSign);
    mode_ = static_cast<std::uint8_t>(Mode::MissingSign);
}

void SearchModes::leaveMissingSign()
{
    tickOnly(Mode::Equal);
    mode_ = static_cast<std::uint8_t>(Mode::Equal);
    caption_ = std::string(kHeading) + std::string(kChosen[index(Mode::Equal)]);
}

}  // namespace karvel
