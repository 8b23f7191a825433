#include "dictionary/Answers.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace karvel {

namespace {

std::string counted(std::size_t number, std::string_view one, std::string_view many)
{
    return std::to_string(number) + " " + std::string(number == 1 ? one : many);
}

}  // namespace

Answers::Answers(std::vector<Answer> found, SignMarks marks)
    : all_(std::move(found)), marks_(std::move(marks))
{
    sort(Order::BestFirst);
}

void Answers::sort(Order order)
{
    std::vector<std::size_t> sorted(all_.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    if (order == Order::BestFirst) {
        std::ranges::stable_sort(sorted, {}, [&](std::size_t answer) { return all_[answer].rank; });
    }
    words_.clear();
    constexpr std::size_t kNone = -1;
    std::vector<std::size_t> lines;  // by the number of the word
    for (const std::size_t answer : sorted) {
        const std::size_t word = all_[answer].word;
        lines.resize(std::max(lines.size(), word + 1), kNone);
        if (lines[word] == kNone) {
            lines[word] = words_.size();
            words_.emplace_back();
        }
        words_[lines[word]].spellings.push_back(answer);
    }
}

std::string Answers::counts() const
{
    return counted(words_.size(), "parola", "parole") + ", " + counted(all_.size(), "voce", "voci");
}

std::optional<Rank> signRank(std::string_view signs, std::string_view phrase)
{
    const std::size_t at = signs.find(phrase);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    return Rank{.tier = static_cast<std::uint8_t>(signs == phrase ? 0 : at == 0 ? 2 : 3)};
}

PhraseMatches::PhraseMatches(RecordReader& reader, Mode mode, std::string_view phrase)
    : reader_(reader), phrase_(phrase), rule_(mode, phrase)
{
    reader_.leaveOutWithout(rule_.textInMatches());
}

bool PhraseMatches::step(std::vector<Answer>& found)
{
    if (!reader_.next()) {
        return false;
    }
    if (rule_.matches(reader_.record().signs)) {
        auto entry = std::make_shared<const DictionaryEntry>(reader_.record().decoded());
        // A phrase with a missing sign stands in no entry; each answer begins with its first part.
        const Rank rank = signRank(entry->signs, phrase_).value_or(Rank{.tier = 2});
        const std::size_t word = words_.of(*entry);
        found.push_back({.entry = std::move(entry), .rank = rank, .word = word});
    }
    return true;
}

}  // namespace karvel
