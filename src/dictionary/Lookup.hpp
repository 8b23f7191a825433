#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/SignCode.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/SearchModes.hpp"

namespace karvel {

/// Which signs of an entry a question asked for.
struct SignMarks {
    std::string beginning;              ///< marked where the entry begins with it
    std::string end;                    ///< marked where the entry ends with it
    std::vector<std::string> anywhere;  ///< marked wherever they occur

    /// For each of `signs`, the codes of an entry, whether it is marked.
    [[nodiscard]] std::vector<bool> of(std::string_view signs) const;
};

/// Tells whether a record's signs satisfy a phrase in one of the search modes.
class MatchRule {
  public:
    /// `phrase` holds sign codes. Split compares like Contains.
    MatchRule(Mode mode, std::string_view phrase);

    /// The rule for the beginnings of `phrase`: those behind which whole signs follow, and `phrase` itself.
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

    /// The signs that make an entry match.
    [[nodiscard]] SignMarks marks() const;

    /// A text that stands in every matching record of the usual form, with the quotes around the signs where
    /// the match begins or ends with them; empty when there is none.
    [[nodiscard]] const std::string& textInMatches() const { return textInMatches_; }

  private:
    enum class Kind { Equal, Contains, Ends, Beginning, Never };

    MatchRule() = default;

    [[nodiscard]] bool contains(std::string_view signs) const;

    Kind kind_ = Kind::Contains;
    std::string first_;   ///< the phrase, or what the record must begin with
    std::string second_;  ///< what the record must end with, or the shortest beginning
    std::string textInMatches_;
};

/// The records whose signs satisfy `rule`, in file order. Reads the file once, front to back, only as far as
/// the match that was asked for. `reader` may leave out other records.
class Lookup {
  public:
    Lookup(RecordReader& reader, MatchRule rule) : reader_(reader), rule_(std::move(rule))
    {
        reader_.leaveOutWithout(rule_.textInMatches());
    }

    /// Moves to the next match; false at the end. Throws like RecordReader::next; matches already handed out
    /// stay valid.
    bool next()
    {
        while (reader_.next()) {
            if (rule_.matches(reader_.record().signs)) {
                return true;
            }
        }
        return false;
    }

  private:
    RecordReader& reader_;
    MatchRule rule_;
};

}  // namespace karvel
