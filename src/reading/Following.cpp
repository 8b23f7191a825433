#include "reading/Following.hpp"

#include <algorithm>
#include <numeric>
#include <span>

namespace karvel {

namespace {

constexpr std::uint32_t kEdgeKind = ReadingModel::kKinds;
constexpr std::size_t kKindNumbers = kEdgeKind + 1;

constexpr float kNeverSeen = 0.3F;     ///< the count of a word that the passages lack
constexpr float kKindAfter = 0.5F;     ///< added to each count of two parts of speech
constexpr float kByKind = 0.7F;        ///< share of the parts of speech in the last fallback
constexpr float kKindDiscount = 1.0F;  ///< taken off each count and left to the fallback
constexpr float kPairDiscount = 0.8F;
constexpr float kPairFallback = 3.0F;  ///< counts of the fallback in every context
constexpr float kTripleDiscount = 0.8F;
constexpr float kTripleFallback = 3.0F;

/// Words of a file of 64 MB have numbers below 2^21.
std::uint64_t keyOf(std::uint64_t before2, std::uint64_t before, std::uint64_t word)
{
    return (before2 << 42U | before << 21U | word) + 1;
}

float mixed(float count, float total, float different, float fallback, float discount, float fallbackCounts)
{
    if (total <= 0) {
        return fallback;
    }
    const float left = std::min(1.0F, (discount * different + fallbackCounts) / (total + fallbackCounts));
    return std::max(0.0F, count - discount) / (total + fallbackCounts) + left * fallback;
}

}  // namespace

void Following::count(float& followed, Context& context, float times)
{
    context.different += followed == 0 ? 1 : 0;
    followed += times;
    context.total += times;
}

Following::Following(const ReadingModel& model, const Lexicon& lexicon)
    : kindAfter_(kKindNumbers * kKindNumbers, kKindAfter),
      pairContexts_(lexicon.words().size()),
      kindContexts_(kKindNumbers)
{
    std::vector<float> kindTotals(kKindNumbers);
    for (const Lexicon::Word& word : lexicon.words()) {
        kinds_.push_back(kinds_.empty() ? kEdgeKind : word.kind);
        plain_.push_back(word.count + kNeverSeen);
        kindTotals[kinds_.back()] += plain_.back();
    }
    const float all = std::accumulate(kindTotals.begin(), kindTotals.end(), 0.0F);
    for (std::size_t word = 0; word < plain_.size(); ++word) {
        ofKind_.push_back(plain_[word] / kindTotals[kinds_[word]]);
        plain_[word] /= all;
    }
    pairs_.reserve(model.pairs.size());
    kindPairs_.reserve(model.pairs.size());
    for (const auto& pair : model.pairs) {
        const std::uint32_t kind = kinds_[pair.before];
        count(pairs_[keyOf(0, pair.before, pair.word)], pairContexts_[pair.before], pair.count);
        count(kindPairs_[keyOf(0, kind, pair.word)], kindContexts_[kind], pair.count);
        kindAfter_[kind * kKindNumbers + kinds_[pair.word]] += pair.count;
    }
    for (std::size_t kind = 0; kind < kKindNumbers; ++kind) {
        const auto row = std::span(kindAfter_).subspan(kind * kKindNumbers, kKindNumbers);
        const float total = std::accumulate(row.begin(), row.end(), 0.0F);
        std::ranges::for_each(row, [total](float& after) { after /= total; });
    }
    triples_.reserve(model.triples.size());
    for (const auto& triple : model.triples) {
        count(triples_[keyOf(triple.before2, triple.before, triple.word)],
              tripleContexts_[keyOf(0, triple.before2, triple.before)], triple.count);
    }
}

Following::Before Following::after(std::uint32_t before2, std::uint32_t before) const
{
    return {before2, before, tripleContexts_.get(keyOf(0, before2, before))};
}

float Following::probability(const Before& there, std::uint32_t word) const
{
    const auto& [before2, before, afterTwo] = there;
    const std::uint32_t kind = kinds_[before];
    float result = kByKind * kindAfter_[kind * kKindNumbers + kinds_[word]] * ofKind_[word] +
                   (1 - kByKind) * plain_[word];
    const Context& afterKind = kindContexts_[kind];
    result = mixed(kindPairs_.get(keyOf(0, kind, word)), afterKind.total, afterKind.different, result,
                   kKindDiscount, 0);
    const Context& afterWord = pairContexts_[before];
    result = mixed(pairs_.get(keyOf(0, before, word)), afterWord.total, afterWord.different, result,
                   kPairDiscount, kPairFallback);
    if (afterTwo.total > 0) {
        result = mixed(triples_.get(keyOf(before2, before, word)), afterTwo.total, afterTwo.different, result,
                       kTripleDiscount, kTripleFallback);
    }
    return result;
}

}  // namespace karvel
