#include "dictionary/Lookup.hpp"

#include <algorithm>
#include <cstring>

namespace karvel {

std::vector<bool> SignMarks::of(std::string_view signs) const
{
    std::vector<bool> marked(signs.size() / kCodeLength);
    const auto mark = [&](std::size_t at, std::size_t length) {
        std::fill_n(marked.begin() + static_cast<std::ptrdiff_t>(at / kCodeLength), length / kCodeLength,
                    true);
    };
    if (signs.starts_with(beginning)) {
        mark(0, beginning.size());
    }
    if (signs.ends_with(end)) {
        mark(signs.size() - end.size(), end.size());
    }
    for (const std::string& part : anywhere) {
        for (std::size_t at = 0; (at = signs.find(part, at)) != std::string_view::npos; at += kCodeLength) {
            mark(at, part.size());
        }
    }
    return marked;
}

MatchRule::MatchRule(Mode mode, std::string_view phrase) : first_(phrase)
{
    switch (mode) {
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
        case Mode::Split:
        case Mode::Contains:
            kind_ = Kind::Contains;
            break;
    }
    const std::string quote(1, '"');
    if (kind_ == Kind::Contains) {
        textInMatches_ = first_;
    } else if (kind_ == Kind::Equal) {
        textInMatches_ = quote + first_ + quote;
    } else if (first_.size() >= second_.size()) {
        textInMatches_ = first_.empty() ? first_ : quote + first_;
    } else {
        textInMatches_ = second_ + quote;
    }
}

SignMarks MatchRule::marks() const
{
    if (kind_ == Kind::Ends) {
        return {.beginning = first_, .end = second_, .anywhere = {}};
    }
    return {.beginning = {}, .end = {}, .anywhere = {first_}};
}

MatchRule MatchRule::beginningsOf(std::string_view phrase)
{
    MatchRule rule;
    rule.kind_ = Kind::Beginning;
    rule.first_ = phrase;
    // When the phrase is no whole number of signs, the first piece is the shorter one.
    const std::size_t cut = phrase.size() % kCodeLength;
    rule.second_ = phrase.substr(0, cut == 0 ? kCodeLength : cut);
    rule.textInMatches_ = '"' + rule.second_;
    return rule;
}

bool MatchRule::contains(std::string_view signs) const
{
    // An entry has only a few signs: this loop is faster than a general search. Comparing the first and the
    // last character first leaves almost nothing to compare in full.
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
