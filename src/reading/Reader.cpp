#include "reading/Reader.hpp"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.hpp"
#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "dictionary/RecordReader.hpp"
#include "reading/Model.hpp"

namespace karvel {

namespace {

constexpr std::size_t kModelLimit = 16U << 20U;  ///< bytes; the installed one has two million
constexpr std::size_t kAlternatives = 5;
constexpr float kEntryCount = 1.0F;    ///< an entry counts as much as a spelling seen once
constexpr float kLikelyOther = 0.01F;  ///< less likely words come after the other meanings of the word itself

/// The dictionary also holds lines that are no words: those for looking up from Italian and those that show a
/// sign.
bool isWord(const DictionaryEntry& entry)
{
    return !entry.note.ends_with("; rinvio") &&
           !(entry.note.starts_with("segno ") && entry.signs.size() == kCodeLength);
}

/// What tells one word from another: its transliteration, or its translation where the user gave none.
template <typename Named>
std::string keyOf(const Named& word)
{
    return word.transliteration.empty() ? "\t" + word.translation : word.transliteration;
}

bool sameWord(const ReadingChoice& a, const ReadingChoice& b)
{
    return a.transliteration == b.transliteration && a.translation == b.translation;
}

std::optional<ReadingModel> readModel(const FileSystem& files, std::string_view path)
{
    try {
        return parseModel(files.readAll(path, kModelLimit));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::string valuesOf(std::string_view codes)
{
    std::string values;
    for (const std::string_view code : splitCodes(codes)) {
        const SignInfo* const sign = SignRepertoire::standard().byCode(code);
        if (sign == nullptr) {
            continue;
        }
        for (const std::string_view value : sign->values) {
            values += values.empty() ? "" : "/";
            values += value;
        }
    }
    return values;
}

/// The ranges of `fixed` that can stand beside each other in a passage of so many signs, in order.
std::vector<FixedWord> standing(std::span<const FixedWord> fixed, std::size_t signs)
{
    std::vector<FixedWord> result;
    for (const FixedWord& word : fixed) {
        const bool inside = word.length > 0 && word.begin < signs && word.length <= signs - word.begin;
        const bool free = std::ranges::none_of(result, [&](const FixedWord& other) {
            return word.begin < other.begin + other.length && other.begin < word.begin + word.length;
        });
        if (inside && free) {
            result.push_back(word);
        }
    }
    std::ranges::sort(result, {}, &FixedWord::begin);
    return result;
}

/// Neighbouring signs that are no word become one range, unless a hand set its ends.
std::vector<Reading> joined(const std::vector<Reading>& readings, std::span<const FixedWord> fixed)
{
    const auto byHand = [&](const Reading& reading) {
        return std::ranges::find(fixed, reading.begin, &FixedWord::begin) != fixed.end();
    };
    std::vector<Reading> result;
    for (const Reading& reading : readings) {
        const bool join = !result.empty() && result.back().word == 0 && reading.word == 0 &&
                          !byHand(result.back()) && !byHand(reading);
        if (join) {
            result.back().length += reading.length;
            result.back().probability = std::min(result.back().probability, reading.probability);
        } else {
            result.push_back(reading);
        }
    }
    return result;
}

/// The choice of the hand comes first; what the reader proposed becomes an alternative.
void fix(ReadWord& word, const FixedWord& fixed)
{
    word.fixed = true;
    if (!fixed.choice || sameWord(*fixed.choice, word.choice)) {
        return;
    }
    std::erase_if(word.alternatives,
                  [&](const ReadingChoice& other) { return sameWord(other, *fixed.choice); });
    if (word.known) {
        word.alternatives.insert(word.alternatives.begin(), word.choice);
    }
    word.alternatives.resize(std::min(word.alternatives.size(), kAlternatives));
    word.choice = *fixed.choice;
    word.known = true;
}

}  // namespace

Reader::Reader(const FileSystem& files, std::string_view dictionary, std::string_view model)
{
    RecordReader records(files.open(dictionary));
    while (records.next()) {
        DictionaryEntry entry = records.record().decoded();
        if (isWord(entry) && isSignSequence(entry.signs)) {
            entries_.push_back(std::move(entry));
        }
    }
    const auto counts = readModel(files, model);
    if (!counts) {
        warning_ = "Il modello di lettura " + std::string(model) +
                   " manca o è danneggiato: la lettura si basa sul solo dizionario.";
    }
    lexicon_ = std::make_unique<Lexicon>(counts.value_or(ReadingModel{}));
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
        // Without a model the order of the dictionary, the commonest first, is all that tells how common a
        // word is.
        const float common = counts ? 0.0F : 10000.0F / static_cast<float>(100 + i);
        const std::uint32_t word =
            lexicon_->add(signsOf(entries_[i].signs), keyOf(entries_[i]), kEntryCount, common);
        entriesOf_.resize(std::max<std::size_t>(entriesOf_.size(), word + 1));
        entriesOf_[word].push_back(i);
    }
    lexicon_->finish();
    entriesOf_.resize(lexicon_->words().size());
    following_ = std::make_unique<Following>(counts.value_or(ReadingModel{}), *lexicon_);
}

std::vector<ReadWord> Reader::read(std::string_view codes, std::span<const FixedWord> fixed) const
{
    const SignNumbers signs = signsOf(codes);
    const std::vector<FixedWord> valid = standing(fixed, signs.size());
    std::vector<FixedRange> ranges;
    ranges.reserve(valid.size());
    for (const FixedWord& word : valid) {
        ranges.push_back(
            {word.begin, word.length, word.choice ? lexicon_->numberOf(keyOf(*word.choice)) : 0});
    }
    const Lattice lattice(*lexicon_, *following_, signs, ranges);
    std::vector<ReadWord> words;
    auto hand = valid.begin();
    for (const Reading& reading : joined(lattice.best(), valid)) {
        ReadWord word =
            wordOf(reading, codes.substr(reading.begin * kCodeLength, reading.length * kCodeLength), lattice);
        if (hand != valid.end() && hand->begin == word.begin) {
            fix(word, *hand++);
        }
        words.push_back(std::move(word));
    }
    return words;
}

std::vector<ReadingChoice> Reader::choicesOf(const Reading& reading, std::string_view codes) const
{
    std::vector<ReadingChoice> choices;
    const auto add = [&](const DictionaryEntry& entry) {
        ReadingChoice choice{entry.transliteration, entry.translation, entry.note,
                             std::min(reading.probability, 1.0F)};
        if (std::ranges::none_of(choices, [&](const auto& other) { return sameWord(other, choice); })) {
            choices.push_back(std::move(choice));
        }
    };
    const auto& entries = entriesOf_[reading.word];
    for (const std::uint32_t entry : entries) {
        if (entries_[entry].signs == codes) {
            add(entries_[entry]);
        }
    }
    if (choices.empty() && !entries.empty()) {
        add(entries_[entries.front()]);
    }
    if (choices.empty()) {
        choices.push_back({lexicon_->words()[reading.word].transliteration, {}, {}, reading.probability});
    }
    return choices;
}

std::vector<Reading> Reader::othersOn(const Reading& reading, std::string_view codes,
                                      const Lattice& lattice) const
{
    std::vector<Reading> others = lattice.on(reading.begin, reading.length);
    std::vector<Lexicon::Candidate> candidates;
    lexicon_->candidates(signsOf(codes), candidates);
    std::ranges::sort(candidates, std::greater(), &Lexicon::Candidate::score);
    for (const auto& candidate : candidates) {
        if (std::ranges::find(others, candidate.word, &Reading::word) == others.end()) {
            others.push_back({reading.begin, reading.length, candidate.word, 0});
        }
    }
    std::erase_if(others,
                  [&](const Reading& other) { return other.word == reading.word || other.word == 0; });
    return others;
}

ReadWord Reader::wordOf(const Reading& reading, std::string_view codes, const Lattice& lattice) const
{
    ReadWord word{reading.begin, reading.length, reading.word != 0, false, {}, {}};
    std::vector<ReadingChoice> meanings;
    if (word.known) {
        meanings = choicesOf(reading, codes);
        word.choice = meanings.front();
        meanings.erase(meanings.begin());
    } else {
        word.choice.transliteration = valuesOf(codes);
    }
    bool meaningsTold = false;
    const auto tellMeanings = [&] {
        word.alternatives.insert(word.alternatives.end(), meanings.begin(), meanings.end());
        meaningsTold = true;
    };
    for (const Reading& other : othersOn(reading, codes, lattice)) {
        if (!meaningsTold && other.probability < kLikelyOther) {
            tellMeanings();
        }
        word.alternatives.push_back(choicesOf(other, codes).front());
    }
    if (!meaningsTold) {
        tellMeanings();
    }
    word.alternatives.resize(std::min(word.alternatives.size(), kAlternatives));
    return word;
}

}  // namespace karvel
