// A dictionary of any content, searched in every mode, split into words, listed, counted and verified,
// against what the slow and simple reader finds.

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <set>
#include <vector>

#include "Target.hpp"
#include "dictionary/EntryCount.hpp"
#include "dictionary/Lookup.hpp"
#include "dictionary/Verification.hpp"
#include "dictionary/WordSplitter.hpp"
#include "support/FieldModel.hpp"
#include "text/CodePage.hpp"
#include "words/ItalianSearch.hpp"

using namespace karvel;
using fuzz::require;

namespace {

using Record = std::array<std::string, 4>;

struct WholeFile {
    std::vector<Record> records;
    bool cut = false;  ///< reading ends with error 62
};

WholeFile readWhole(std::string_view text)
{
    WholeFile file;
    for (testing::FieldModel model(text); !model.onlyBlankLinesLeft();) {
        Record record;
        for (std::string& field : record) {
            const auto read = model.field();
            if (!read) {
                file.cut = true;
                return file;
            }
            field = *read;
        }
        file.records.push_back(record);
    }
    return file;
}

bool fits(unsigned mode, const std::string& phrase, const std::string& signs)
{
    const std::size_t missing = phrase.find("p47");
    switch (mode) {
        case 1:
            return signs == phrase;
        case 4:
            return signs.substr(0, phrase.size()) == phrase;
        case 5:
            return signs.size() >= phrase.size() && signs.substr(signs.size() - phrase.size()) == phrase;
        case 6:
            return missing != std::string::npos && fits(4, phrase.substr(0, missing), signs) &&
                   fits(5, phrase.substr(missing + 3), signs);
        default:
            return signs.find(phrase) != std::string::npos;
    }
}

DictionaryEntry decoded(const Record& record)
{
    return {decode(record[0]), decode(record[1]), decode(record[2]), decode(record[3])};
}

class Judge {
  public:
    Judge(std::string_view text, std::size_t window, std::size_t step)
        : text_(text), window_(window), step_(step), file_(readWhole(text))
    {
    }

    void search(unsigned mode, const std::string& phrase) const
    {
        RecordReader reader = open();
        Lookup lookup(reader, MatchRule(modeOf(static_cast<std::uint8_t>(mode)), phrase));
        for (const Record& record : file_.records) {
            if (fits(mode, phrase, record[0])) {
                require(lookup.next(), "every match is found");
                require(reader.record().decoded() == decoded(record), "in the order of the file");
            }
        }
        require(endOf([&] { return lookup.next(); }) == file_.cut, "the end or the cut is told");
        require(file_.records.empty() ? !reader.last() : reader.last() == decoded(file_.records.back()),
                "the last record is kept");
    }

    /// The candidates one by one, the longest first.
    void split(const std::string& phrase) const
    {
        std::optional<Word> expected;
        for (std::size_t length = phrase.size(); !expected && length > 0;
             length -= std::min<std::size_t>(length, 3)) {
            const auto found = std::ranges::find(file_.records, phrase.substr(0, length), signsOf);
            if (found != file_.records.end()) {
                expected = Word{decoded(*found), length};
            }
        }
        const bool whole = expected && expected->length == phrase.size();
        RecordReader reader = open();
        std::optional<Word> word;
        const bool cut = endOf([&] {
            word = longestWord(reader, phrase);
            return false;
        });
        require(cut == (file_.cut && !whole), "splitting tells a cut unless the whole phrase came before");
        if (!cut) {
            require(word.has_value() == expected.has_value(), "a word begins here or not");
            require(!word || (word->entry == expected->entry && word->length == expected->length),
                    "the longest word");
        }
    }

    void italian(const std::string& wanted) const
    {
        for (const Record& record : file_.records) {
            const std::string& bytes = record[1];
            require(
                ItalianWord(wanted, ItalianWord::Match::Whole).matches(bytes) == (decode(bytes) == wanted),
                "an Italian word is compared as it is");
            const bool contains = upperCase(decode(bytes)).find(upperCase(wanted)) != std::string::npos;
            require(ItalianWord(wanted, ItalianWord::Match::Contains).matches(bytes) == contains,
                    "an Italian word is found inside");
        }
    }

    void list() const
    {
        RecordReader reader = open();
        std::vector<std::string> words;
        const bool cut = endOf([&] {
            words = wordList(reader);
            return false;
        });
        require(cut == file_.cut, "the list tells a cut");
        if (cut) {
            return;
        }
        require(words.back().empty(), "the list ends with an empty line");
        std::set<std::string> listed;
        std::set<std::string> expected{""};
        std::ranges::transform(words, std::inserter(listed, listed.end()), upperCase);
        for (const Record& record : file_.records) {
            expected.insert(upperCase(decode(record[1])));
        }
        require(listed == expected, "the list has every translation");
        // The order of texts with a zero byte does not matter: that byte separates the halves of the sorting
        // key.
        const bool ordered = text_.find('\0') == std::string_view::npos;
        for (std::size_t i = 0; ordered && i + 2 < words.size(); ++i) {
            require(foldedBytes(encode(words[i])) <= foldedBytes(encode(words[i + 1])), "the list is sorted");
        }
    }

    void count() const
    {
        std::int64_t fields = 0;
        bool unread = false;  // blanks behind the last field, too, are no end and no field
        for (testing::FieldModel model(text_); !unread && !model.atEnd(); fields += unread ? 0 : 1) {
            unread = !model.field();
        }
        TextSource source(text_);
        const EntryCount counted = countEntries(source);
        require(counted.entries == (fields + 4) / 5, "one entry for five fields");
        require(counted.failure.has_value() == (unread || fields % 5 != 0),
                "a last group that is short fails");
    }

    void check() const
    {
        testing::Dribble source(text_, step_);
        const Verification verified = verify(source);
        const auto right = [](const Record& record) { return isSignSequence(record[0]); };
        const auto bad = std::ranges::find_if_not(file_.records, right);
        require(verified.fault.has_value() == (file_.cut || bad != file_.records.end()), "a fault is told");
        const auto whole = static_cast<std::uint64_t>(bad - file_.records.begin());
        require(verified.records == whole || (verified.fault && verified.records + 1 == whole),
                "the records before the fault are counted");
        const auto lines =
            1 + static_cast<std::uint64_t>(std::ranges::count(text_, '\n') + std::ranges::count(text_, '\r'));
        require(!verified.fault || (verified.fault->line >= 1 && verified.fault->line <= lines),
                "the fault is on a line of the file");
    }

  private:
    static const std::string& signsOf(const Record& record) { return record[0]; }

    [[nodiscard]] RecordReader open() const
    {
        return RecordReader(std::make_unique<testing::Dribble>(text_, step_), window_);
    }

    /// True when `work` ended with error 62; otherwise it must have found nothing.
    template <typename Work>
    static bool endOf(const Work& work)
    {
        try {
            require(!work(), "nothing is found that is not there");
        } catch (const RuntimeError& error) {
            require(error.number() == ErrorNumber::InputPastEnd, "reading fails by the end only");
            return true;
        }
        return false;
    }

    std::string_view text_;
    std::size_t window_;
    std::size_t step_;
    WholeFile file_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const unsigned window = input.byte();
    const std::size_t step = 1 + input.byte() * 16;
    const std::string phrase(input.line());
    // The filter looks at long stretches of records: a short text is repeated to make one.
    constexpr std::size_t kLongest = 1 << 14;
    std::string text(input.rest());
    for (unsigned copies = input.byte() % 64; copies > 0 && text.size() < kLongest; --copies) {
        text += input.rest();
    }
    const Judge judge(text, 16 + window * 16, step);
    for (unsigned mode = 0; mode <= 7; ++mode) {
        judge.search(mode, phrase);
    }
    if (!phrase.empty()) {
        judge.split(phrase);
    }
    judge.italian(phrase);
    judge.list();
    if (window % 16 == 0) {  // these two use a window of the usual size, which is slow to make
        judge.count();
        judge.check();
    }
    return 0;
}
