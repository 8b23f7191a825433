// Measures the reader on passages whose words are known: rates DICTIONARY MODEL PASSAGES. The passages are
// one a line, as `tools/make-model --hold-out` writes them: period, tab, words separated by blanks, each
// "codes|transliteration".

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

#include "base/SignCode.hpp"
#include "reading/Reader.hpp"

namespace {

using namespace karvel;

using Ranges =
    std::map<std::pair<std::size_t, std::size_t>, std::string>;  ///< (begin, end) in signs: the word

struct Rates {
    double words = 0, found = 0, ranges = 0, right = 0;
    double cuts = 0, cutsFound = 0, cutsRight = 0;
};

/// z and s are one sound to every search of the dictionary.
std::string folded(std::string text)
{
    std::ranges::replace(text, 'z', 's');
    return text;
}

double harmonic(double right, double found, double expected)
{
    return 2 * right / (found + expected);
}

void judge(const Ranges& expected, const Ranges& read, Rates& rates)
{
    rates.words += static_cast<double>(expected.size());
    rates.found += static_cast<double>(read.size());
    for (const auto& [range, word] : read) {
        const auto same = expected.find(range);
        rates.ranges += same != expected.end() ? 1 : 0;
        rates.right += same != expected.end() && same->second == word ? 1 : 0;
    }
    const auto cutAt = [&](std::size_t at) {
        return at > 0 &&
               std::ranges::any_of(expected, [&](const auto& word) { return word.first.first == at; });
    };
    rates.cuts += static_cast<double>(expected.size()) - 1;
    rates.cutsFound += static_cast<double>(read.size()) - 1;
    for (const auto& [range, word] : read) {
        rates.cutsRight += cutAt(range.first) ? 1 : 0;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "rates DICTIONARY MODEL PASSAGES\n");
        return 2;
    }
    const auto begin = std::chrono::steady_clock::now();
    const Reader reader(FileSystem(Drives::ofUser()), argv[1], argv[2]);
    const std::chrono::duration<double, std::milli> loading = std::chrono::steady_clock::now() - begin;
    std::map<std::string, Rates> periods;
    std::size_t signs = 0;
    std::clock_t busy = 0;
    std::ifstream passages(argv[3]);
    for (std::string period, line; std::getline(passages, period, '\t') && std::getline(passages, line);) {
        std::istringstream words(line);
        std::string codes;
        Ranges expected;
        for (std::string word; words >> word;) {
            const std::size_t at = codes.size() / kCodeLength;
            codes += word.substr(0, word.find('|'));
            expected[{at, codes.size() / kCodeLength}] = folded(word.substr(word.find('|') + 1));
        }
        Ranges read;
        const std::clock_t start = std::clock();
        const auto found = reader.read(codes);
        busy += std::clock() - start;
        for (const ReadWord& word : found) {
            read[{word.begin, word.begin + word.length}] =
                word.known ? folded(word.choice.transliteration) : "";
        }
        signs += codes.size() / kCodeLength;
        judge(expected, read, periods[period]);
    }
    std::printf("loading %.0f ms, %.1f ms of processor time per 1,000 signs %s\n", loading.count(),
                1e6 * static_cast<double>(busy) / CLOCKS_PER_SEC / static_cast<double>(signs),
                reader.warning().c_str());
    for (const auto& [period, r] : periods) {
        std::printf("%s: %.0f words, right %.4f, F of words' places %.4f, F of cuts %.4f\n", period.c_str(),
                    r.words, r.right / r.words, harmonic(r.ranges, r.found, r.words),
                    harmonic(r.cutsRight, r.cutsFound, r.cuts));
    }
}
