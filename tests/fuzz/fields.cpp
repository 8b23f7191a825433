// Any mix of calls of the field reader, on any text, in any window, against the slow and simple reader.

#include <array>
#include <cstdint>

#include "Target.hpp"
#include "support/FieldModel.hpp"

using namespace karvel;
using fuzz::require;
using testing::FieldModel;

namespace {

class Comparison {
  public:
    Comparison(std::string_view text, std::size_t window, std::size_t step)
        : text_(text), source_(text, step), reader_(source_, window), model_(text)
    {
    }

    /// False when there is nothing more to compare.
    bool call(unsigned which)
    {
        std::array<std::string_view, 4> all;
        const auto fields = std::span(all).first(which / 8 % 4 + 1);
        switch (which % 8) {
            case 0:
                require(reader_.atEnd() == model_.atEnd(), "both see the end");
                return true;
            case 1:
                skip(fields.size());
                return true;
            case 2:
                require(reader_.atEndButBlankLines() == model_.onlyBlankLinesLeft(),
                        "blank lines at the end");
                return !model_.onlyBlankLinesLeft();
            case 3:
            case 4:
                return reader_.quotedFieldsInWindow(fields) ? sameFields(fields, false) : true;
            case 5:
                return number();
            default:
                return read(fields);
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

    /// Which number a text is has a table among the core's tests; here only what is read counts.
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

    /// Skips fields as far as they are in the window, by the model's knowledge of where they end.
    void skip(std::size_t fields)
    {
        const std::string_view bytes = reader_.bytesInWindow();
        const auto from = static_cast<std::size_t>(reader_.position());
        require(bytes.empty() || text_.substr(from).starts_with(bytes), "the window holds what is read next");
        FieldModel behind = model_;
        for (; fields > 0 && behind.field(); --fields) {
        }
        if (fields == 0 && !bytes.empty() && behind.position() < from + bytes.size()) {
            reader_.skipBytes(behind.position() - from);
            model_ = behind;
        }
    }

    std::string_view text_;
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
    const std::string_view calls = input.tail(12);
    Comparison comparison(input.rest(), window, step);
    // Every round reads something, or the text is at its end.
    for (bool more = true; more;) {
        for (const char call : calls) {
            more = more && comparison.call(static_cast<unsigned char>(call));
        }
        more = more && comparison.call(7);
    }
    return 0;
}
