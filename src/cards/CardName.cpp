#include "cards/CardName.hpp"

#include <algorithm>
#include <array>

#include "text/CodePage.hpp"

namespace karvel {

namespace {

constexpr std::string_view kForbidden = "*:./\\?\"<>|,";
constexpr std::array<std::string_view, 3> kOwnFiles = {"SPECIALE", "SCHEDEPREF", "UOMINI"};
constexpr std::array<std::string_view, 7> kDevices = {"CON",    "PRN",     "AUX",   "NUL",
                                                      "CONIN$", "CONOUT$", "CLOCK$"};

/// COM1, LPT9 and the like; the three superscript digits count as digits there.
bool isPort(std::string_view upper)
{
    if (!upper.starts_with("COM") && !upper.starts_with("LPT")) {
        return false;
    }
    const std::string_view number = upper.substr(3);
    return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') || number == "¹" || number == "²" ||
           number == "³";
}

bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

}  // namespace

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kWhite = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(kWhite);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

bool sameCard(std::string_view one, std::string_view other)
{
    return upperCase(one) == upperCase(other);
}

std::optional<std::string> cardNameRefusal(std::string_view name)
{
    if (name.empty() || trimmed(name) != name) {
        return "Il nome di una scheda non può essere vuoto, né cominciare o finire con uno spazio.";
    }
    std::size_t characters = 0;
    for (std::size_t at = 0; at < name.size(); ++characters) {
        const char32_t character = nextCharacter(name, at);
        if (isControl(character) ||
            (character < 0x80 && kForbidden.find(static_cast<char>(character)) != std::string_view::npos)) {
            return "Il nome di una scheda non può contenere virgole, virgolette, caratteri di controllo "
                   "e i caratteri * : . / \\ ? < > |";
        }
    }
    if (const std::string lost = unencodable(name); !lost.empty()) {
        return "Questi caratteri non possono stare nel nome di una scheda: " + lost;
    }
    if (characters > kLongestCardName) {
        return "Il nome di una scheda non può superare " + std::to_string(kLongestCardName) + " caratteri.";
    }
    const std::string upper = upperCase(name);
    if (std::ranges::find(kOwnFiles, upper) != kOwnFiles.end()) {
        return "Il nome [" + std::string(name) + "] è riservato ai file della finestra Schede.";
    }
    if (std::ranges::find(kDevices, upper) != kDevices.end() || isPort(upper)) {
        return "Il nome [" + std::string(name) + "] è riservato al sistema operativo.";
    }
    return std::nullopt;
}

}  // namespace karvel
