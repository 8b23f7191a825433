// The small pieces that everything else is made of.

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "dictionary/Lookup.hpp"
#include "dictionary/RecordReader.hpp"
#include "files/Drives.hpp"
#include "files/HostFile.hpp"
#include "text/CodePage.hpp"
#include "text/FieldReader.hpp"

namespace {

using namespace karvel;
namespace fs = std::filesystem;

/// A dictionary in memory, 32 MB of the usual records: more than any cache holds.
const std::string& dictionary()
{
    static const std::string text = [] {
        std::string made;
        std::mt19937 random(5);
        while (made.size() < 32'000'000) {
            made += "\"";
            for (auto signs = 1 + random() % 6; signs > 0; --signs) {
                made += {"abcdefghilmnop"[random() % 14], static_cast<char>('0' + random() % 5),
                         static_cast<char>('1' + random() % 9)};
            }
            made += "\"\r\n\"" + std::string(4 + random() % 16, 'x') + "\"\r\n\"nfr\"\r\n\"";
            made += (random() % 2 == 0 ? "" : "sostantivo") + std::string("\"\r\n");
        }
        return made;
    }();
    return text;
}

void countBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

/// No such byte stands there: the speed of looking at memory.
void memchrToTheEnd(benchmark::State& state)
{
    const std::string& text = dictionary();
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::memchr(text.data(), '\x01', text.size()));
    }
    countBytes(state, text.size());
}

/// Stops at every line end, as whoever parts lines must.
void memchrLineByLine(benchmark::State& state)
{
    const std::string& text = dictionary();
    for (auto _ : state) {
        std::size_t lines = 0;
        const char* at = text.data();
        const char* const end = at + text.size();
        while (const void* hit = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
            at = static_cast<const char*>(hit) + 1;
            ++lines;
        }
        benchmark::DoNotOptimize(lines);
    }
    countBytes(state, text.size());
}

void fieldsOneByOne(benchmark::State& state)
{
    for (auto _ : state) {
        TextSource source(dictionary());
        FieldReader reader(source);
        std::size_t bytes = 0;
        while (!reader.atEnd()) {
            bytes += reader.field().size();
        }
        benchmark::DoNotOptimize(bytes);
    }
    countBytes(state, dictionary().size());
}

void recordByRecord(benchmark::State& state)
{
    for (auto _ : state) {
        RecordReader reader(std::make_unique<TextSource>(dictionary()));
        std::size_t bytes = 0;
        while (reader.next()) {
            bytes += reader.record().signs.size();
        }
        benchmark::DoNotOptimize(bytes);
    }
    countBytes(state, dictionary().size());
}

void search(benchmark::State& state)
{
    for (auto _ : state) {
        RecordReader reader(std::make_unique<TextSource>(dictionary()));
        Lookup lookup(reader, MatchRule(static_cast<std::uint8_t>(state.range(0)), "p49p49"));
        std::size_t found = 0;
        while (lookup.next()) {
            ++found;
        }
        benchmark::DoNotOptimize(found);
    }
    countBytes(state, dictionary().size());
}

const std::string kSentence = "La città è più grande del paese: perché non andarci? Già, così è.";

void upperCaseInMemory(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(upperCase(kSentence));
    }
    countBytes(state, kSentence.size());
}

void upperCaseInTheFile(benchmark::State& state)
{
    const std::string bytes = encode(kSentence);
    for (auto _ : state) {
        benchmark::DoNotOptimize(upperCaseBytes(bytes));
    }
    countBytes(state, bytes.size());
}

/// A directory with as many pictures as there are signs.
class SignDirectory {
  public:
    SignDirectory() : above_(fs::temp_directory_path() / ("karvel-micro-" + std::to_string(processNumber())))
    {
        const fs::path signs = above_ / "drive_c" / "programmi" / "Karvel" / "GR";
        fs::create_directories(signs);
        for (const char page : std::string_view("abcdefghilmnop")) {
            for (int key = 1; key <= 53; ++key) {
                std::ofstream(signs /
                              (page + std::string(key < 10 ? "0" : "") + std::to_string(key) + ".gif"));
            }
        }
    }
    ~SignDirectory() { fs::remove_all(above_); }
    SignDirectory(const SignDirectory&) = delete;
    SignDirectory& operator=(const SignDirectory&) = delete;

    [[nodiscard]] Drives drives() const { return Drives(above_ / "drive_c"); }

  private:
    fs::path above_;
};

void lookUp(benchmark::State& state, const char* path)
{
    const SignDirectory directory;
    const Drives drives = directory.drives();
    for (auto _ : state) {
        benchmark::DoNotOptimize(drives.toHost(path));
    }
}

BENCHMARK(memchrToTheEnd)->Unit(benchmark::kMillisecond);
BENCHMARK(memchrLineByLine)->Unit(benchmark::kMillisecond);
BENCHMARK(fieldsOneByOne)->Unit(benchmark::kMillisecond);
BENCHMARK(recordByRecord)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->Name("searchSimilar")->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->Name("searchExactly")->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(upperCaseInMemory);
BENCHMARK(upperCaseInTheFile);
BENCHMARK_CAPTURE(lookUp, asItIsSpelled, "C:\\programmi\\Karvel\\GR\\m27.gif");
BENCHMARK_CAPTURE(lookUp, inCapitals, "C:\\PROGRAMMI\\KARVEL\\GR\\M27.GIF");
BENCHMARK_CAPTURE(lookUp, asSettingsSpellIt, "C:\\Programmi\\Karvel\\GR\\m27.gif");
BENCHMARK_CAPTURE(lookUp, notThere, "C:\\programmi\\Karvel\\GR\\z99.gif");

}  // namespace

BENCHMARK_MAIN();
