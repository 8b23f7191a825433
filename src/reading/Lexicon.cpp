#include "reading/Lexicon.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace karvel {

namespace {

constexpr std::size_t kLongest = 20;       ///< longer spellings are too few to be worth the time
constexpr std::size_t kLeastOther = 3;     ///< signs of one in which a sign is replaced; two must be the same
constexpr std::size_t kLongestForTwo = 8;  ///< signs of one with two changes
constexpr std::size_t kLongestChanged = 10;  ///< signs of a changed spelling; the time grows with the square

/// A word with n spellings, seen t times, is written in a new way with probability (kNewEach n + kNewOnce) /
/// (t + kNewAll).
constexpr float kNewEach = 0.7F;
constexpr float kNewOnce = 0.5F;
constexpr float kNewAll = 2.5F;
constexpr float kMoved = 0.005F;    ///< share of the new spellings that move one sign of a known one
constexpr float kUncounted = 0.5F;  ///< added to the count of a word when candidates are compared
constexpr std::size_t kKept = 6;    ///< candidates for a run of signs

constexpr std::uint64_t kBase = 0x9E3779B97F4A7C15U;

std::uint64_t extended(std::uint64_t hash, char16_t sign)
{
    return hash * kBase + sign + 1;
}

std::uint64_t hashOf(SignsView signs)
{
    std::uint64_t hash = 0;
    for (const char16_t sign : signs) {
        hash = extended(hash, sign);
    }
    return hash;
}

/// The hashes of `signs`, at most kLongest of them, with one or two taken out, each in constant time.
class HashesWithout {
  public:
    explicit HashesWithout(SignsView signs) : length_(signs.size())
    {
        powers_[0] = 1;
        for (std::size_t i = 0; i < length_; ++i) {
            before_[i + 1] = extended(before_[i], signs[i]);
            powers_[i + 1] = powers_[i] * kBase;
        }
    }

    [[nodiscard]] std::uint64_t operator[](std::size_t i) const
    {
        return before_[i] * powers_[length_ - i - 1] + between(i + 1, length_);
    }
    /// Without the signs `i` and `j`, which is greater.
    [[nodiscard]] std::uint64_t without(std::size_t i, std::size_t j) const
    {
        const std::uint64_t front = before_[i] * powers_[j - i - 1] + between(i + 1, j);
        return front * powers_[length_ - j - 1] + between(j + 1, length_);
    }

  private:
    /// The hash of the signs from `begin` to before `end` alone.
    [[nodiscard]] std::uint64_t between(std::size_t begin, std::size_t end) const
    {
        return before_[end] - before_[begin] * powers_[end - begin];
    }

    std::size_t length_;
    std::array<std::uint64_t, kLongest + 1> before_{};  ///< hashes of the first signs, by their number
    std::array<std::uint64_t, kLongest + 1> powers_{};  ///< of kBase
};

float logOf(std::size_t count)
{
    return std::log(static_cast<float>(count));
}

}  // namespace

Lexicon::Lexicon(const ReadingModel& model) : edits_(model)
{
    words_.reserve(model.words.size());
    for (const auto& word : model.words) {
        numbers_.emplace(word.transliteration, static_cast<std::uint32_t>(words_.size()));
        words_.push_back({word.transliteration, word.kind, word.count});
    }
    for (const auto& spelling : model.spellings) {
        spellingOf(spelling.signs).uses.push_back({spelling.word, spelling.count});
    }
}

Lexicon::Spelling& Lexicon::spellingOf(SignsView signs)
{
    std::uint32_t& number = bySigns_[hashOf(signs)].spelling;
    if (number == 0) {
        spellings_.push_back({SignNumbers(signs), {}});
        number = static_cast<std::uint32_t>(spellings_.size());
    }
    return spellings_[number - 1];
}

std::uint32_t Lexicon::add(SignsView signs, std::string_view transliteration, float count, float common)
{
    const auto [known, isNew] =
        numbers_.emplace(std::string(transliteration), static_cast<std::uint32_t>(words_.size()));
    const std::uint32_t word = known->second;
    if (isNew) {
        words_.push_back({std::string(transliteration)});
    }
    words_[word].count += common;
    auto& uses = spellingOf(signs).uses;
    if (const auto use = std::ranges::find(uses, word, &Use::word); use != uses.end()) {
        use->count += count;
    } else {
        uses.push_back({word, count});
    }
    return word;
}

void Lexicon::finish()
{
    for (const Spelling& spelling : spellings_) {
        longest_ = std::max(longest_, std::min(spelling.signs.size(), kLongest));
        for (const Use& use : spelling.uses) {
            words_[use.word].spelled += use.count;
            words_[use.word].spellings += 1;
        }
    }
    for (Spelling& spelling : spellings_) {
        for (Use& use : spelling.uses) {
            const Word& word = words_[use.word];
            const float unseen = (word.spellings * kNewEach + kNewOnce) / (word.spelled + kNewAll);
            use.exact = std::log((1 - std::min(unseen, 0.9F)) * use.count / word.spelled);
            use.near = std::log(unseen * use.count / word.spelled);
        }
    }
    weights_.reserve(words_.size());
    for (const Word& word : words_) {
        weights_.push_back(std::log(word.count + kUncounted));
    }
    indexGaps();
}

void Lexicon::indexGaps()
{
    bySigns_.reserve(spellings_.size() * 4);
    for (std::uint32_t i = 0; i < spellings_.size(); ++i) {
        const SignNumbers& signs = spellings_[i].signs;
        if (signs.size() < 2 || signs.size() > kLongestChanged + 1) {
            continue;
        }
        const HashesWithout hashes(signs);
        for (std::uint32_t at = 0; at < signs.size(); ++at) {
            std::uint32_t& first = bySigns_[hashes[at]].gap;
            gaps_.push_back({i, at, first});
            first = static_cast<std::uint32_t>(gaps_.size() - 1);
        }
    }
}

/// The sign `at` is one that a known spelling lacks.
float Lexicon::more(SignsView signs, std::size_t at) const
{
    const bool last = at + 1 == signs.size();
    return edits_(last ? Edit::AtEnd : Edit::Inside, signs[at], at == 0 ? char16_t{0} : signs[at - 1]) -
           (last ? 0 : logOf(signs.size() - 1));
}

/// A spelling lacks the sign `at` of a known one.
float Lexicon::fewer(const Spelling& known, std::size_t at) const
{
    return edits_(Edit::Without, known.signs[at], at == 0 ? char16_t{0} : known.signs[at - 1]) -
           logOf(known.signs.size());
}

/// Calls `take` with the spelling of each gap from `first` on, and the place of the sign that is left out.
template <typename Take>
void Lexicon::eachGap(std::uint32_t first, Take take) const
{
    for (std::uint32_t i = first; i != 0; i = gaps_[i].next) {
        take(spellings_[gaps_[i].spelling], std::size_t{gaps_[i].at});
    }
}

void Lexicon::changedSpellings(SignsView signs, std::vector<Candidate>& found) const
{
    const auto offer = [&found](const Spelling& known, float score) {
        for (const Use& use : known.uses) {
            found.push_back({use.word, use.near + score});
        }
    };
    const auto offerShorter = [&](const Signs& left, float score) {
        if (left.spelling != 0) {
            offer(spellings_[left.spelling - 1], score);
        }
    };
    const std::size_t length = signs.size();
    if (length < 2) {
        return;
    }
    eachGap(bySigns_.get(hashOf(signs)).gap,
            [&](const Spelling& known, std::size_t gap) { offer(known, fewer(known, gap)); });
    static const float logMoved = std::log(kMoved);
    const float logLength = logOf(length);
    const auto other = [&](std::size_t at, char16_t known) {
        return edits_(Edit::Other, signs[at], known) - logLength;
    };
    const HashesWithout hashes(signs);
    std::array<float, kLongestChanged> added{};
    for (std::size_t at = 0; at < length; ++at) {
        added[at] = more(signs, at);
        const Signs left = bySigns_.get(hashes[at]);
        offerShorter(left, added[at]);
        if (length < kLeastOther) {
            continue;
        }
        eachGap(left.gap, [&](const Spelling& known, std::size_t gap) {
            const char16_t sign = known.signs[gap];
            if (sign == signs[at]) {
                offer(known, logMoved - logLength);
            } else {
                offer(known, gap == at ? other(at, sign) : added[at] + fewer(known, gap));
            }
        });
    }
    for (std::size_t at = 0; length >= kLeastOther && length <= kLongestForTwo && at < length; ++at) {
        for (std::size_t next = at + 1; next < length; ++next) {
            const Signs left = bySigns_.get(hashes.without(at, next));
            offerShorter(left, added[at] + added[next]);
            if (length == kLeastOther) {
                continue;
            }
            eachGap(left.gap, [&](const Spelling& known, std::size_t gap) {
                if (gap == at) {
                    offer(known, added[next] + other(at, known.signs[gap]));
                } else if (gap + 1 == next) {
                    offer(known, added[at] + other(next, known.signs[gap]));
                }
            });
        }
    }
}

void Lexicon::candidates(SignsView signs, std::vector<Candidate>& found) const
{
    if (signs.size() > kLongest) {
        return;
    }
    thread_local std::vector<Candidate> all;
    all.clear();
    if (const std::uint32_t known = bySigns_.get(hashOf(signs)).spelling; known != 0) {
        for (const Use& use : spellings_[known - 1].uses) {
            all.push_back({use.word, use.exact});
        }
    }
    if (signs.size() <= kLongestChanged) {
        changedSpellings(signs, all);
    }
    const auto weight = [this](const Candidate& candidate) {
        return candidate.score + weights_[candidate.word];
    };
    const auto lighter = [&](const Candidate& a, const Candidate& b) { return weight(a) < weight(b); };
    const auto first = static_cast<std::ptrdiff_t>(found.size());
    for (const Candidate& candidate : all) {
        const auto begin = found.begin() + first;
        const auto same =
            std::find_if(begin, found.end(), [&](const auto& c) { return c.word == candidate.word; });
        if (same != found.end()) {
            same->score = std::max(same->score, candidate.score);
        } else if (static_cast<std::size_t>(found.end() - begin) < kKept) {
            found.push_back(candidate);
        } else if (const auto least = std::min_element(begin, found.end(), lighter);
                   lighter(*least, candidate)) {
            *least = candidate;
        }
    }
}

std::uint32_t Lexicon::numberOf(const std::string& transliteration) const
{
    const auto known = numbers_.find(transliteration);
    return known == numbers_.end() ? 0 : known->second;
}

}  // namespace karvel
