// How long it takes to split a long phrase over a large dictionary, and to build the word list.
//
// Exit status 1 when a figure is over its limit.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "base/SignCode.hpp"
#include "dictionary/Lookup.hpp"
#include "dictionary/WordSplitter.hpp"
#include "files/HostFile.hpp"
#include "words/ItalianSearch.hpp"

namespace {

using namespace karvel;
using Clock = std::chrono::steady_clock;

constexpr int kRounds = 7;

class Dice {
  public:
    std::size_t below(std::size_t limit) { return generator_() % limit; }

    std::string signs(std::size_t count)
    {
        std::string codes;
        while (count-- > 0) {
            codes += signCode(1 + below(kPages), below(kKeys));
        }
        return codes;
    }

    std::string word()
    {
        static constexpr const char* kSyllables[] = {"ca", "sa",  "re",  "to",  "mi", "lu",
                                                     "ne", "gro", "pa",  "de",  "vi", "t\xe0",
                                                     "bo", "fu",  "zia", "que", "Ra", "li"};
        std::string made;
        for (std::size_t n = 2 + below(4); n > 0; --n) {
            made += kSyllables[below(std::size(kSyllables))];
        }
        return made;
    }

  private:
    std::mt19937 generator_{7};
};

void appendRecord(std::string& file, const std::string& signs, Dice& dice)
{
    for (const std::string& field :
         {signs, dice.word() + " " + dice.word(), dice.word(), "sostantivo; Wb " + dice.word()}) {
        file += '"' + field + "\"\r\n";
    }
}

/// The file lies on the disk, as a dictionary does, and in the system's cache, as it does from the second
/// search on.
class File {
  public:
    File(const std::string& name, const std::string& bytes)
        : path_(std::filesystem::temp_directory_path() / (name + std::to_string(processNumber())))
    {
        HostFile(path_, HostFile::Mode::CreateNew).writeAt(0, bytes);
    }
    ~File()
    {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    [[nodiscard]] std::unique_ptr<ByteSource> open() const
    {
        return std::make_unique<HostFile>(path_, HostFile::Mode::Read);
    }

  private:
    std::filesystem::path path_;
};

/// Milliseconds of one run; the runs of the things compared are taken in turn.
template <typename Work>
double milliseconds(const Work& work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

bool splitting()
{
    constexpr std::size_t kRecords = 1'000'000;
    constexpr std::size_t kWords = 10;
    Dice dice;
    std::vector<std::string> words;
    std::string phrase;
    for (std::size_t i = 0; i < kWords; ++i) {
        words.push_back(dice.signs(i < 4 ? 9 : 8));
        phrase += words.back();
    }
    std::string bytes;
    for (std::size_t i = 0; i < kRecords; ++i) {
        const bool isWord = i % (kRecords / kWords) == kRecords / kWords / 2;
        appendRecord(bytes, isWord ? words[i / (kRecords / kWords)] : dice.signs(1 + dice.below(6)), dice);
    }
    const File file("karvel-bench-split", bytes);

    std::vector<double> plain;
    std::vector<double> split;
    std::size_t found = 0;
    for (int round = 0; round < kRounds; ++round) {
        plain.push_back(milliseconds([&] {
            RecordReader reader(file.open());
            Lookup lookup(reader, MatchRule(Mode::Equal, phrase));
            while (lookup.next()) {
            }
        }));
        split.push_back(milliseconds([&] {
            found = 0;
            for (std::string_view rest = phrase; !rest.empty(); ++found) {
                RecordReader reader(file.open());
                const auto word = longestWord(reader, rest);
                if (!word) {
                    break;
                }
                rest.remove_prefix(word->length);
            }
        }));
    }
    const double passes = median(split) / median(plain);
    std::printf(
        "splitting %zu signs into %zu words over %zu records (%zu bytes):\n"
        "  plain pass %.1f ms, splitting %.1f ms = %.2f passes (limit 12)\n",
        phrase.size() / kCodeLength, found, kRecords, bytes.size(), median(plain), median(split), passes);
    return found == kWords && passes <= 12;
}

bool listing()
{
    constexpr std::size_t kTranslations = 100'000;
    Dice dice;
    std::string bytes;
    for (std::size_t i = 0; i < kTranslations; ++i) {
        appendRecord(bytes, dice.signs(1 + dice.below(6)), dice);
    }
    const File file("karvel-bench-list", bytes);
    std::vector<double> times;
    std::size_t lines = 0;
    for (int round = 0; round < kRounds; ++round) {
        times.push_back(milliseconds([&] {
            RecordReader reader(file.open());
            lines = wordList(reader).size();
        }));
    }
    // Other work on the machine can only make a round longer.
    const double fastest = std::ranges::min(times);
    std::printf("word list of %zu translations: %zu lines in %.1f ms, median %.1f ms (limit 1000)\n",
                kTranslations, lines, fastest, median(times));
    return fastest < 1000;
}

}  // namespace

int main()
{
    const bool split = splitting();
    const bool list = listing();
    return split && list ? 0 : 1;
}
