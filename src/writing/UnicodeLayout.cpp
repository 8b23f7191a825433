#include "writing/UnicodeLayout.hpp"

#include "base/SignRepertoire.hpp"
#include "text/CodePage.hpp"
#include "writing/ManuelDeCodage.hpp"

namespace karvel {

namespace {

constexpr char32_t kVerticalJoiner = 0x13430;
constexpr char32_t kHorizontalJoiner = 0x13431;
constexpr char32_t kFirstInsertion = 0x13432;  // into a corner of the sign before
constexpr char32_t kOverlay = 0x13436;
constexpr char32_t kBeginSegment = 0x13437;
constexpr char32_t kEndSegment = 0x13438;
constexpr char32_t kFirstInsertionWithin = 0x13439;
constexpr char32_t kLastInsertionWithin = 0x1343B;
constexpr char32_t kBeginEnclosure = 0x1343C;
constexpr char32_t kEndEnclosure = 0x1343D;
constexpr char32_t kLastArrangement = 0x1345F;
constexpr char32_t kCartoucheStart = 0x13379;
constexpr char32_t kCartoucheEnd = 0x1337A;

using Kind = Group::Kind;

void print(const Group& group, std::string& text)
{
    switch (group.kind) {
        case Kind::Sign: {
            const SignInfo* const sign = SignRepertoire::standard().byCode(group.code);
            appendCharacter(text, sign != nullptr ? sign->character : U'?');
            return;
        }
        case Kind::Ring:
            appendCharacter(text, kCartoucheStart);
            appendCharacter(text, kBeginEnclosure);
            for (const Group& part : group.parts) {
                print(part, text);
            }
            appendCharacter(text, kEndEnclosure);
            appendCharacter(text, kCartoucheEnd);
            return;
        case Kind::Above:
        case Kind::Beside:
            break;
    }
    for (const Group& part : group.parts) {
        if (&part != group.parts.data()) {
            appendCharacter(text, group.kind == Kind::Above ? kVerticalJoiner : kHorizontalJoiner);
        }
        const bool segment = group.kind == Kind::Beside && part.kind == Kind::Above;
        if (segment) {
            appendCharacter(text, kBeginSegment);
        }
        print(part, text);
        if (segment) {
            appendCharacter(text, kEndSegment);
        }
    }
}

/// Manuel de Codage for a character that arranges. A sign put into a corner of another, or over it, stands
/// beside it: blocks have no place for more.
std::string_view codageOf(char32_t character)
{
    switch (character) {
        case kVerticalJoiner:
            return ":";
        case kHorizontalJoiner:
            return "*";
        case kBeginSegment:
            return "(";
        case kEndSegment:
            return ")";
        case kCartoucheStart:
            return "-<-";
        case kCartoucheEnd:
            return "->-";
        default:
            break;
    }
    const bool insertion = (character >= kFirstInsertion && character <= kOverlay) ||
                           (character >= kFirstInsertionWithin && character <= kLastInsertionWithin);
    return insertion ? "*" : "";
}

}  // namespace

std::string unicodeWithJoiners(const Layout& layout)
{
    std::string text;
    for (const Group& block : layout.blocks) {
        print(block, text);
    }
    return text;
}

std::optional<Layout> readLayout(std::string_view utf8, std::string& fault)
{
    std::string codage;
    bool afterSign = false;  // a hieroglyph that directly follows another begins a block
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        const SignInfo* const sign = SignRepertoire::standard().byCharacter(character);
        if (sign != nullptr || character == U'?') {
            codage += afterSign ? "-" : "";
            codage += sign != nullptr ? sign->code : "?";
            afterSign = true;
        } else if (const std::string_view arranging = codageOf(character); !arranging.empty()) {
            codage += afterSign && arranging == "(" ? "-" : "";
            codage += arranging;
            afterSign = arranging == ")";
        } else if (character < kVerticalJoiner || character > kLastArrangement) {
            // The rest of that range tells the state of a sign, not its place.
            appendCharacter(codage, character);
            afterSign = false;
        }
    }
    return readManuelDeCodage(codage, fault);
}

bool isArranged(std::string_view utf8)
{
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        if (character == ':' || character == '*' || character == '<' || !codageOf(character).empty()) {
            return true;
        }
    }
    return false;
}

}  // namespace karvel
