#include "cards/CardFiles.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cards/CardName.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::TemporaryDrive;

const std::string kDirectory(kCardDirectory);

TEST(CardName, RefusesWhatIsNoPlainNameOfACard)
{
    const std::string forty(40, 'x');
    for (const std::string& good :
         {std::string("prova"), std::string("Dèi e dee"), std::string("a b-c_d (2)"), std::string("com10"),
          std::string("console"), std::string("uomini2"), std::string("a'b"), forty}) {
        EXPECT_EQ(cardNameRefusal(good), std::nullopt) << good;
    }
    const std::vector<std::string> bad = {"",           " ",         ".",
                                          "..",         "..\\fuori", "../fuori",
                                          "a\\b",       "C:",        "a*b",
                                          "a?b",        "a.txt",     "a\"b",
                                          "a,b",        "a|b",       "<a>",
                                          " a",         "a ",        "a\tb",
                                          "a\r\nb",     "a\x7F",     "con",
                                          "NuL",        "Lpt1",      "com¹",
                                          "conin$",     "speciale",  "UOMINI",
                                          "SchedePref", "日本",      "a\xC2\x85",
                                          "a\xFF",      forty + "x", std::string("a\0b", 3)};
    for (const std::string& name : bad) {
        const auto refusal = cardNameRefusal(name);
        ASSERT_TRUE(refusal.has_value()) << name;
        EXPECT_GT(refusal->size(), 20U);
        EXPECT_THROW((void)CardFiles::path(name), RuntimeError) << name;
    }
}

class CardFilesTest : public ::testing::Test {
  protected:
    TemporaryDrive drive;
    CardFiles cards{drive.files()};
};

TEST_F(CardFilesTest, WritesTheFilesAsDescribed)
{
    drive.write(kCardListPath, "donne");  // the last line end is missing
    cards.crea("prova");
    EXPECT_EQ(drive.read(kCardListPath), "donne\r\nprova\r\n");
    EXPECT_EQ(drive.read(kDirectory + "prova.txt"), "a01\r\n");
    cards.append("PROVA", "e16");
    EXPECT_EQ(drive.read(kDirectory + "prova.txt"), "a01\r\ne16\r\n");
    cards.remember("città");
    EXPECT_EQ(drive.read(kLastCardPath), "CITT\xC0\r\n");
    EXPECT_EQ(cards.last(), "CITTÀ");
    EXPECT_THROW(cards.crea("Prova"), RuntimeError);
    EXPECT_EQ(cards.count("prova"), 2U);
}

TEST_F(CardFilesTest, ReadsWhateverSomebodyHasWritten)
{
    struct Case {
        std::string bytes;
        std::vector<std::string> fields;
        std::string withoutA01;
    };
    const std::vector<Case> cases = {
        {"a01\r\ne16\r\na01\r\n", {"a01", "e16", "a01"}, "e16\r\n"},
        {"a01,e16\nA01\r", {"a01", "e16", "A01"}, "e16\r\nA01\r\n"},
        {"\"a01\"\r\n\"x,y\"\r\n", {"a01", "x,y"}, "\"x,y\"\r\n"},
        {"a01\r\n\r\nnessun codice\r\n", {"a01", "", "nessun codice"}, "\r\nnessun codice\r\n"},
        {"e16", {"e16"}, "e16\r\n"},
        {"", {}, ""},
    };
    for (const Case& each : cases) {
        drive.write(kDirectory + "x.txt", each.bytes);
        EXPECT_EQ(cards.read("x"), each.fields) << each.bytes;
        cards.removeSign("x", "a01");
        EXPECT_EQ(drive.read(kDirectory + "x.txt"), each.withoutA01);
    }
    drive.write(kDirectory + "x.txt", "\"never closed\r\na01\r\n");
    EXPECT_THROW(cards.removeSign("x", "a01"), RuntimeError);
    EXPECT_EQ(drive.read(kDirectory + "x.txt"), "\"never closed\r\na01\r\n");
}

TEST_F(CardFilesTest, MissingListsAreEmpty)
{
    EXPECT_TRUE(cards.list().empty());
    EXPECT_TRUE(cards.readFirst().empty());
    EXPECT_EQ(cards.last(), "");
    EXPECT_THROW((void)cards.read("prova"), RuntimeError);
    drive.write(kCardListPath, "\r\nuno\r\n\r\n\"due\",tre\r\n");
    EXPECT_EQ(cards.list(), (std::vector<std::string>{"uno", "due", "tre"}));
}

TEST_F(CardFilesTest, RemovingTakesTheNameFromTheListToo)
{
    drive.write(kCardListPath, "Uno\r\n\"strano, ma suo\"\r\nDUE\r\nuno\r\n");
    drive.write(kDirectory + "uno.txt", "a01\r\n");
    cards.remove("UNO");
    EXPECT_EQ(drive.read(kCardListPath), "\"strano, ma suo\"\r\nDUE\r\n");
    EXPECT_FALSE(cards.exists("uno"));
    cards.remove("due");  // its file has gone already
    EXPECT_EQ(drive.read(kCardListPath), "\"strano, ma suo\"\r\n");
}

/// What cannot be written leaves every file as it was. A directory in a file's place stands for a disk that
/// refuses, for it refuses everybody, the administrator too.
TEST_F(CardFilesTest, FailuresLeaveTheFilesAsTheyWere)
{
    drive.write(kDirectory + "uno.txt", "a01\r\ne16\r\n");
    drive.write(std::string(kCardListPath) + "\\x", "");
    EXPECT_THROW(cards.crea("nuova"), RuntimeError);
    EXPECT_FALSE(cards.exists("nuova"));
    EXPECT_THROW(cards.remove("uno"), RuntimeError);
    EXPECT_EQ(drive.read(kDirectory + "uno.txt"), "a01\r\ne16\r\n");

    std::filesystem::remove_all(drive.host(kCardListPath));
    drive.write(kCardListPath, "due\r\nuno\r\n");
    drive.write(kDirectory + "due.txt\\x", "");
    EXPECT_THROW(cards.append("due", "a01"), RuntimeError);
    EXPECT_EQ(drive.read(kCardListPath), "due\r\nuno\r\n");
}

TEST_F(CardFilesTest, AnUndeletableCardStaysInTheList)
{
    drive.write(kCardListPath, "uno\r\ndue\r\n");
    drive.write(kDirectory + "uno.txt", "a01\r\n");
    const auto directory = drive.host(kCardDirectory);
    namespace fs = std::filesystem;
    fs::permissions(directory, fs::perms::owner_write, fs::perm_options::remove);
    if (std::ofstream(directory / "probe").is_open()) {
        fs::permissions(directory, fs::perms::owner_write, fs::perm_options::add);
        GTEST_SKIP() << "the administrator may write everywhere";
    }
    EXPECT_THROW(cards.remove("uno"), RuntimeError);
    fs::permissions(directory, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(drive.read(kCardListPath), "uno\r\ndue\r\n");
    EXPECT_TRUE(cards.exists("uno"));
}

}  // namespace
}  // namespace karvel
