#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/SignCode.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/SearchModes.hpp"

namespace karvel {

/// Tells whether a record's signs satisfy a phrase in one of the search modes.
class MatchRule {
  public:
    /// `phrase` holds sign codes. `mode` may be any value: unknown ones, and Split, compare like Contains.
    MatchRule(std::uint8_t mode, std::string_view phrase);

    /// Every beginning of `phrase` that leaves whole signs of it, `phrase` itself included.
    [[nodiscard]] static MatchRule beginningsOf(std::string_view phrase);

    [[nodiscard]] bool matches(std::string_view signs) const
    {
        switch (kind_) {
            case Kind::Equal:
                return signs == first_;
            case Kind::Contains:
                return contains(signs);
            case Kind::Ends:
                return signs.starts_with(first_) && signs.ends_with(second_);
            case Kind::Beginning:
                return signs.size() >= second_.size() && first_.starts_with(signs) &&
                       (first_.size() - signs.size()) % kCodeLength == 0;
            case Kind::Never:
                return false;
        }
        return false;
    }

    /// A text that every matching record holds in a file of the usual form, with the quotes around its signs
    /// where they must stand there; empty when there is none.
    [[nodiscard]] const std::string& held() const { return held_; }

  private:
    enum class Kind { Equal, Contains, Ends, Beginning, Never };

    MatchRule() = default;

    [[nodiscard]] bool contains(std::string_view signs) const;

    Kind kind_ = Kind::Contains;
    std::string first_;   ///< the phrase, or what the record must begin with
    std::string second_;  ///< what the record must end with, or the shortest beginning
    std::string held_;
};

/// The records whose signs satisfy `rule`, in file order. Reads once, front to back, as matches are asked
/// for.
class Lookup {
  public:
    Lookup(RecordReader& reader, MatchRule rule) : reader_(reader), rule_(std::move(rule))
    {
        reader_.lookFor({rule_.held(), [own = rule_](std::string_view signs) { return own.matches(signs); }});
    }

    /// Moves to the next match; false at the end. Throws like RecordReader::next; matches already handed out
    /// stay valid.
    bool next()
    {
        for (;;) {
            if (wait_ > 0) {
                --wait_;
            } else if (!reader_.skip()) {
                wait_ = kWait;
            }
            if (!reader_.next()) {
                return false;
            }
            if (rule_.matches(reader_.record().signs)) {
                return true;
            }
        }
    }

  private:
    /// Where there was nothing to skip there will not be much: so many records are read before the next try.
    static constexpr int kWait = 8;

    RecordReader& reader_;
    MatchRule rule_;
    int wait_ = 0;
};

}  // namespace karvel
