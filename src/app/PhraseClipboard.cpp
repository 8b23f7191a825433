#include "app/PhraseClipboard.hpp"

#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "compose/Paste.hpp"
#include "text/PhraseText.hpp"
#include "writing/Grouping.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/UnicodeLayout.hpp"

namespace karvel {

namespace {

constexpr const char* kJoiners = "copia.legami";

}  // namespace

Layout layoutOf(const Session& session, std::string_view codes)
{
    const Layout* const own = session.arrangement().of(codes);
    return own != nullptr ? *own : blocksOf(codes);
}

bool copiesJoiners(Session& session)
{
    return session.choices().get(kJoiners) == "1";
}

void copyJoiners(Session& session, bool on)
{
    session.choices().set(kJoiners, on ? "1" : "0");
}

CopiedPhrase copied(Session& session, std::string_view codes)
{
    const Layout layout = layoutOf(session, codes);
    return {.text = copiesJoiners(session) ? unicodeWithJoiners(layout) : unicodeOf(codes),
            .gardiner = gardinerOf(codes),
            .codage = manuelDeCodage(layout)};
}

void paste(Session& session, std::string_view utf8)
{
    std::string fault;
    std::optional<Layout> pasted = isArranged(utf8) ? readLayout(utf8, fault) : std::nullopt;
    if (!pasted || pasted->blocks.empty()) {
        pastePhrase(session.palette(), session.ui(), utf8);
        return;
    }
    const std::string before = session.display().DisplayCodes();
    const std::string added = codesOf(*pasted);
    // Signs pasted without groups of the user's own are grouped automatically, as typed signs are.
    const bool byHand = session.arrangement().of(before) != nullptr || *pasted != blocksOf(added);
    Layout whole = layoutOf(session, before);
    std::vector<std::string> codes;
    for (const std::string_view code : splitCodes(added)) {
        codes.emplace_back(code);
    }
    if (session.palette().pressCodes(codes) && byHand) {
        whole.blocks.insert(whole.blocks.end(), pasted->blocks.begin(), pasted->blocks.end());
        session.arrangement().set(std::move(whole));
    }
}

}  // namespace karvel
