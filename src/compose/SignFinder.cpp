#include "compose/SignFinder.hpp"

#include <algorithm>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

#include "text/CodePage.hpp"
#include "text/Transliteration.hpp"

namespace karvel {

namespace {

/// Other words under which people look for what the beginning of a description names.
constexpr std::pair<std::string_view, std::string_view> kAlsoCalled[] = {
    {"CIVETTA", "GUFO"},   {"ANKH", "CROCE ANSATA"}, {"CUORE E TRACHEA", "NEFER"},
    {"SCIACALLO", "CANE"}, {"FALCO", "HORUS"},
};

// The best ranks come first. A sign has fewer values than there are places for them.
constexpr unsigned kNamed = 0;
constexpr unsigned kNamedInOtherCase = 1;
constexpr unsigned kDescribed = 2;
constexpr unsigned kDescribedWithMore = 3;
constexpr unsigned kValued = 4;
constexpr unsigned kRest = 100;
constexpr unsigned kNoMatch = std::numeric_limits<unsigned>::max();

/// Upper case without accents; what the code page lacks cannot stand in a description anyway.
std::string folded(std::string_view utf8)
{
    return decode(foldedBytes(encode(utf8)));
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

enum class Place { Word, Beginning, Inside, Nowhere };

/// Where `word` stands best in `text`: as a whole word, at the beginning of one, or inside one.
Place placeOf(std::string_view word, std::string_view text)
{
    Place best = Place::Nowhere;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const Place place = !isWordStart(text, at)              ? Place::Inside
                            : isWordEnd(text, at + word.size()) ? Place::Word
                                                                : Place::Beginning;
        best = std::min(best, place);
    }
    return best;
}

}  // namespace

SignFinder::SignFinder(const SignRepertoire& repertoire)
{
    entries_.reserve(repertoire.signs().size());
    for (const SignInfo& sign : repertoire.signs()) {
        Entry entry{&sign, upperCase(sign.gardiner), {}, {folded(sign.description)}};
        for (const std::string_view value : sign.values) {
            entry.upperValues.push_back(upperCase(value));
        }
        for (const auto& [name, other] : kAlsoCalled) {
            if (const std::string& own = entry.descriptions.front(); own.starts_with(name)) {
                entry.descriptions.push_back(std::string(other).append(own, name.size()));
            }
        }
        entries_.push_back(std::move(entry));
    }
}

unsigned long SignFinder::lastUse(const SignInfo& sign) const
{
    const auto found = used_.find(std::string(sign.code));
    return found == used_.end() ? 0 : found->second;
}

/// The smaller the better. A code is typed in small letters and a Gardiner number with a capital, so "e16"
/// and "E16" each put their own sign first.
unsigned SignFinder::rank(const Entry& entry, const Wanted& wanted)
{
    if (entry.sign->code == wanted.asTyped || entry.sign->gardiner == wanted.asTyped) {
        return kNamed;
    }
    if (entry.gardiner == wanted.number) {
        return kNamedInOtherCase;
    }
    if (std::ranges::find(entry.descriptions, wanted.upper) != entry.descriptions.end()) {
        return kDescribed;
    }
    if (std::ranges::any_of(entry.descriptions, [&](const std::string& description) {
            return description.starts_with(wanted.upper + " (");
        })) {
        return kDescribedWithMore;
    }
    if (const auto place = entry.sign->placeOf(wanted.asTyped)) {
        return kValued + static_cast<unsigned>(*place);
    }
    const unsigned rest = rankOfRest(entry, wanted);
    return rest == kNoMatch ? kNoMatch : kRest + rest;
}

unsigned SignFinder::rankOfRest(const Entry& entry, const Wanted& wanted)
{
    Place place = Place::Nowhere;
    for (const std::string& description : entry.descriptions) {
        place = std::min(place, placeOf(wanted.upper, description));
    }
    if (place == Place::Word && wanted.upper.size() > 1) {
        return 0;
    }
    if (std::ranges::find(entry.upperValues, wanted.upper) != entry.upperValues.end()) {
        return 1;
    }
    if (entry.gardiner.starts_with(wanted.number)) {
        return 2;
    }
    if (std::ranges::any_of(entry.sign->values,
                            [&](std::string_view value) { return value.starts_with(wanted.asTyped); })) {
        return 3;
    }
    if (place <= Place::Beginning) {
        return 4;
    }
    return place == Place::Inside && wanted.upper.size() > 2 ? 5 : kNoMatch;
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
    Wanted text{asciiTransliteration(wanted), folded(wanted), {}};
    std::ranges::remove_copy(text.upper, std::back_inserter(text.number), ' ');
    struct Hit {
        unsigned rank;
        unsigned long lastUse;
        const SignInfo* sign;
    };
    std::vector<Hit> hits;
    for (const Entry& entry : entries_) {
        if (const unsigned fit = rank(entry, text); fit != kNoMatch) {
            hits.push_back({fit, lastUse(*entry.sign), entry.sign});
        }
    }
    std::ranges::stable_sort(hits, [](const Hit& a, const Hit& b) {
        return std::tuple(a.rank, b.lastUse, b.sign->uses) < std::tuple(b.rank, a.lastUse, a.sign->uses);
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
