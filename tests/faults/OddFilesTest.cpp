#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <fstream>

#include "faults/Installation.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::Files;
using testing::Installation;
using testing::Operation;

constexpr const char* kFiles[] = {"dizio.txt",
                                  "settaggi/conf.cfg",
                                  "settaggi/conf2.cfg",
                                  "settaggi/coloreD.prf",
                                  "settaggi/coloreF.prf",
                                  "settaggi/cronologia.txt",
                                  "Undo.dat",
                                  "prefe/pre1.prf",
                                  "GeroLink/speciale.txt",
                                  "GeroLink/prova.txt",
                                  "GeroLink/uomini.txt",
                                  "GeroLink/schedepref.txt",
                                  "edizione/dizio.txt",
                                  "lettura.txt",
                                  "scrittura/segni.dat"};

std::string utf16(std::string_view text)
{
    std::string wide = "\xFF\xFE";
    for (const char c : text) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

/// Replaces the file at `path` by something unusual.
struct Oddity {
    std::string_view name;
    void (*make)(const fs::path& path);
};

void write(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

const Oddity kOddities[] = {
    {"missing", [](const fs::path& path) { fs::remove(path); }},
    {"empty", [](const fs::path& path) { write(path, ""); }},
    {"full of zero bytes", [](const fs::path& path) { write(path, std::string(30'000, '\0')); }},
    {"in UTF-16", [](const fs::path& path) { write(path, utf16(testing::record("a01", "uno") + " 3\r\n")); }},
    {"of lone CRs", [](const fs::path& path) { write(path, std::string(3'000, '\r')); }},
    {"with CRs for line ends",
     [](const fs::path& path) { write(path, "\"a01\"\r\"uno\"\r\"\"\r\"\"\r 3\r"); }},
    {"one endless quote", [](const fs::path& path) { write(path, "\"" + std::string(30'000, 'x')); }},
    {"a directory",
     [](const fs::path& path) {
         fs::remove(path);
         fs::create_directory(path);
     }},
    {"a link to itself",
     [](const fs::path& path) {
         fs::remove(path);
         fs::create_symlink(path, path);
     }},
    {"a link to nothing",
     [](const fs::path& path) {
         fs::remove(path);
         fs::create_symlink(path.parent_path() / "manca" / "manca", path);
     }},
    {"a pipe",
     [](const fs::path& path) {
         fs::remove(path);
         ::mkfifo(path.c_str(), 0600);
     }},
    {"a device without end",
     [](const fs::path& path) {
         fs::remove(path);
         fs::create_symlink("/dev/zero", path);
     }},
};

/// The entries in `bytes`: blank lines behind the last one are none and may be overwritten.
std::string entriesIn(std::string bytes)
{
    bytes.resize(bytes.find_last_not_of(" \r\n") + 1);
    return bytes;
}

std::string entriesOf(const Installation& installation)
{
    return entriesIn(installation.files()["dizio.txt"]);
}

/// Whether the dictionary still begins with `entries`, or was replaced by an update that kept them.
bool keeps(const Installation& installation, const std::string& entries)
{
    return entriesOf(installation).starts_with(entries) ||
           std::ranges::any_of(installation.files(), [&](const auto& file) {
               return file.first.starts_with("dizio.old") && entriesIn(file.second) == entries;
           });
}

class OddFiles : public ::testing::TestWithParam<const char*> {};

TEST_P(OddFiles, AreReadAndWrittenWithoutHarm)
{
    const std::string file = GetParam();
    for (const Oddity& odd : kOddities) {
        SCOPED_TRACE(file + " " + std::string(odd.name));
        Installation installation;
        odd.make(installation.root() / file);
        const Files before = installation.files();
        installation.ui.agrees = false;
        for (const Operation& reading : testing::readings()) {
            installation.attempt(reading.work);
        }
        for (const auto& [name, bytes] : installation.files()) {
            EXPECT_TRUE(testing::isCache(name) || (before.contains(name) && before.at(name) == bytes))
                << name << " changed by reading";
        }
        installation.ui.agrees = true;
        for (const Operation& writing : testing::writings()) {
            const std::string dictionary = entriesOf(installation);
            installation.attempt(writing.work);
            EXPECT_TRUE(keeps(installation, dictionary))
                << writing.name << " took something out of the dictionary";
        }
        // A list of cards that cannot be read to its end would lose names if it were written again.
        if (file == "GeroLink/speciale.txt" && odd.name == "one endless quote") {
            EXPECT_EQ(installation.files().at(file), before.at(file));
        }
    }
}

TEST_P(OddFiles, OfAGigabyteMakeNobodyWait)
{
    Installation installation;
    const fs::path path = installation.root() / GetParam();
    write(path, "\"a01\"\r\n");
    fs::resize_file(path, std::uint64_t{1} << 30);  // sparse: it needs no space on the disk
    for (const auto* const operations : {&testing::readings(), &testing::writings()}) {
        for (const Operation& operation : *operations) {
            const std::clock_t start = std::clock();
            installation.attempt(operation.work);
            EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10) << operation.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, OddFiles, ::testing::ValuesIn(kFiles));

const Operation& named(const std::vector<Operation>& operations, std::string_view name)
{
    return *std::ranges::find(operations, name, &Operation::name);
}

TEST(OddFile, TheUserIsToldWhatIsWrong)
{
    constexpr std::string_view kNothing = "Non esiste una corrispondenza per questo termine !";
    constexpr std::string_view kPastEnd = "Input oltre la fine del file";
    constexpr std::string_view kNoFile = "Errore di accesso al percorso/file";
    const struct {
        const char *file, *oddity, *reading;
        std::string_view told;  ///< "" = no box
    } kCases[] = {
        {"dizio.txt", "missing", "search", "File non trovato"},
        {"dizio.txt", "empty", "search", kNothing},
        {"dizio.txt", "full of zero bytes", "search", kPastEnd},
        {"dizio.txt", "of lone CRs", "search", kNothing},
        {"dizio.txt", "with CRs for line ends", "search", "UNO"},
        {"dizio.txt", "one endless quote", "search", kPastEnd},
        {"dizio.txt", "a directory", "search", kNoFile},
        {"dizio.txt", "a link to itself", "search", kNoFile},
        {"dizio.txt", "a link to nothing", "search", kNoFile},
        {"prefe/pre1.prf", "missing", "read favourites", "File non trovato"},
        {"prefe/pre1.prf", "empty", "read favourites", kPastEnd},
        {"prefe/pre1.prf", "one endless quote", "read favourites", kPastEnd},
        {"GeroLink/speciale.txt", "missing", "open the cards", ""},
        {"GeroLink/speciale.txt", "one endless quote", "open the cards",
         "l'elenco delle schede.\rInput oltre"},
        {"GeroLink/prova.txt", "missing", "load a card", "Il file della scheda [PROVA] non c'è più."},
        {"GeroLink/prova.txt", "in UTF-16", "load a card", ""},  // fields that are no signs are not shown
        {"GeroLink/prova.txt", "one endless quote", "load a card", "la scheda [PROVA].\rInput oltre"},
        {"GeroLink/uomini.txt", "missing", "open the cards", ""},
        {"settaggi/conf.cfg", "missing", "start", "'53'"},
        {"settaggi/conf.cfg", "full of zero bytes", "start", ""},  // text that is no number reads as 0
        {"settaggi/conf2.cfg", "empty", "start", "'62'"},
        {"settaggi/coloreF.prf", "a directory", "read the colours", kNoFile},
        {"Undo.dat", "missing", "undo", "Undo.dat manca.\n\nErrore 53"},
    };
    for (const auto& [file, name, reading, told] : kCases) {
        Installation installation;
        std::ranges::find(kOddities, name, &Oddity::name)->make(installation.root() / file);
        const std::string shown = installation.attempt(named(testing::readings(), reading).work);
        EXPECT_TRUE(told.empty() ? shown.empty() : shown.find(told) != std::string::npos)
            << file << " " << name << ": " << shown;
    }
}

TEST(OddFile, AnEntryIsAddedBehindFourGigabytes)
{
    constexpr std::uint64_t kSize = std::uint64_t{4} << 30;
    const Installation installation;
    const fs::path path = installation.root() / "dizio.txt";
    fs::resize_file(path, kSize);  // a sparse file: it needs no space on the disk
    installation.drive.files().append("C:\\programmi\\Karvel\\dizio.txt", "fine\r\n");
    EXPECT_EQ(fs::file_size(path), kSize + 8);  // with a line end first
}

}  // namespace
}  // namespace karvel
