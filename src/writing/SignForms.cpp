#include "writing/SignForms.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/SignRepertoire.hpp"
#include "writing/Shapes.hpp"

namespace karvel {

namespace {

struct Height {
    std::string_view gardiner;
    int height;
};

// The font draws these signs higher than the type of the printed grammars, which leaves room for a
// second sign: forearms, hand, hill slope, town, placenta, sun, legs, lion's forepart.
constexpr std::array kTypeHeights = {
    Height{"D36", 400}, Height{"D37", 400}, Height{"D38", 400}, Height{"D39", 400}, Height{"D40", 500},
    Height{"D46", 350}, Height{"D54", 700}, Height{"D55", 700}, Height{"O49", 450}, Height{"N29", 400},
    Height{"Aa1", 450}, Height{"N5", 600},  Height{"F4", 700},  Height{"O4", 700},  Height{"F13", 650},
    Height{"M8", 500},  Height{"F22", 500}, Height{"D42", 400}};

constexpr std::array<std::string_view, 5> kNumerals = {"Z1", "V20", "V1", "M12", "D50"};

SignRole roleOf(std::string_view gardiner)
{
    if (gardiner == "Z1") {
        return SignRole::Stroke;
    }
    if (gardiner == "Z2") {
        return SignRole::Plural;
    }
    if (std::ranges::find(kNumerals, gardiner) != kNumerals.end()) {
        return SignRole::Numeral;
    }
    if (gardiner.starts_with("Aa")) {
        return SignRole::None;
    }
    switch (gardiner.front()) {
        case 'A':
        case 'B':
        case 'C':
            return SignRole::Person;
        case 'E':
            return SignRole::Animal;
        case 'G':
            return SignRole::Bird;
        default:
            return SignRole::None;
    }
}

SignForm formOf(int width, int height)
{
    constexpr int kBroad = 720;
    if (width <= kBroad && height <= kBroad) {
        return SignForm::Small;
    }
    if (height <= 640) {
        return SignForm::Flat;
    }
    return height <= 870 ? SignForm::Medium : SignForm::Tall;
}

SignTraits traits(const SignInfo& sign)
{
    SignTraits traits;
    traits.gardiner = sign.gardiner;
    traits.role = roleOf(sign.gardiner);
    if (const auto shape = shapeOf(sign.code)) {
        traits.width = shape->width;
        traits.height = shape->height;
    }
    const auto set = std::ranges::find(kTypeHeights, sign.gardiner, &Height::gardiner);
    traits.height = set != kTypeHeights.end() ? set->height : traits.height;
    traits.form = formOf(traits.width, traits.height);
    return traits;
}

}  // namespace

const SignTraits& traitsOf(std::string_view code)
{
    static const auto all = [] {
        std::unordered_map<std::string_view, SignTraits> known;
        for (const SignInfo& sign : SignRepertoire::standard().signs()) {
            known.emplace(sign.code, traits(sign));
        }
        return known;
    }();
    static const SignTraits kUnknown;
    const auto found = all.find(code);
    return found == all.end() ? kUnknown : found->second;
}

}  // namespace karvel
