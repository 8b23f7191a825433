#include "dictionary/EditionUpdate.hpp"

#include <gtest/gtest.h>

#include "dictionary/DictionaryEntry.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

const std::string kEdition = record("a01", "uno") + record("a02", "due");

// An entry of the first edition that the present one lacks: the program knows it by its checksum.
const std::string kEarlier = record("b47o26", "dare, far sì che", "rDi", "verbo");

TEST(EditionUpdate, KeepsTheUsersOwnRecordsByteForByteBehindTheEdition)
{
    const struct {
        std::string before, own;  // own: what stands behind the edition
        std::uint64_t records, ownRecords;
    } cases[] = {
        {"", "", 0, 0},
        {kEdition, "", 2, 0},
        {record("a02", "due"), "", 1, 0},
        {"a01,uno,\"\",\"\"\na02,due,,\n", "", 2, 0},  // another form of the same records
        {record("b01", "mia") + kEdition + record("b02", "mia"), record("b01", "mia") + record("b02", "mia"),
         4, 2},
        {record("a01", "uno!"), record("a01", "uno!"), 1, 1},  // an entry of the edition that was changed
        {record("a01", "uno", "", "mia nota"), record("a01", "uno", "", "mia nota"), 1, 1},
        {" b01 , mia,\"x\" ,y\nb02,\"a\r\nb\",,\r", " b01 , mia,\"x\" ,y\nb02,\"a\r\nb\",,\r", 2, 2},
        {"b01,1,,,a01,uno,,,b02,2,,\n", "b01,1,,\r\nb02,2,,\n", 3, 2},  // separated by commas
        {record("b01", "mia") + "\r\n \r\n", record("b01", "mia"), 1, 1},
        {record("b01", "mia") + record("b01", "mia"), record("b01", "mia") + record("b01", "mia"), 2, 2},
    };
    for (const auto& [before, own, records, ownRecords] : cases) {
        const testing::TemporaryDrive drive;
        drive.write(kEditionPath, kEdition);
        drive.write(kDictionaryPath, before);
        EditionUpdate update = planUpdate(drive.files());
        EXPECT_EQ(update.editionRecords, 2U);
        EXPECT_EQ(update.records, records) << before;
        EXPECT_EQ(update.ownRecords, ownRecords) << before;
        const std::string kept = carryOut(update, drive.files());
        EXPECT_EQ(drive.read(kDictionaryPath), kEdition + own) << before;
        EXPECT_EQ(kept, before == kEdition + own ? "" : "C:\\programmi\\Karvel\\dizio.old.txt");
        if (!kept.empty()) {
            EXPECT_EQ(drive.read(kept), before);
        }
        EXPECT_TRUE(planUpdate(drive.files()).changesNothing()) << before;
    }
}

TEST(EditionUpdate, TakesNoNameThatIsTakenAndNoRecordThatCameMeanwhile)
{
    const testing::TemporaryDrive drive;
    drive.write(kEditionPath, kEdition);
    drive.write(kDictionaryPath, record("b01", "mia"));
    drive.write("C:\\programmi\\Karvel\\dizio.old.txt", "x");
    drive.write("C:\\programmi\\Karvel\\DIZIO.OLD-2.TXT", "y");
    EditionUpdate update = planUpdate(drive.files());
    drive.files().append(kDictionaryPath, record("b02", "intanto"));
    EXPECT_EQ(carryOut(update, drive.files()), "C:\\programmi\\Karvel\\dizio.old-3.txt");
    EXPECT_EQ(update.ownRecords, 2U);
    EXPECT_EQ(drive.read(kDictionaryPath), kEdition + record("b01", "mia") + record("b02", "intanto"));
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\dizio.old.txt"), "x");
}

TEST(EditionUpdate, KnowsTheRecordsOfEarlierEditions)
{
    const testing::TemporaryDrive drive;
    drive.write(kEditionPath, kEdition);
    drive.write(kDictionaryPath, kEarlier);
    EXPECT_EQ(planUpdate(drive.files()).ownRecords, 0U);
}

TEST(EditionUpdate, TouchesNoFaultyFile)
{
    const testing::TemporaryDrive drive;
    drive.write(kEditionPath, kEdition);
    drive.write(kDictionaryPath, kEdition + "\"a03\"\r\n\"tre\"\r\n");
    const EditionUpdate update = planUpdate(drive.files());
    ASSERT_TRUE(update.fault);
    EXPECT_EQ(update.fault->line, 9U);
    drive.write(kEditionPath, "\"a01");
    EXPECT_THROW((void)planUpdate(drive.files()), RuntimeError);
}

}  // namespace
}  // namespace karvel
