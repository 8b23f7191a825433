#include "app/PassageStudy.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

TEST(PassageStudy, HoldsLinesRunningTextsAndWords)
{
    testing::TemporaryDrive drive;
    drive.write(kDictionaryPath,
                record("f22c18", "dire, parlare", "Dd", "verbo") + record("h18o35", "casa", "pr"));
    const Reader reader(drive.files());
    Passage passage;
    EXPECT_TRUE(studyOf(passage).lines.empty() && studyOf(passage).texts.empty());
    passage.use(reader);
    passage.setText("f22c18\n\nh18o35b50");
    const StudySheet sheet = studyOf(passage);
    EXPECT_EQ(sheet.remark, kProposal);
    EXPECT_EQ(sheet.lines, (std::vector<std::string>{"f22c18", "h18o35b50"}));
    ASSERT_EQ(sheet.texts.size(), 1U);
    EXPECT_EQ(sheet.texts[0].transliteration, "ḏd\npr [spt]");
    ASSERT_EQ(sheet.words.size(), 3U);
    EXPECT_EQ(sheet.words[0].text.transliteration, "ḏd");
    EXPECT_EQ(sheet.words[0].text.translation, "dire, parlare");
    EXPECT_EQ(sheet.words[0].text.note, "verbo");
    EXPECT_EQ(sheet.words[2].signs, "b50");
}

}  // namespace
}  // namespace karvel
