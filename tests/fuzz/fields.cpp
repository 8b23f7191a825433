// Any mix of calls of the field reader, on any text, in any window, against the slow and obvious reader.

#include <array>

#include "Target.hpp"
#include "support/FieldModel.hpp"

using namespace karvel;
using fuzz::require;
using testing::FieldModel;

namespace {

class Contest {
  public:
    Contest(std::string_view text, std::size_t window, std::size_t step, std::string_view wanted)
        : text_(text), wanted_(wanted), source_(text, step), reader_(source_, window), model_(text)
    {
    }

    /// False when there is nothing more to compare.
    bool call(unsigned which)
    {
        std::array<std::string_view, 4> fields;
        switch (which % 8) {
            case 0:
                require(reader_.atEnd() == model_.atEnd(), "both see the end");
                return true;
            case 1:
                skip();
                return true;
            case 2:
                require(reader_.atEndButBlankLines() == model_.onlyBlankLinesLeft(),
                        "blank lines at the end");
                return !model_.onlyBlankLinesLeft();
            case 3:
            case 4:
                return reader_.recordInWindow(fields) ? sameFields(fields, false) : true;
            case 5:
                return number();
            default:
                return read(std::span(fields).first(which / 8 % 4 + 1));
        }
    }

  private:
    bool read(std::span<std::string_view> fields)
    {
        bool failed = false;
        try {
            reader_.fields(fields);
        } catch (const RuntimeError& error) {
            require(error.number() == ErrorNumber::InputPastEnd, "reading fails by the end only");
            failed = true;
        }
        return sameFields(fields, failed);
    }

    bool sameFields(std::span<const std::string_view> fields, bool failed)
    {
        bool missing = false;
        for (const std::string_view field : fields) {
            const auto expected = model_.field();
            missing = missing || !expected;
            require(failed || (expected && *expected == field), "the same field");
        }
        require(failed == missing, "the same failure");
        require(reader_.insideQuote() == model_.insideQuote, "the same open quote");
        return !failed;
    }

    /// Numbers have a model of their own among the settings; here only what they leave behind counts.
    bool number()
    {
        try {
            (void)reader_.number<std::int16_t>();
        } catch (const RuntimeError& error) {
            if (error.number() == ErrorNumber::InputPastEnd) {
                require(!model_.field(), "the same end at a number");
                return false;
            }
            require(error.number() == ErrorNumber::Overflow, "a number overflows or is read");
        }
        require(model_.field().has_value(), "a number is a field");
        return true;
    }

    void skip()
    {
        const auto from = static_cast<std::size_t>(reader_.position());
        const bool skipped = reader_.skipRecordsWithout(wanted_);
        const auto to = static_cast<std::size_t>(reader_.position());
        require(skipped == (to != from), "skipping tells whether it skipped");
        if (!skipped) {
            return;
        }
        require(text_.substr(from, to - from).find(wanted_) == std::string_view::npos, "no match is skipped");
        require(model_.passTo(to), "only whole records are skipped, and one is left to be read");
    }

    std::string_view text_;
    std::string_view wanted_;
    testing::Dribble source_;
    FieldReader reader_;
    FieldModel model_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::size_t window = 16 + input.byte() * 8;
    const std::size_t step = 1 + input.byte() * 4;
    const std::size_t wanted = input.byte() % 8;
    const std::string_view calls = input.tail(12);
    Contest contest(input.rest(), window, step, calls.substr(0, wanted));
    // Every round reads something, or the text is at its end.
    for (bool more = true; more;) {
        for (const char call : calls) {
            more = more && contest.call(static_cast<unsigned char>(call));
        }
        more = more && contest.call(7);
    }
    return 0;
}
