#include "app/PassageStudy.hpp"

#include "base/SignCode.hpp"

namespace karvel {

StudySheet studyOf(const Passage& passage)
{
    StudySheet sheet{.remark = std::string(kProposal)};
    const PassageSigns& signs = passage.signs();
    std::size_t begin = 0;
    const auto addLine = [&](std::size_t end) {
        if (end > begin) {
            sheet.lines.push_back(signs.codes.substr(begin * kCodeLength, (end - begin) * kCodeLength));
            begin = end;
        }
    };
    for (const std::size_t end : signs.lines) {
        addLine(end);
    }
    addLine(signs.codes.size() / kCodeLength);
    if (passage.words().empty()) {
        return sheet;
    }
    sheet.texts.push_back(
        {.transliteration = passage.transliteration(), .translation = passage.translation()});
    for (const ReadWord& word : passage.words()) {
        sheet.words.push_back({.signs = passage.codesOf(word),
                               .text = {.transliteration = printedReading(word),
                                        .translation = word.choice.translation,
                                        .note = word.choice.note}});
    }
    return sheet;
}

}  // namespace karvel
