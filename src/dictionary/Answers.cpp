#include "dictionary/Answers.hpp"

#include <algorithm>
#include <utility>

#include "base/SignCode.hpp"

namespace karvel {

namespace {

std::string counted(std::size_t number, std::string_view one, std::string_view many)
{
    return std::to_string(number) + " " + std::string(number == 1 ? one : many);
}

}  // namespace

void Answers::add(Answer answer)
{
    const auto [found, isNew] =
        byWord_.try_emplace(Key{answer.entry->transliteration, answer.entry->translation}, words_.size());
    if (isNew) {
        lines_.push_back(words_.size());
        words_.emplace_back();
    }
    words_[found->second].spellings.push_back(all_.size());
    all_.push_back(std::move(answer));
}

Answers Answers::of(const std::vector<Answer>& found)
{
    Answers answers;
    answers.all_.reserve(found.size());
    answers.words_.reserve(found.size());
    answers.lines_.reserve(found.size());
    answers.byWord_.reserve(found.size());
    for (const Answer& answer : found) {
        answers.add(answer);
    }
    answers.sort(Order::BestFirst);
    return answers;
}

Answers Answers::unfolded(const std::vector<Answer>& found)
{
    Answers answers;
    answers.all_ = found;
    for (std::size_t word = 0; word < found.size(); ++word) {
        answers.words_.push_back({{word}});
        answers.lines_.push_back(word);
    }
    return answers;
}

void Answers::sort(Order order)
{
    const auto before = [&](std::size_t left, std::size_t right) {
        const Answer& a = all_[left];
        const Answer& b = all_[right];
        return order == Order::BestFirst && a.rank != b.rank ? a.rank < b.rank : a.order < b.order;
    };
    for (Word& word : words_) {
        std::ranges::sort(word.spellings, before);
    }
    std::ranges::sort(lines_, before, [&](std::size_t index) { return words_[index].spellings.front(); });
}

std::string Answers::counts() const
{
    return counted(words_.size(), "parola", "parole") + ", " + counted(all_.size(), "voce", "voci");
}

bool markMatch(std::string_view signs, std::string_view phrase, Answer& answer)
{
    const std::size_t at = signs.find(phrase);
    if (at == std::string_view::npos) {
        return false;
    }
    answer.rank = {.tier = static_cast<std::uint8_t>(signs == phrase ? 0 : at == 0 ? 2 : 3)};
    answer.markedFrom = at / kCodeLength;
    answer.marked = phrase.size() / kCodeLength;
    return true;
}

PhraseMatches::PhraseMatches(RecordReader& reader, Mode mode, std::string_view phrase)
    : reader_(reader), mode_(mode), phrase_(phrase), rule_(mode, phrase)
{
    reader_.leaveOutWithout(rule_.textInMatches());
}

bool PhraseMatches::step(std::vector<Answer>& found)
{
    if (!reader_.next()) {
        return false;
    }
    if (!rule_.matches(reader_.record().signs)) {
        return true;
    }
    Answer answer{.entry = std::make_shared<DictionaryEntry>(reader_.record().decoded()),
                  .order = matches_++};
    const std::string_view signs = answer.entry->signs;
    if (!markMatch(signs, phrase_, answer)) {
        // A phrase with a missing sign: the signs before the gap are marked.
        answer.rank.tier = 2;
        answer.marked = phrase_.substr(0, phrase_.find(kMissingSign)).size() / kCodeLength;
    } else if (mode_ == Mode::EndsWith) {
        answer.markedFrom = signs.size() / kCodeLength - answer.marked;
    }
    found.push_back(std::move(answer));
    return true;
}

}  // namespace karvel
