#include "writing/Grouping.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "writing/SignForms.hpp"

namespace karvel {

namespace {

using Signs = std::span<const SignTraits* const>;

// A block is as good as it is well filled. `cost` tells how badly: 100 for a block that a scribe is content
// with, more for one that leaves a hole or squeezes its signs. A phrase is divided so that the sum is least.
constexpr int kNever = std::numeric_limits<int>::max();
constexpr int kGood = 100;

// Signs above each other may be this high together, in thousandths of a block: a scribe draws them a little
// smaller.
constexpr int kFullHeight = 1130;
constexpr int kFullWidth = 1350;

bool is(const SignTraits& sign, std::string_view gardiner)
{
    return sign.gardiner == gardiner;
}

bool isLoaf(const SignTraits& sign)
{
    return is(sign, "X1");
}

bool isLand(const SignTraits& sign)
{
    return is(sign, "N16") || is(sign, "N17") || is(sign, "N19");
}

bool isLow(const SignTraits& sign)
{
    return sign.form == SignForm::Flat || sign.form == SignForm::Small;
}

bool alike(Signs signs)
{
    return std::ranges::all_of(signs, [&](const SignTraits* each) { return each == signs.front(); });
}

int heightOf(Signs signs)
{
    return std::accumulate(signs.begin(), signs.end(), 0,
                           [](int sum, const SignTraits* each) { return sum + each->height; });
}

/// A sign that is a block by itself. Tall signs stand alone; a determinative of a man, a bird or a beast
/// keeps its block. A flat sign alone leaves half of its block empty, a small one most of it.
int costAlone(const SignTraits& sign)
{
    switch (sign.role) {
        case SignRole::Stroke:
            return 125;
        case SignRole::Plural:
            return 115;
        default:
            break;
    }
    switch (sign.form) {
        case SignForm::Tall:
            return kGood;
        case SignForm::Medium:
            return is(sign, "D54") ? kGood : 115;
        case SignForm::Flat:
            return 150;
        case SignForm::Small:
            return std::max(sign.width, sign.height) < 600 ? 170 : 130;
    }
    return kNever;
}

struct Pair {
    std::string_view above;
    std::string_view below;
    int cost;
};

// Groups that every printed grammar has. Some are too high together by the rules: the hand under the tail of
// the cobra, the mouth under the beetle or over the conical loaf, the eye under the throne (Osiris), water
// over the cobra or the foot, the pool over the waters (summer), the moon over the star (month), the loaf
// under sedge and bee (the king's title). In others the last consonant of a word sign stands so firmly under
// it that an ending does not part them: wr, pr, nfr, mr, wn, mn, Dd.
constexpr int kFirm = 40;
constexpr std::array kCustomary = {
    Pair{"I10", "D46", kFirm}, Pair{"L1", "D21", 90},    Pair{"D21", "X8", 90},    Pair{"Q1", "D4", 90},
    Pair{"N35", "I10", 90},    Pair{"N37", "N35A", 90},  Pair{"N11", "N14", 90},   Pair{"N35", "D58", 90},
    Pair{"F13", "Q3", 90},     Pair{"M23", "X1", 140},   Pair{"L2", "X1", 130},    Pair{"G36", "D21", kFirm},
    Pair{"U7", "D21", kFirm},  Pair{"O1", "D21", kFirm}, Pair{"I9", "D21", kFirm}, Pair{"E34", "N35", kFirm},
    Pair{"Y5", "N35", kFirm}};

// They end words: determinatives of abstract, broken, dead or fleshy things, the two strokes of the ending
// -y. What follows begins another word, so only strokes stand under them.
constexpr std::array<std::string_view, 9> kLast = {"Y1", "Y2", "Z4", "Z5", "Z6", "Z9", "F51", "N33", "D40"};

std::optional<int> customaryCost(const SignTraits& above, const SignTraits& below)
{
    const auto found = std::ranges::find_if(
        kCustomary, [&](const Pair& pair) { return is(above, pair.above) && is(below, pair.below); });
    return found == kCustomary.end() ? std::nullopt : std::optional(found->cost);
}

/// The loaf is so small that it finds room beside a tall sign: over the tail of a bird that follows, under
/// the breast of one that precedes, over a woman, a goddess or a man who lies. The tether stands over the
/// chick as well.
int costWithTall(const SignTraits& above, const SignTraits& below)
{
    if (is(above, "V13") && is(below, "G43")) {
        return 150;
    }
    if (isLoaf(below) && above.role == SignRole::Bird) {
        return 145;
    }
    if (isLoaf(above) && below.role == SignRole::Bird) {
        return 130;
    }
    if (isLoaf(above) && below.role == SignRole::Person) {
        const bool lying = below.width > 1000;
        return below.gardiner.starts_with('A') && !lying ? 150 : 135;
    }
    return kNever;
}

/// The stroke that marks a sign as the picture of its meaning stands under it where there is room, never
/// over the next one. Plural strokes go under what is low, and under people and beasts.
int costOfStrokes(const SignTraits& above, const SignTraits& below)
{
    if (below.role == SignRole::Stroke) {
        const bool room = above.form != SignForm::Tall && above.height + below.height <= 1200;
        const bool picture = !isLoaf(above) && above.form != SignForm::Flat;
        return !room ? kNever : picture ? 70 : 90;
    }
    const bool stands = above.role == SignRole::Person || above.role == SignRole::Animal;
    return stands || above.height + below.height <= 1200 ? kGood : kNever;
}

/// One sign above another: two flat ones, a small one over or under a flat one, a flat one with one of medium
/// height.
int costOfPair(const SignTraits& above, const SignTraits& below)
{
    if (above.role == SignRole::Stroke || above.role == SignRole::Plural || above.role == SignRole::Numeral) {
        return kNever;
    }
    if (below.role == SignRole::Stroke || below.role == SignRole::Plural) {
        return costOfStrokes(above, below);
    }
    if (const auto cost = customaryCost(above, below)) {
        return *cost;
    }
    if (above.form == SignForm::Tall || above.role == SignRole::Bird || below.form == SignForm::Tall) {
        return costWithTall(above, below);
    }
    if (above.height + below.height > kFullHeight) {
        return kNever;
    }
    // The sun begins a king's name and stands first there; legs walk on the ground, under a small sign.
    if (is(above, "N5") || std::ranges::find(kLast, above.gardiner) != kLast.end() ||
        (is(above, "D54") && !isLoaf(below))) {
        return kNever;
    }
    // The basket means "lord" or "all": a word by itself, to which only its ending and the lands come near.
    if (&above != &below && (is(below, "V30") || (is(above, "V30") && !isLoaf(below) && !isLand(below)))) {
        return kNever;
    }
    if (&above == &below) {
        return 95;
    }
    return isLow(above) && isLow(below) ? kGood : 105;
}

/// Three above each other. Three alike are a plural, and basket or loaf stands over a pair of lands.
/// Otherwise they must be very thin, or end with plural strokes.
int costOfThree(Signs signs)
{
    const SignTraits& last = *signs[2];
    if (last.form == SignForm::Flat && signs[1] == signs[2]) {
        if (signs[0] == signs[1]) {
            return kGood;
        }
        return isLand(last) && isLow(*signs[0]) && heightOf(signs) <= 1060 ? 160 : kNever;
    }
    if (isLoaf(*signs[0]) && isLoaf(last) && signs[1]->role == SignRole::Bird) {
        return 160;
    }
    if (costOfPair(*signs[0], *signs[1]) > 105 || costOfPair(*signs[1], last) > 105) {
        return kNever;
    }
    if (last.role == SignRole::Plural) {
        return heightOf(signs) <= 1000 ? 190 : kNever;
    }
    return heightOf(signs) <= 700 ? 230 : kNever;
}

/// Small signs beside each other, as one row.
bool isRow(Signs row)
{
    const int width = std::accumulate(row.begin(), row.end(), 0,
                                      [](int sum, const SignTraits* each) { return sum + each->width; });
    const bool small = std::ranges::all_of(row, [](const SignTraits* each) {
        // Town and egg are determinatives: they stand under the loaf of the ending, not beside it.
        const bool ends = is(*each, "O49") || is(*each, "H8");
        return each->form == SignForm::Small && each->height <= 600 && each->role != SignRole::Plural &&
               !ends;
    });
    return small && width <= kFullWidth && row.front()->role != SignRole::Stroke;
}

/// Words of three signs whose form is so fixed that what follows or precedes does not break it: peace, sky.
bool isWord(const SignTraits& first, const SignTraits& second, const SignTraits& third)
{
    return (is(first, "R4") && is(second, "X1") && is(third, "Q3")) ||
           (is(first, "Q3") && is(second, "X1") && is(third, "N1"));
}

/// A broad sign with small ones in a row above or below it. The loaf and the stroke, which end a feminine
/// word, hold to their sign.
int costOfRow(const SignTraits& broad, Signs row, bool rowAbove)
{
    const auto highest = std::ranges::max(row, {}, [](const SignTraits* each) { return each->height; });
    const bool ending = !rowAbove && isLoaf(*row.front()) && row.back()->role == SignRole::Stroke;
    const bool low = broad.form == SignForm::Flat || (broad.form == SignForm::Medium && !rowAbove) ||
                     (broad.width >= 500 && ending);
    if (!low || broad.role != SignRole::None || !isRow(row) || broad.height + highest->height > kFullHeight ||
        (rowAbove && row.back()->role == SignRole::Stroke)) {
        return kNever;
    }
    if (ending ||
        isWord(rowAbove ? *row.front() : broad, *row[rowAbove ? 1 : 0], rowAbove ? broad : *row.back())) {
        return ending ? 50 : 25;
    }
    return row.size() == 2 ? 105 : 120;
}

/// Numerals pile up in rows of at most four, the longer row above; nine are three rows.
std::vector<std::size_t> rowsOfNumeral(std::size_t count)
{
    if (count <= 3) {
        return {count};
    }
    if (count == 9) {
        return {3, 3, 3};
    }
    return {(count + 1) / 2, count / 2};
}

struct Block {
    int cost = kNever;
    std::vector<std::size_t> rows;  ///< how many signs each has
};

constexpr std::size_t kLongest = 9;

bool isNumeral(Signs signs)
{
    const SignRole role = signs.front()->role;
    return signs.size() > 1 && (role == SignRole::Numeral || role == SignRole::Stroke) && alike(signs);
}

/// The best block of exactly these signs.
Block bestBlock(Signs signs)
{
    Block best;
    const auto offer = [&best](int cost, std::vector<std::size_t> rows) {
        if (cost < best.cost) {
            best = {cost, std::move(rows)};
        }
    };
    const std::size_t count = signs.size();
    if (isNumeral(signs)) {
        return {80, rowsOfNumeral(count)};
    }
    if (count == 1) {
        offer(costAlone(*signs[0]), {1});
    } else if (count == 2) {
        offer(costOfPair(*signs[0], *signs[1]), {1, 1});
    } else if (count <= 4) {
        offer(costOfRow(*signs.front(), signs.subspan(1), false), {1, count - 1});
        offer(costOfRow(*signs.back(), signs.first(count - 1), true), {count - 1, 1});
    }
    if (count == 3) {
        offer(costOfThree(signs), {1, 1, 1});
        // Man and woman over the plural strokes: people.
        if (is(*signs[0], "A1") && is(*signs[1], "B1") && signs[2]->role == SignRole::Plural) {
            offer(kGood, {2, 1});
        }
        if (alike(signs) && isRow(signs)) {
            offer(kGood, {3});
        }
    }
    return best;
}

Group groupOf(std::span<const std::string_view> codes, const std::vector<std::size_t>& rows)
{
    std::vector<Group> stack;
    for (const std::size_t length : rows) {
        std::vector<Group> row;
        for (const std::string_view code : codes.first(length)) {
            row.push_back(Group::sign(code));
        }
        stack.push_back(Group::of(Group::Kind::Beside, std::move(row)));
        codes = codes.subspan(length);
    }
    return Group::of(Group::Kind::Above, std::move(stack));
}

}  // namespace

Layout blocksOf(std::string_view codes)
{
    const std::vector<std::string_view> list = splitCodes(codes);
    std::vector<const SignTraits*> traits;
    traits.reserve(list.size());
    for (const std::string_view code : list) {
        traits.push_back(&traitsOf(code));
    }
    // From the end to the start: the best division of what follows is known. Of two that are
    // equal, the one with the fuller first block.
    std::vector<int> cost(list.size() + 1, 0);
    std::vector<Block> chosen(list.size());
    for (std::size_t at = list.size(); at-- > 0;) {
        cost[at] = kNever;
        for (std::size_t count = 1; count <= std::min(kLongest, list.size() - at); ++count) {
            Block block = bestBlock(Signs(traits).subspan(at, count));
            if (block.cost != kNever && block.cost + cost[at + count] <= cost[at]) {
                cost[at] = block.cost + cost[at + count];
                chosen[at] = std::move(block);
            }
        }
    }
    Layout layout;
    for (std::size_t at = 0; at < list.size();) {
        const std::vector<std::size_t>& rows = chosen[at].rows;
        const std::size_t count = std::accumulate(rows.begin(), rows.end(), std::size_t{0});
        layout.blocks.push_back(groupOf(std::span(list).subspan(at, count), rows));
        at += count;
    }
    return layout;
}

}  // namespace karvel
