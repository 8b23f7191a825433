#include "dictionary/WordQuestion.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/SignCode.hpp"
#include "text/CodePage.hpp"
#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"

namespace karvel {

namespace {

constexpr std::uint8_t kWhole = 0;
constexpr std::uint8_t kWholeWord = 1;
constexpr std::uint8_t kWordBeginning = 2;
constexpr std::uint8_t kInside = 3;

/// Senses and readings beyond this one rank alike.
constexpr std::size_t kLastPlace = 9;
/// Added to a place: a looser match ranks behind every stricter one of its tier.
constexpr std::uint8_t kLooser = 10;

constexpr std::string_view kWordBorders = " ,(";

bool isLetter(char32_t character)
{
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           character > 0x7F;
}

/// Capitals without accents; one blank for each run of other characters, none at either end.
std::string foldedWords(std::string_view utf8)
{
    const std::string capitals = decode(foldedBytes(encode(utf8)));
    std::string folded;
    for (const char byte : capitals) {
        if (isLetter(static_cast<unsigned char>(byte))) {
            folded += byte;
        } else if (!folded.empty() && folded.back() != ' ') {
            folded += ' ';
        }
    }
    if (folded.ends_with(' ')) {
        folded.pop_back();
    }
    return folded;
}

/// A translation as ",SENSE,SENSE(REMARK,": a remark in brackets stands behind its sense, so that "padre (del
/// dio)" has the sense PADRE alone.
std::string foldedSenses(std::string_view translation)
{
    std::string folded = ",";
    std::string sense;
    std::string remark;
    int brackets = 0;
    const auto end = [&] {
        const std::string words = foldedWords(sense);
        const std::string aside = foldedWords(remark);
        if (!words.empty() || !aside.empty()) {
            folded += words + (aside.empty() ? "" : "(" + aside) + ",";
        }
        sense.clear();
        remark.clear();
    };
    for (const char byte : translation) {
        if (byte == '(') {
            ++brackets;
            remark += ' ';
        } else if (byte == ')') {
            brackets = std::max(0, brackets - 1);
        } else if (brackets == 0 && (byte == ',' || byte == ';')) {
            end();
        } else {
            (brackets == 0 ? sense : remark) += byte;
        }
    }
    end();
    return folded;
}

std::vector<std::string> partedBy(std::string_view text, char border)
{
    std::vector<std::string> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(border, at), text.size());
        if (end > at) {
            parts.emplace_back(text.substr(at, end - at));
        }
        at = end + 1;
    }
    return parts;
}

bool isBorder(char byte)
{
    return kWordBorders.find(byte) != std::string_view::npos;
}

/// The number of the sense or reading in which `at` lies, 0 for the first.
std::uint8_t placeOf(std::string_view folded, std::size_t at)
{
    const auto commas = std::count(folded.begin(), folded.begin() + static_cast<std::ptrdiff_t>(at), ',');
    return static_cast<std::uint8_t>(std::min<std::size_t>(static_cast<std::size_t>(commas) - 1, kLastPlace));
}

bool inRemark(std::string_view folded, std::size_t at)
{
    const std::size_t opened = folded.rfind('(', at);
    return opened != std::string_view::npos && folded.find(',', opened) > at;
}

/// How `text` stands at `at`, which is behind the first comma of `folded`.
Rank rankAt(std::string_view folded, std::string_view text, std::size_t at)
{
    const char before = folded[at - 1];
    const char after = folded[at + text.size()];
    Rank rank{.tier = kInside, .place = placeOf(folded, at)};
    if (before == ',' && (after == ',' || after == '(')) {
        const bool onlyOne = at == 1 && folded.find(',', at) + 1 == folded.size();
        rank.tier = kWhole;
        rank.place = static_cast<std::uint8_t>(onlyOne && after == ',' ? 0 : rank.place + 1);
    } else if (isBorder(before)) {
        rank.tier = isBorder(after) ? kWholeWord : kWordBeginning;
        rank.place += inRemark(folded, at) ? kLooser : 0;
    }
    return rank;
}

std::optional<Rank> bestRank(std::string_view folded, std::string_view text)
{
    std::optional<Rank> best;
    for (std::size_t at = 0; (at = folded.find(text, at)) != std::string_view::npos; ++at) {
        const Rank rank = rankAt(folded, text, at);
        if (!best || rank < *best) {
            best = rank;
        }
    }
    return best;
}

std::string foldedReadings(std::string_view transliteration)
{
    std::string folded = ",";
    for (const std::string& reading : partedBy(transliteration, ',')) {
        folded += transliterationKey(reading) + ",";
    }
    return folded;
}

/// Whether `text` has the form of `pattern`, in which "*" is any letters and "?" is one.
bool hasForm(std::string_view text, std::string_view pattern)
{
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::optional<Rank> formRank(std::string_view readings, std::string_view pattern)
{
    std::uint8_t place = 0;
    for (std::size_t from = 1; from < readings.size(); from = readings.find(',', from) + 1) {
        if (hasForm(readings.substr(from, readings.find(',', from) - from), pattern)) {
            return Rank{.tier = kWhole, .place = place};
        }
        place = static_cast<std::uint8_t>(std::min<std::size_t>(place + 1U, kLastPlace));
    }
    return std::nullopt;
}

std::optional<Rank> readingRank(std::string_view readings, std::string_view key)
{
    std::optional<Rank> rank = bestRank(readings, key);
    if (rank && rank->tier == kWhole && rank->place > 0) {
        --rank->place;  // one reading of several is as good as the only one
    }
    return rank;
}

/// The codes of a phrase of Gardiner numbers or hieroglyphs; empty when it is none.
std::string codesOf(std::string_view text)
{
    const ReadPhrase phrase = readPhrase(text);
    std::string codes;
    if (phrase.unknown.empty()) {
        for (const std::string& code : phrase.codes) {
            codes += code;
        }
    }
    return codes;
}

}  // namespace

std::string_view nameOf(QuestionKind kind)
{
    constexpr std::array<std::string_view, kQuestionKinds.size()> kNames = {"italiano", "traslitterazione",
                                                                            "segni"};
    return kNames[static_cast<std::size_t>(kind)];
}

FoldedEntry::FoldedEntry(const DictionaryEntry& entry)
    : italian(foldedSenses(entry.translation)),
      transliteration(foldedReadings(entry.transliteration)),
      smallTransliteration(smallLetters(transliteration))
{
}

std::optional<WordQuestion> WordQuestion::make(std::string_view text, QuestionKind kind)
{
    WordQuestion question(kind);
    if (kind == QuestionKind::Italian) {
        question.text_ = foldedWords(text);
        question.words_ = partedBy(question.text_, ' ');
    } else if (kind == QuestionKind::Transliteration) {
        question.text_ = transliterationKey(text);
        std::string letters = question.text_;
        std::erase_if(letters, [](char byte) { return byte == '*' || byte == '?'; });
        if (letters.empty() || !isAsciiTransliteration(letters)) {
            return std::nullopt;
        }
        question.wildcards_ = letters.size() != question.text_.size();
        question.small_ = smallLetters(question.text_);
    } else {
        for (const std::string& part : partedBy(text, '+')) {
            question.parts_.push_back(codesOf(part));
        }
        if (std::ranges::find(question.parts_, std::string()) != question.parts_.end()) {
            return std::nullopt;
        }
        question.text_ = question.parts_.empty() ? std::string() : question.parts_.front();
    }
    return question.text_.empty() ? std::nullopt : std::optional(std::move(question));
}

std::optional<Rank> WordQuestion::rankOf(const DictionaryEntry& entry, const FoldedEntry& folded) const
{
    switch (kind_) {
        case QuestionKind::Italian:
            return italianRank(folded.italian);
        case QuestionKind::Transliteration:
            return transliterationRank(folded);
        case QuestionKind::Signs:
            return signsRank(entry.signs);
    }
    return std::nullopt;
}

std::optional<Rank> WordQuestion::italianRank(std::string_view senses) const
{
    const std::optional<Rank> together = bestRank(senses, text_);
    if (words_.size() == 1 || (together && together->tier == kWhole)) {
        return together;
    }
    Rank worst{.tier = kWholeWord};
    for (const std::string& word : words_) {
        const std::optional<Rank> rank = bestRank(senses, word);
        if (!rank) {
            return std::nullopt;
        }
        worst = std::max(worst, *rank);
    }
    return worst;
}

std::optional<Rank> WordQuestion::transliterationRank(const FoldedEntry& folded) const
{
    const auto rankIn = [this](std::string_view readings, std::string_view key) {
        return wildcards_ ? formRank(readings, key) : readingRank(readings, key);
    };
    std::optional<Rank> small = rankIn(folded.smallTransliteration, small_);
    if (!small) {
        return std::nullopt;  // nor are there the exact letters
    }
    small->place += kLooser;
    const std::optional<Rank> exact = rankIn(folded.transliteration, text_);
    return exact ? std::min(*exact, *small) : *small;
}

std::optional<Rank> WordQuestion::signsRank(std::string_view signs) const
{
    if (parts_.size() == 1) {
        return signRank(signs, text_);
    }
    // Each part takes signs of its own: "F35 + F35" needs two of them.
    std::string left(signs);
    for (const std::string& part : parts_) {
        const std::size_t at = left.find(part);
        if (at == std::string::npos) {
            return std::nullopt;
        }
        left.replace(at, part.size(), part.size(), '-');
    }
    return Rank{.tier = kInside};
}

}  // namespace karvel
