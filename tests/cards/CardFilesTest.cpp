#include "cards/CardFiles.hpp"

#include <gtest/gtest.h>

#include "cards/CardName.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

const std::string kDirectory(kCardDirectory);

TEST(CardName, RefusesWhatIsNoPlainNameOfACard)
{
    const std::string forty(40, 'x');
    for (const std::string& good : {std::string("Dèi e dee"), std::string("a b-c_d (2)"),
                                    std::string("com10"), std::string("a'b"), forty}) {
        EXPECT_EQ(cardNameRefusal(good), std::nullopt) << good;
    }
    const std::string rule =
        "Il nome di una scheda non può contenere virgole, virgolette, caratteri di controllo e i caratteri "
        "* : . / \\ ? < > |";
    const struct {
        std::vector<std::string> names;
        std::string refusal;
    } kCases[] = {
        {{"", " a", "a "},
         "Il nome di una scheda non può essere vuoto, né cominciare o finire con uno spazio."},
        {{"..", "..\\fuori", "../fuori", "C:", "a*b", "a?b", "a.txt", "a\"b", "a,b", "a|b", "<a>", "a\tb",
          "a\r\nb", "a\x7F", "a\xC2\x85", std::string("a\0b", 3)},
         rule},
        {{"日本"}, "Questi caratteri non possono stare nel nome di una scheda: 日本"},
        {{forty + "x"}, "Il nome di una scheda non può superare 40 caratteri."},
        {{"SchedePref"}, "Il nome [SchedePref] è riservato ai file della finestra Schede."},
        {{"NuL"}, "Il nome [NuL] è riservato al sistema operativo."},
        {{"com¹"}, "Il nome [com¹] è riservato al sistema operativo."},
    };
    for (const auto& [names, refusal] : kCases) {
        for (const std::string& name : names) {
            EXPECT_EQ(cardNameRefusal(name), refusal) << name;
            EXPECT_THROW((void)CardFiles::path(name), RuntimeError) << name;
        }
    }
}

class CardFilesTest : public ::testing::Test {
  protected:
    testing::TemporaryDrive drive;
    CardFiles cards{drive.files()};
};

TEST_F(CardFilesTest, WritesTheFilesAsDescribed)
{
    EXPECT_TRUE(cards.list().empty());
    EXPECT_TRUE(cards.readFirst().empty());
    EXPECT_EQ(cards.last(), "");
    drive.write(kCardListPath, "Uno\r\n\"strano, ma suo\"\r\n\r\nuno");  // the last line end is missing
    cards.crea("prova");
    EXPECT_EQ(drive.read(kCardListPath), "Uno\r\n\"strano, ma suo\"\r\n\r\nuno\r\nprova\r\n");
    EXPECT_EQ(drive.read(kDirectory + "prova.txt"), "a01\r\n");
    cards.append("PROVA", "e16");
    EXPECT_EQ(drive.read(kDirectory + "prova.txt"), "a01\r\ne16\r\n");
    cards.remember("città");
    EXPECT_EQ(drive.read(kLastCardPath), "CITT\xC0\r\n");
    EXPECT_EQ(cards.last(), "CITTÀ");
    EXPECT_THROW(cards.crea("Prova"), RuntimeError);
    cards.remove("UNO");  // its file has gone already
    EXPECT_EQ(drive.read(kCardListPath), "\"strano, ma suo\"\r\nprova\r\n");
    cards.remove("Prova");
    EXPECT_FALSE(cards.exists("prova"));
}

TEST_F(CardFilesTest, ReadsWhateverSomebodyHasWritten)
{
    const struct {
        std::string bytes;
        std::vector<std::string> fields;
        std::string withoutA01;
    } kCases[] = {
        {"a01\r\ne16\r\na01\r\n", {"a01", "e16", "a01"}, "e16\r\n"},
        {"\"A01\",\"x,y\"\n\r\nE16", {"a01", "x,y", "e16"}, "\"x,y\"\r\ne16\r\n"},
        {"a01\r\nnessun codice\r\n", {"a01", "nessun codice"}, "nessun codice\r\n"},
        {"", {}, ""},
    };
    for (const auto& [bytes, fields, withoutA01] : kCases) {
        drive.write(kDirectory + "x.txt", bytes);
        EXPECT_EQ(cards.read("x"), fields) << bytes;
        cards.removeSign("x", "a01");
        EXPECT_EQ(drive.read(kDirectory + "x.txt"), withoutA01);
    }
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
}

}  // namespace
}  // namespace karvel
