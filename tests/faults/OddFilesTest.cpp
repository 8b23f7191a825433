#include <algorithm>
#include <fstream>
#include <set>

#include "app/Installer.hpp"
#include "dictionary/Verification.hpp"
#include "faults/Office.hpp"
#include "support/Child.hpp"
#include "text/CodePage.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::Files;
using testing::Office;

constexpr const char* kFiles[] = {"dizio.txt",
                                  "settaggi/conf.cfg",
                                  "settaggi/conf2.cfg",
                                  "settaggi/coloreD.prf",
                                  "settaggi/coloreF.prf",
                                  "Undo.dat",
                                  "prefe/pre1.prf",
                                  "GeroLink/speciale.txt",
                                  "GeroLink/prova.txt",
                                  "GeroLink/uomini.txt",
                                  "GeroLink/schedepref.txt"};

std::string utf16(std::string_view text)
{
    std::string wide = "\xFF\xFE";
    for (const char c : text) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

/// Puts something odd into the place of the file at `path`.
struct Oddity {
    const char* name;
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
};

const Oddity& oddity(std::string_view name)
{
    return *std::ranges::find(kOddities, name,
                              [](const Oddity& each) { return std::string_view(each.name); });
}

/// The dictionary as entries: blank lines behind the last one are none and may be written over.
std::string entriesOf(const Office& office)
{
    const Files files = office.files();
    std::string bytes = files.contains("dizio.txt") ? files.at("dizio.txt") : "";
    bytes.resize(bytes.find_last_not_of(" \r\n") + 1);
    return bytes;
}

TEST(OddFiles, AreReadAndWrittenWithoutHarm)
{
    int tried = 0;
    for (const char* const file : kFiles) {
        for (const Oddity& odd : kOddities) {
            SCOPED_TRACE(std::string(file) + " " + odd.name);
            Office office;
            const fs::path path = office.root() / file;
            odd.make(path);
            const Files before = office.files();
            for (const testing::Deed& reading : testing::readings()) {
                office.attempt(reading.work);
                ++tried;
            }
            Files left = office.files();
            std::erase_if(left, [](const auto& each) { return testing::comfort(each.first); });
            for (const auto& [name, bytes] : left) {
                EXPECT_TRUE(before.contains(name) && before.at(name) == bytes)
                    << name << " changed by reading";
            }
            for (const testing::Deed& deed : testing::deeds()) {
                const std::string dictionary = entriesOf(office);
                office.attempt(deed.work);
                EXPECT_TRUE(entriesOf(office).starts_with(dictionary))
                    << deed.name << " took something out of the dictionary";
                ++tried;
            }
        }
    }
    std::printf("%d deeds among odd files\n", tried);
}

/// What a search says of a dictionary that is none, in the words that the user reads.
TEST(OddFiles, TheUserIsToldWhatIsWrongWithTheDictionary)
{
    const std::string nothing = "Non esiste una corrispondenza per questo termine !";
    const struct {
        const char* oddity;
        std::string_view told;
    } kCases[] = {
        {"missing", "File non trovato"},
        {"empty", nothing},
        {"full of zero bytes", "Input oltre la fine del file"},
        {"of lone CRs", nothing},
        {"with CRs for line ends", "UNO"},
        {"one endless quote", "Input oltre la fine del file"},
        {"a directory", "Errore di accesso al percorso/file"},
        {"a link to itself", "Errore di accesso al percorso/file"},
        {"a link to nothing", "non trovato"},
    };
    for (const auto& [name, words] : kCases) {
        Office office;
        oddity(name).make(office.root() / "dizio.txt");
        const std::string told = office.attempt(testing::readings()[2].work);
        EXPECT_NE(told.find(words), std::string::npos) << name << ": " << told;
    }
}

/// A file of `size` bytes that takes up no room behind its beginning.
void makeSparse(const fs::path& path, std::string_view beginning, std::uint64_t size)
{
    write(path, beginning);
    fs::resize_file(path, size);
}

TEST(OddFiles, FourGigabytesOfNothingEndSoonAndCostLittle)
{
    constexpr std::uint64_t kSize = std::uint64_t{4} << 30;
    Office office;
    makeSparse(office.root() / "dizio.txt", testing::record("a01", "uno"), kSize);
    office.ui.stopReadingAt = 20'000'000;  // Escape
    EXPECT_NE(office.attempt(testing::readings()[6].work).find("(stopped)"), std::string::npos);
    office.ui.stopReadingAt = ~std::uint64_t{0};
    const std::string told = office.attempt(testing::readings()[2].work);
    EXPECT_NE(told.find("UNO"), std::string::npos) << "what stands before it is found";
    EXPECT_NE(told.find("Overflow"), std::string::npos) << told;
    office.drive.files().append("C:\\programmi\\Karvel\\dizio.txt", "fine\r\n");
    EXPECT_EQ(fs::file_size(office.root() / "dizio.txt"), kSize + 8);  // with a line end first
    makeSparse(office.root() / "settaggi" / "conf.cfg", "", kSize);
    EXPECT_NE(office.attempt(testing::readings()[0].work).find("Overflow"), std::string::npos);
    makeSparse(office.root() / "GeroLink" / "prova.txt", "", kSize);
    EXPECT_NE(office.attempt([](Office& o) { o.cards.load(0); }).find("Overflow"), std::string::npos);
}

TEST(OddFiles, LinksOutOfTheTreeAreFollowedAndNeverTakenAway)
{
    Office office;
    const fs::path outside = office.drive.directory().parent_path() / "fuori";
    fs::create_directories(outside);
    for (const char* const file : kFiles) {
        const fs::path path = office.root() / file;
        fs::rename(path, outside / path.filename());
        fs::create_symlink(outside / path.filename(), path);
    }
    office.begin();
    for (const testing::Deed& deed : testing::deeds()) {
        office.attempt([](Office& o) { o.cards.load(0); });
        EXPECT_EQ(office.attempt(deed.work).find("Errore"), std::string::npos) << deed.name << office.ui.told;
    }
    for (const char* const file :
         {"dizio.txt", "settaggi/conf.cfg", "settaggi/conf2.cfg", "prefe/pre1.prf"}) {
        EXPECT_TRUE(fs::is_symlink(office.root() / file)) << file;
    }
    EXPECT_NE(office.drive.read(utf8Path(outside / "dizio.txt")).find("\"tre, citt\xE0\""),
              std::string::npos);
    EXPECT_EQ(office.drive.read(utf8Path(outside / "conf.cfg")), " 5\r\n");
    // The deleted card was a link: what it pointed to belongs to somebody else.
    EXPECT_TRUE(fs::exists(outside / "prova.txt"));
    EXPECT_FALSE(fs::is_symlink(office.root() / "GeroLink" / "prova.txt"));
}

TEST(OddFiles, AReadOnlyTreeIsSaidToBeOne)
{
    Office office;
    const Files before = office.files();
    for (const auto& entry : fs::recursive_directory_iterator(office.root())) {
        fs::permissions(entry.path(), entry.is_directory() ? fs::perms(0555) : fs::perms(0444));
    }
    fs::permissions(office.root(), fs::perms(0555));
    for (const testing::Deed& deed : testing::deeds()) {
        EXPECT_EQ(testing::inChild([&] {
                      testing::becomeOrdinaryUser();
                      const std::string told = office.attempt(deed.work);
                      if (told.find("Autorizzazione negata") == std::string::npos) {
                          std::fprintf(stderr, "%s says: %s\n", deed.name, told.c_str());
                          ::_exit(1);
                      }
                  }),
                  0)
            << deed.name;
    }
    EXPECT_EQ(office.files(), before);
    for (const auto& entry : fs::recursive_directory_iterator(office.root())) {
        fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add);
    }
    fs::permissions(office.root(), fs::perms(0755));
}

TEST(OddFiles, ATreeThatIsTakenAwayIsMissedAndNotMadeAnew)
{
    // Here a missing file is no failure, or there is nothing left to do.
    const std::set<std::string_view> silent = {"turn favourites", "open the cards", "delete a card"};
    for (const std::vector<testing::Deed>* const list : {&testing::deeds(), &testing::readings()}) {
        for (const testing::Deed& deed : *list) {
            Office office;
            fs::remove_all(office.root());
            const std::string told = office.attempt(deed.work);
            EXPECT_EQ(
                told.find("non trovat") == std::string::npos && told.find("non c'è") == std::string::npos,
                silent.contains(deed.name))
                << deed.name << " says: " << told;
            EXPECT_FALSE(fs::exists(office.root()));
        }
    }
}

/// Whoever reads goes on reading what was there when the file was opened.
TEST(OddFiles, AFileThatIsRemovedReplacedOrCutWhileItIsReadDoesNoHarm)
{
    std::string many;
    for (int i = 0; i < 30'000; ++i) {
        many += testing::record("a01", "voce " + std::to_string(i), "", "nota");
    }
    const struct {
        const char* name;
        void (*change)(const fs::path&);
        bool whole;
    } kCases[] = {
        {"removed", [](const fs::path& path) { fs::remove(path); }, true},
        {"replaced",
         [](const fs::path& path) {
             write(path.parent_path() / "altro", "\"z\"");
             fs::rename(path.parent_path() / "altro", path);
         },
         true},
        {"cut", [](const fs::path& path) { fs::resize_file(path, 300'001); }, false},
        {"emptied", [](const fs::path& path) { fs::resize_file(path, 0); }, false},
    };
    for (const auto& [name, change, whole] : kCases) {
        SCOPED_TRACE(name);
        testing::TemporaryDrive drive;
        drive.write("C:\\programmi\\Karvel\\dizio.txt", many);
        RecordReader reader(drive.files().open(kDictionaryPath));
        int records = 0;
        int error = 0;
        try {
            for (; reader.next(); ++records) {
                if (records == 10) {
                    change(drive.host(kDictionaryPath));
                }
                ASSERT_EQ(reader.record().translation, "voce " + std::to_string(records));
            }
        } catch (const RuntimeError& failure) {
            error = failure.value();
        }
        EXPECT_EQ(records == 30'000, whole);
        EXPECT_EQ(error, whole ? 0 : 62);
    }
}

}  // namespace
}  // namespace karvel
