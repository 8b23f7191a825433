#include "compose/SignFinder.hpp"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "text/CodePage.hpp"

namespace karvel {

namespace {

/// The sixty signs that the shipped dictionary writes most, most frequent first: of two signs with the same
/// value, people mean the common one.
constexpr std::string_view kCommon =
    "o19h11o36g03b47o35o41l35p19c09e16o27o45e44c31n35c18i27o38e11f21h18h49o16g34a01h15a02c27h05"
    "h09i39e38a24n37n38i11g09o31h19b28f22e08o39f41h44o03e37b03g52h12o46o43d51m31c13h01b30p04d50";

/// Other words under which people look for what a description names.
constexpr std::pair<std::string_view, std::string_view> kAlsoCalled[] = {
    {"CIVETTA", "GUFO"},
    {"ANKH", "CROCE ANSATA"},
    {"CUORE E TRACHEA", "NEFER"},
    {"SCIACALLO", "CANE"},
};

constexpr int kNoMatch = std::numeric_limits<int>::max();

std::size_t commonness(std::string_view code)
{
    return kCommon.find(code);  // whole codes only: a letter stands at every third place
}

/// Upper case without accents; what the code page lacks cannot stand in a description anyway.
std::string folded(std::string_view utf8)
{
    return decode(foldedBytes(encode(utf8)));
}

std::vector<std::string_view> parts(std::string_view text, char separator)
{
    std::vector<std::string_view> found;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        std::string_view part = text.substr(0, end);
        while (part.ends_with(' ')) {
            part.remove_suffix(1);
        }
        if (!part.empty()) {
            found.push_back(part);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return found;
}

bool isWordStart(std::string_view text, std::size_t at)
{
    return at == 0 || text[at - 1] == ' ' || text[at - 1] == '\'' || text[at - 1] == '(' ||
           text[at - 1] == '-';
}

bool isWordEnd(std::string_view text, std::size_t at)
{
    return at == text.size() || std::string_view(" ,;)'-").find(text[at]) != std::string_view::npos;
}

/// 0 when `word` is a whole word of `text`, 1 when it begins one, 2 when it stands inside one.
int placeOf(std::string_view word, std::string_view text)
{
    int best = kNoMatch;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const int place = !isWordStart(text, at) ? 2 : isWordEnd(text, at + word.size()) ? 0 : 1;
        best = std::min(best, place);
    }
    return best;
}

}  // namespace

std::string asciiTransliteration(std::string_view utf8)
{
    static const std::unordered_map<char32_t, char> kLetters = {
        {U'ꜣ', 'A'},   {U'Ꜣ', 'A'}, {U'ꜥ', 'a'}, {U'Ꜥ', 'a'}, {U'ʿ', 'a'}, {U'ʾ', 'A'},
        {U'ꞽ', 'i'}, {U'ỉ', 'i'}, {U'ï', 'i'}, {U'ḥ', 'H'}, {U'Ḥ', 'H'}, {U'ḫ', 'x'},
        {U'Ḫ', 'x'},   {U'ẖ', 'X'}, {U'š', 'S'}, {U'Š', 'S'}, {U'ś', 's'}, {U'ḳ', 'q'},
        {U'Ḳ', 'q'},   {U'ṯ', 'T'}, {U'Ṯ', 'T'}, {U'ḏ', 'D'}, {U'Ḏ', 'D'}, {U'ṱ', 't'}};
    constexpr char32_t kCombiningLow = 0x0300;
    constexpr char32_t kCombiningHigh = 0x036F;
    std::string ascii;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        if (const auto letter = kLetters.find(character); letter != kLetters.end()) {
            ascii += letter->second;
        } else if (character < kCombiningLow || character > kCombiningHigh) {
            appendCharacter(ascii, character);
        }
    }
    return ascii;
}

SignFinder::SignFinder(const SignRepertoire& repertoire)
{
    entries_.reserve(repertoire.signs().size());
    for (const SignInfo& sign : repertoire.signs()) {
        std::vector<std::string_view> values = parts(sign.values, '/');
        std::vector<std::string> upperValues;
        for (const std::string_view value : values) {
            upperValues.push_back(upperCase(value));
        }
        std::string description = folded(sign.description);
        for (const auto& [name, other] : kAlsoCalled) {
            if (description.starts_with(name)) {
                description.append(" ").append(other);
            }
        }
        entries_.push_back({&sign, upperCase(sign.gardiner), std::move(values), std::move(upperValues),
                            std::move(description)});
    }
}

unsigned long SignFinder::lastUse(const SignInfo& sign) const
{
    const auto found = used_.find(std::string(sign.code));
    return found == used_.end() ? 0 : found->second;
}

/// The smaller the better. A code is typed in small letters and a Gardiner number with a capital, so "e16"
/// and "E16" each put their own sign first.
int SignFinder::rank(const Entry& entry, const Wanted& wanted)
{
    if (entry.sign->code == wanted.asTyped || entry.sign->gardiner == wanted.asTyped) {
        return 0;
    }
    if (std::ranges::find(entry.values, wanted.asTyped) != entry.values.end()) {
        return 1;
    }
    if (entry.gardiner == wanted.upper) {
        return 2;
    }
    const bool saysIt = std::ranges::find(entry.upperValues, wanted.upper) != entry.upperValues.end();
    const int place = placeOf(wanted.upper, entry.description);
    if (place == 0 && wanted.upper.size() > 1) {
        return 3;
    }
    if (saysIt) {
        return 4;
    }
    if (entry.gardiner.starts_with(wanted.upper)) {
        return 5;
    }
    if (std::ranges::any_of(entry.values,
                            [&](std::string_view value) { return value.starts_with(wanted.asTyped); })) {
        return 6;
    }
    if (place <= 1) {
        return 7;
    }
    return place == 2 && wanted.upper.size() > 2 ? 8 : kNoMatch;
}

std::vector<const SignInfo*> SignFinder::find(std::string_view wanted, std::size_t most) const
{
    while (wanted.starts_with(' ')) {
        wanted.remove_prefix(1);
    }
    while (wanted.ends_with(' ')) {
        wanted.remove_suffix(1);
    }
    if (wanted.empty()) {
        return {};
    }
    const Wanted text{asciiTransliteration(wanted), folded(wanted)};
    struct Hit {
        int rank;
        unsigned long lastUse;
        const SignInfo* sign;
    };
    std::vector<Hit> hits;
    for (const Entry& entry : entries_) {
        if (const int fit = rank(entry, text); fit != kNoMatch) {
            hits.push_back({fit, lastUse(*entry.sign), entry.sign});
        }
    }
    std::ranges::stable_sort(hits, [](const Hit& a, const Hit& b) {
        return std::tuple(a.rank, b.lastUse, commonness(a.sign->code)) <
               std::tuple(b.rank, a.lastUse, commonness(b.sign->code));
    });
    std::vector<const SignInfo*> found;
    for (const Hit& hit : hits) {
        if (found.size() == most) {
            break;
        }
        found.push_back(hit.sign);
    }
    return found;
}

}  // namespace karvel
