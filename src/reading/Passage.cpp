#include "reading/Passage.hpp"

#include <algorithm>
#include <utility>

#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"
#include "text/CodePage.hpp"
#include "text/PhraseText.hpp"
#include "text/Transliteration.hpp"

namespace karvel {

namespace {

/// Between signs: blanks, and what the Manuel de Codage writes to arrange and to join.
constexpr std::string_view kSeparators = " \t\r-:*()&!_<>=";
constexpr char32_t kFirstHieroglyph = 0x13000;
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Collects characters up to the end of a piece, whose place is known.
class SignCollector {
  public:
    explicit SignCollector(SignForm preferred) : preferred_(preferred) {}

    void add(char32_t character)
    {
        ++column_;
        if (character == U'\n') {
            finish();
            signs_.lines.push_back(signs_.codes.size() / kCodeLength);
            ++line_;
            column_ = 0;
        } else if (character < 0x80 &&
                   kSeparators.find(static_cast<char>(character)) != std::string_view::npos) {
            finish();
        } else {
            if (character >= kFirstHieroglyph) {
                finish();
            }
            start_ = piece_.empty() ? column_ : start_;
            appendCharacter(piece_, character);
            if (character >= kFirstHieroglyph) {
                finish();
            }
        }
    }

    void finish()
    {
        const SignInfo* const sign =
            preferred_ == SignForm::Gardiner ? SignRepertoire::standard().byGardiner(piece_) : nullptr;
        if (sign != nullptr) {
            signs_.codes += sign->code;
            piece_.clear();
            return;
        }
        const ReadPhrase phrase = readPhrase(piece_);
        piece_.clear();
        for (const std::string& code : phrase.codes) {
            signs_.codes += code;
        }
        for (const std::string& unknown : phrase.unknown) {
            signs_.unknown.push_back({unknown, line_, start_});
        }
    }

    [[nodiscard]] PassageSigns& signs() { return signs_; }

  private:
    SignForm preferred_;
    PassageSigns signs_;
    std::string piece_;
    std::size_t line_ = 1;
    std::size_t column_ = 0;
    std::size_t start_ = 1;
};

/// The first meaning of a translation: up to a comma or semicolon that is in no brackets.
std::string_view firstMeaning(std::string_view translation)
{
    int depth = 0;
    for (std::size_t i = 0; i < translation.size(); ++i) {
        const char c = translation[i];
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (depth <= 0 && (c == ',' || c == ';')) {
            return translation.substr(0, i);
        }
    }
    return translation;
}

}  // namespace

PassageSigns readSigns(std::string_view utf8, SignForm preferred)
{
    SignCollector collector(preferred);
    for (std::size_t at = 0; at < utf8.size();) {
        collector.add(nextCharacter(utf8, at));
    }
    collector.finish();
    return std::move(collector.signs());
}

std::string passageText(std::string_view bytes)
{
    const bool marked = bytes.starts_with(kUtf8Mark);
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t start = at;
        if (nextCharacter(bytes, at) == kReplacement && bytes.substr(start, at - start) != "\uFFFD") {
            return decode(bytes);
        }
    }
    return std::string(bytes.substr(marked ? kUtf8Mark.size() : 0));
}

std::string printedReading(const ReadWord& word)
{
    const std::string printed = printedTransliteration(word.choice.transliteration);
    return word.known ? printed : "[" + printed + "]";
}

void Passage::use(const Reader& reader)
{
    reader_ = &reader;
    read();
}

void Passage::setText(const std::string& text)
{
    if (text != work_.text) {
        change({text, {}});
    }
}

void Passage::open(HandWork work)
{
    if (work != work_) {
        change(std::move(work));
    }
}

std::string Passage::codesOf(const ReadWord& word) const
{
    return signs_.codes.substr(word.begin * kCodeLength, word.length * kCodeLength);
}

bool Passage::endsLine(const ReadWord& word) const
{
    return std::ranges::any_of(
        signs_.lines, [&](std::size_t end) { return end > word.begin && end <= word.begin + word.length; });
}

void Passage::choose(std::size_t word, ReadingChoice choice)
{
    if (word < words_.size()) {
        const auto [begin, length] = std::pair(words_[word].begin, words_[word].length);
        choice.confidence = 1;
        fix(begin, begin + length, {{begin, length, std::move(choice)}});
    }
}

void Passage::chooseNext(std::size_t word)
{
    if (word >= words_.size() || reader_ == nullptr) {
        return;
    }
    const ReadWord& present = words_[word];
    // With its range alone fixed the word has its choices in the reader's own order.
    const FixedWord range{present.begin, present.length, {}};
    std::vector<FixedWord> fixed = work_.fixed;
    std::erase_if(fixed, [&](const FixedWord& other) { return other.begin == range.begin; });
    fixed.push_back(range);
    const auto words = reader_->read(signs_.codes, fixed);
    const auto own = std::ranges::find(words, range.begin, &ReadWord::begin);
    if (own == words.end()) {
        return;
    }
    std::vector<ReadingChoice> choices = own->alternatives;
    if (own->known) {
        choices.insert(choices.begin(), own->choice);
    }
    if (choices.empty()) {
        return;
    }
    const auto at = std::ranges::find_if(choices, [&](const ReadingChoice& choice) {
        return choice.transliteration == present.choice.transliteration &&
               choice.translation == present.choice.translation && choice.note == present.choice.note;
    });
    const std::size_t next = at == choices.end() ? 0 : static_cast<std::size_t>(at - choices.begin()) + 1;
    choose(word, choices[next % choices.size()]);
}

void Passage::joinWithNext(std::size_t word)
{
    if (word + 1 < words_.size()) {
        const std::size_t begin = words_[word].begin;
        const std::size_t end = words_[word + 1].begin + words_[word + 1].length;
        fix(begin, end, {{begin, end - begin, {}}});
    }
}

void Passage::divide(std::size_t word, std::size_t signs)
{
    if (word < words_.size() && signs > 0 && signs < words_[word].length) {
        const auto [begin, length] = std::pair(words_[word].begin, words_[word].length);
        fix(begin, begin + length, {{begin, signs, {}}, {begin + signs, length - signs, {}}});
    }
}

void Passage::release(std::size_t word)
{
    if (word < words_.size() && words_[word].fixed) {
        fix(words_[word].begin, words_[word].begin + words_[word].length, {});
    }
}

bool Passage::undo()
{
    if (earlier_.empty()) {
        return false;
    }
    work_ = std::move(earlier_.back());
    earlier_.pop_back();
    read();
    return true;
}

std::string Passage::transliteration() const
{
    std::string text;
    for (std::size_t i = 0; i < words_.size(); ++i) {
        const std::string printed = printedReading(words_[i]);
        const bool first = i == 0;
        const bool newLine = !first && endsLine(words_[i - 1]);
        text += newLine ? "\n" : first || printed.starts_with('=') ? "" : " ";
        text += printed;
    }
    return text;
}

std::string Passage::translation() const
{
    std::string text;
    for (std::size_t i = 0; i < words_.size(); ++i) {
        const std::string_view meaning = firstMeaning(words_[i].choice.translation);
        text += meaning.empty() ? "[?]" : meaning;
        text += i + 1 == words_.size() ? "" : endsLine(words_[i]) ? "\n" : " | ";
    }
    return text;
}

void Passage::fix(std::size_t begin, std::size_t end, std::vector<FixedWord> added)
{
    HandWork work = work_;
    std::erase_if(work.fixed, [&](const FixedWord& word) {
        return word.begin < end && begin < word.begin + word.length;
    });
    work.fixed.insert(work.fixed.end(), added.begin(), added.end());
    std::ranges::sort(work.fixed, {}, &FixedWord::begin);
    change(std::move(work));
}

void Passage::change(HandWork work)
{
    earlier_.push_back(std::exchange(work_, std::move(work)));
    read();
}

void Passage::read()
{
    signs_ = readSigns(work_.text);
    words_ = reader_ != nullptr ? reader_->read(signs_.codes, work_.fixed) : std::vector<ReadWord>();
}

}  // namespace karvel
