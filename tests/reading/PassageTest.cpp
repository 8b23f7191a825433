#include "reading/Passage.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

TEST(PassageSigns, AreReadInEveryFormWithTheirLines)
{
    const PassageSigns signs = readSigns("a01b02-M23:X1*R4\n\n(zz-\U00013080)\r\n \U0001342F x9");
    EXPECT_EQ(signs.codes.substr(0, 6), "a01b02");
    EXPECT_EQ(signs.codes.size(), 18U);
    EXPECT_EQ(signs.lines, (std::vector<std::size_t>{5, 5, 6}));
    const std::vector<UnknownText> unknown = {{"zz", 3, 2}, {"\U0001342F", 4, 2}, {"x9", 4, 4}};
    EXPECT_EQ(signs.unknown, unknown);
    EXPECT_EQ(readSigns("a12-b12h11", SignForm::Gardiner).codes, readSigns("A12 b12h11").codes);
    EXPECT_EQ(passageText("\xEF\xBB\xBFG1 \xC3\xA0"), "G1 à");
    EXPECT_EQ(passageText("G1 \xE0"), "G1 à");
}

TEST(Passage, IsCorrectedUndoneSavedAndOpened)
{
    testing::TemporaryDrive drive;
    drive.write(kDictionaryPath, record("f22c18", "dire, parlare", "Dd") + record("h11", "a", "n") +
                                     record("h11", "di; <da>", "n.i") + record("h18o35", "casa", "pr") +
                                     record("h18o35", "tempio", "pr") + record("h18", "pianta", "pr") +
                                     record("f21", "suo", "=f"));
    const Reader reader(drive.files());
    Passage passage;
    passage.use(reader);
    passage.setText("h18o35f21h11");
    EXPECT_EQ(passage.transliteration(), "pr=f n");
    passage.undo();
    passage.setText("f22c18h11\nh18o35");
    EXPECT_EQ(passage.transliteration(), "ḏd n\npr");
    EXPECT_EQ(passage.translation(), "dire | a\ncasa");
    passage.chooseNext(2);
    passage.chooseNext(1);
    EXPECT_EQ(passage.translation(), "dire | di\ntempio");
    const auto codes = [](const std::string& word) { return "<" + word + ">"; };
    EXPECT_NE(passage.html(codes).find("<h11></div>"), std::string::npos);
    EXPECT_NE(passage.html(codes).find("di; &lt;da&gt;"), std::string::npos);
    EXPECT_NE(passage.plainText().find("\U00013216\tn.i\tdi; <da>\n\n"), std::string::npos)
        << passage.plainText();
    passage.chooseNext(2);  // after the last comes the first
    passage.joinWithNext(0);
    EXPECT_EQ(passage.words().front().length, 3U);
    passage.divide(0, 1);
    EXPECT_EQ(passage.words()[1].length, 2U);
    const std::string file = writeHandWork(passage.work());
    Passage again;
    again.use(reader);
    again.open(readHandWork(file).value());
    EXPECT_EQ(again.work(), passage.work());
    EXPECT_EQ(again.html(codes), passage.html(codes));
    for (std::size_t length = 0; length < file.size(); ++length) {
        EXPECT_FALSE(readHandWork(file.substr(0, length))) << length;
    }
    passage.release(0);
    passage.setText("h11");
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(passage.undo());
    }
    EXPECT_EQ(passage.translation(), "dire | di\ntempio");
    EXPECT_TRUE(passage.undo() && passage.undo());
    EXPECT_EQ(passage.translation(), "dire | a\ncasa");
    EXPECT_TRUE(passage.undo());
    EXPECT_FALSE(passage.undo());
}

TEST(PassageFile, KeepsEveryTextAndRefusesWhatIsNoPassage)
{
    const HandWork work{"M23\r\n\t\\n a01b02\n", {{0, 1, {}}, {1, 2, ReadingChoice{"A\t", "a\nb", "\\", 1}}}};
    EXPECT_EQ(readHandWork(writeHandWork(work)), work);
    for (const char* const damaged :
         {"karvel-brano 1\ntesto\ta01\nparola\t2\t1\nfine\n",
          "karvel-brano 1\ntesto\ta01\nparola\t0\t1\nfine\n",
          "karvel-brano 1\ntesto\ta01\nparola\t1\t1\nparola\t1\t1\nfine\n", "karvel-brano 1\nfine\n\n\n",
          "karvel-brano 2\ntesto\ta01\nfine\n", "karvel-brano 1\ntesto\ta01\\q\nfine\n"}) {
        EXPECT_FALSE(readHandWork(damaged)) << damaged;
    }
}

}  // namespace
}  // namespace karvel
