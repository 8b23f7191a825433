#include "reading/EditScores.hpp"

#include <array>
#include <cmath>
#include <cstdint>

namespace karvel {

namespace {

constexpr float kNear = 0.8F;      ///< share of the new spellings that are near a known one
constexpr float kAnySign = 0.3F;   ///< share of the edits that is spread over all signs
constexpr float kByChance = 0.4F;  ///< added to the counts of signs seen together, and to those expected

constexpr float kSmall = 0.25F;  ///< below it x is used in place of log(1 + x), which is much faster

std::size_t placeOf(Edit edit, char16_t sign)
{
    return static_cast<std::size_t>(edit) * kSignNumbers + sign;
}

std::uint64_t keyOf(Edit edit, char16_t sign, char16_t beside)
{
    return (std::uint64_t{placeOf(edit, sign)} << 16U | beside) + 1;
}

}  // namespace

EditScores::EditScores(const ReadingModel& model)
    : alone_(kEdits * kSignNumbers), counts_(kEdits * kSignNumbers), frequency_(kSignNumbers)
{
    std::array<float, kEdits> totals{};
    float all = 1;
    for (const auto& [edit, sign, beside, count] : model.edits) {
        counts_[placeOf(edit, sign)] += count;
        totals[static_cast<std::size_t>(edit)] += count;
        all += count;
    }
    for (std::size_t i = 0; i < alone_.size(); ++i) {
        const float spread = kAnySign * (totals[i / kSignNumbers] + 1) / kSignNumbers;
        alone_[i] = std::log(kNear * (counts_[i] + spread) / (all * (1 + kAnySign)));
    }
    float signs = 1;
    for (const auto& spelling : model.spellings) {
        frequency_[0] += 1;  // what stands before the first sign
        for (const char16_t sign : spelling.signs) {
            frequency_[sign] += 1;
        }
        signs += static_cast<float>(spelling.signs.size()) + 1;
    }
    for (float& frequency : frequency_) {
        frequency /= signs;
    }
    for (const auto& [edit, sign, beside, count] : model.edits) {
        const std::size_t place = placeOf(edit, sign);
        const float expected = counts_[place] * frequency_[beside];
        together_[keyOf(edit, sign, beside)] =
            alone_[place] + std::log((count + kByChance) / (expected + kByChance));
    }
}

float EditScores::operator()(Edit edit, char16_t sign, char16_t beside) const
{
    if (const float known = together_.get(keyOf(edit, sign, beside)); known != 0) {
        return known;
    }
    const std::size_t place = placeOf(edit, sign);
    const float unseen = counts_[place] * frequency_[beside] / kByChance;
    return alone_[place] - (unseen < kSmall ? unseen : std::log1p(unseen));
}

}  // namespace karvel
