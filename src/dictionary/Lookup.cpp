#include "dictionary/Lookup.hpp"

#include <cstring>

namespace karvel {

MatchRule::MatchRule(std::uint8_t mode, std::string_view phrase) : first_(phrase)
{
    switch (static_cast<Mode>(mode)) {
        case Mode::Equal:
            kind_ = Kind::Equal;
            break;
        case Mode::StartsWith:
            kind_ = Kind::Ends;
            break;
        case Mode::EndsWith:
            kind_ = Kind::Ends;
            second_.swap(first_);
            break;
        case Mode::MissingSign: {
            // Kept: no length is tested, so the missing sign stands for any number of signs, none included,
            // and its two neighbours may overlap in a short entry. Only the first one counts.
            const std::size_t missing = phrase.find(kMissingSign);
            kind_ = missing == std::string_view::npos ? Kind::Never : Kind::Ends;
            if (kind_ == Kind::Ends) {
                second_ = phrase.substr(missing + kMissingSign.size());
                first_.resize(missing);
            }
            break;
        }
        default:
            kind_ = Kind::Contains;
    }
    const std::string quote(1, '"');
    if (kind_ == Kind::Contains) {
        held_ = first_;
    } else if (kind_ == Kind::Equal) {
        held_ = quote + first_ + quote;
    } else if (first_.size() >= second_.size()) {
        held_ = first_.empty() ? first_ : quote + first_;
    } else {
        held_ = second_ + quote;
    }
}

MatchRule MatchRule::beginningsOf(std::string_view phrase)
{
    MatchRule rule;
    rule.kind_ = Kind::Beginning;
    rule.first_ = phrase;
    // What is left over when the phrase is no whole number of signs belongs to its first one.
    const std::size_t cut = phrase.size() % kCodeLength;
    rule.second_ = phrase.substr(0, cut == 0 ? kCodeLength : cut);
    rule.held_ = '"' + rule.second_;
    return rule;
}

bool MatchRule::contains(std::string_view signs) const
{
    // Entries are a handful of signs: stepping through them beats setting up a general search. Looking at
    // both ends of the phrase first leaves next to nothing to compare in full.
    const std::size_t length = first_.size();
    if (length == 0) {
        return true;
    }
    const char front = first_.front();
    const char back = first_.back();
    for (std::size_t at = 0; at + length <= signs.size(); ++at) {
        const bool likely = ((signs[at] ^ front) | (signs[at + length - 1] ^ back)) == 0;
        if (likely && std::memcmp(signs.data() + at, first_.data(), length) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace karvel
