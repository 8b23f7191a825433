#include "text/FieldReader.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "text/ByteScan.hpp"

namespace karvel {

namespace {

/// No group of fields may be longer: a file without a single line end is no text, and must not eat the
/// memory.
constexpr std::size_t kLongestGroup = std::size_t{1} << 27;

bool endsField(char byte)
{
    return byte == ',' || byte == '\r' || byte == '\n';
}

/// A file of settings is a few bytes long and needs no window made for a dictionary.
std::size_t windowFor(const ByteSource& source, std::size_t wanted)
{
    const std::uint64_t size = source.size();
    const auto least =
        static_cast<std::size_t>(size > 0 ? std::min<std::uint64_t>(size + 1, wanted) : wanted);
    return std::max<std::size_t>(least, 16);
}

}  // namespace

FieldReader::FieldReader(ByteSource& source, std::size_t window)
    : source_(source),
      capacity_(windowFor(source, window)),
      buffer_(new char[capacity_ + kScanPadding]()),
      portion_(capacity_)
{
}

/// Gets more bytes behind `end_`; false at the end of the source. Moves what is kept to the front.
bool FieldReader::more()
{
    ends_.at = kNowhere;
    if (keep_ > 0) {
        std::memmove(buffer_.get(), buffer_.get() + keep_, end_ - keep_);
        discarded_ += keep_;
        at_ -= keep_;
        end_ -= keep_;
        keep_ = 0;
    }
    if (end_ == capacity_) {
        if (capacity_ >= kLongestGroup) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        std::unique_ptr<char[]> wider(new char[capacity_ * 2 + kScanPadding]());
        std::memcpy(wider.get(), buffer_.get(), end_);
        buffer_ = std::move(wider);
        capacity_ *= 2;
    }
    const std::size_t count = source_.read({buffer_.get() + end_, std::min(portion_, capacity_ - end_)});
    portion_ = std::min(2 * portion_, capacity_);
    end_ += count;
    return count > 0;
}

bool FieldReader::atEnd()
{
    keep_ = at_;
    return emptyLines_ == 0 && !have();
}

void FieldReader::moveTo(std::uint64_t position)
{
    constexpr std::size_t kPortion = 4 * 1024;
    source_.moveTo(position);
    discarded_ = position;
    keep_ = at_ = end_ = 0;
    ends_.at = kNowhere;
    emptyLines_ = 0;
    portion_ = std::min(kPortion, capacity_);
}

void FieldReader::lineEndAfterCr()
{
    if (have() && buffer_[at_] == '\n') {
        ++at_;
    }
}

bool FieldReader::atEndButBlankLines()
{
    keep_ = at_;
    while (have()) {
        const char byte = buffer_[at_];
        if (byte != ' ' && byte != '\r' && byte != '\n') {
            return false;
        }
        ++at_;
        if (byte == '\r') {
            lineEndAfterCr();
        }
        if (byte != ' ') {
            ++emptyLines_;  // blanks alone make no field: they are skipped before the next one anyway
        }
        keep_ = at_;
    }
    emptyLines_ = 0;
    return true;
}

/// Finds the ends in the block. False when a quote of it neither begins nor ends a field of that form: then
/// nothing can be said of any field in it.
inline bool FieldReader::readBlock(FieldEnds& ends) const
{
    auto [quotes, closing] = marksOf(buffer_.get() + ends.block);
    // Behind the window stand bytes of the past: a quote counts when it is inside, an end when its CR LF is.
    const auto lowest = [](std::size_t count) {
        return count < kBlock ? (std::uint64_t{1} << count) - 1 : ~std::uint64_t{0};
    };
    const std::size_t inside = end_ - ends.block;
    quotes &= lowest(inside);
    closing &= lowest(inside - std::min<std::size_t>(inside, 2));
    const std::uint64_t opening = (ends.opening | closing << 3) & lowest(inside);
    ends.opening = closing >> (kBlock - 3);
    ends.closing = closing;
    // A field that begins with a line end looks like two: no quote may both begin and end one.
    return quotes == (closing | opening) && (closing & opening) == 0;
}

/// Takes up the ends again where reading has come to; false when the usual form does not go on there.
bool FieldReader::resumeEnds(FieldEnds& ends) const
{
    if (emptyLines_ > 0 || at_ == end_ || buffer_[at_] != '"') {
        return false;
    }
    ends = ends_;
    if (ends.at == at_) {
        return true;
    }
    ends = {.at = at_, .block = at_, .opening = 1};
    return readBlock(ends);
}

bool FieldReader::recordInWindow(std::array<std::string_view, 4>& fields)
{
    FieldEnds ends;
    if (!resumeEnds(ends)) {
        return false;
    }
    std::size_t open = at_ + 1;
    for (std::string_view& field : fields) {
        while (ends.closing == 0) {
            ends.block += kBlock;
            if (ends.block >= end_ || !readBlock(ends)) {
                return false;
            }
        }
        const std::size_t close = ends.block + static_cast<std::size_t>(std::countr_zero(ends.closing));
        ends.closing &= ends.closing - 1;
        field = {buffer_.get() + open, close - open};
        open = close + 4;  // behind CR LF and the next opening quote
    }
    keep_ = at_ = ends.at = open - 1;
    ends_ = ends;
    return true;
}

bool FieldReader::skipRecordsWithout(std::string_view text)
{
    struct Place {
        FieldEnds ends;
        int fields = 0;  ///< ended before the block since `at_`
    };
    Place here;
    if (text.empty() || !resumeEnds(here.ends)) {
        return false;
    }
    // The last two blocks in which a record ended. Only the records that ended by the first of them are
    // skipped: so one whole record at least is left to be read, whatever follows.
    Place last;
    Place before;
    while (here.ends.block + kBlock + text.size() <= end_ &&
           !beginsInBlock(text, buffer_.get() + here.ends.block)) {
        const int count = std::popcount(here.ends.closing);
        if (here.fields % 4 + count >= 4) {
            before = last;
            last = here;
        }
        here.fields += count;
        here.ends.block += kBlock;
        if (!readBlock(here.ends)) {
            break;
        }
    }
    const std::size_t from = at_;
    for (; before.ends.closing != 0; before.ends.closing &= before.ends.closing - 1) {
        if (++before.fields % 4 == 0) {
            const int bit = std::countr_zero(before.ends.closing);
            ends_ = before.ends;
            ends_.closing &= ends_.closing - 1;
            keep_ = at_ = ends_.at = ends_.block + static_cast<std::size_t>(bit) + 3;
        }
    }
    return at_ != from;
}

FieldReader::Slice FieldReader::next()
{
    Slice slice{};
    if (emptyLines_ > 0) {
        --emptyLines_;
        return {at_ - keep_, 0};
    }
    while (have() && buffer_[at_] == ' ') {
        ++at_;
    }
    if (!have()) {
        throw RuntimeError(ErrorNumber::InputPastEnd);
    }
    if (buffer_[at_] != '"') {
        return bareField();
    }
    ++at_;
    slice.begin = at_ - keep_;
    for (;;) {
        const char* const from = buffer_.get() + at_;
        const char* const end = buffer_.get() + end_;
        const char* const quote = findQuote(from, end);
        at_ += static_cast<std::size_t>(quote - from);
        if (quote != end) {
            break;
        }
        if (!more()) {
            insideQuote_ = true;
            throw RuntimeError(ErrorNumber::InputPastEnd);
        }
    }
    slice.length = at_ - keep_ - slice.begin;
    ++at_;
    endOfQuotedField();
    return slice;
}

/// Whatever stands between the closing quote and the delimiter belongs to no field.
void FieldReader::endOfQuotedField()
{
    while (have()) {
        const char byte = buffer_[at_++];
        if (byte == '\r') {
            lineEndAfterCr();
        }
        if (endsField(byte)) {
            return;
        }
    }
}

FieldReader::Slice FieldReader::bareField()
{
    Slice slice{at_ - keep_, 0};
    do {
        const char* const from = buffer_.get() + at_;
        const char* const end = buffer_.get() + end_;
        at_ += static_cast<std::size_t>(std::find_if(from, end, endsField) - from);
    } while (at_ == end_ && more());
    slice.length = at_ - keep_ - slice.begin;
    while (slice.length > 0 && buffer_[keep_ + slice.begin + slice.length - 1] == ' ') {
        --slice.length;
    }
    if (have()) {
        const char byte = buffer_[at_++];
        if (byte == '\r') {
            lineEndAfterCr();
        }
    }
    return slice;
}

std::string_view FieldReader::field()
{
    std::string_view one;
    fields({&one, 1});
    return one;
}

void FieldReader::fields(std::span<std::string_view> fields)
{
    constexpr std::size_t kUsual = 8;
    std::array<Slice, kUsual> few;
    std::vector<Slice> many;
    if (fields.size() > kUsual) {
        many.resize(fields.size());
    }
    Slice* const slices = fields.size() > kUsual ? many.data() : few.data();
    keep_ = at_;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        slices[i] = next();
    }
    // Only now is the window where it stays: each field read may have moved it.
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i] = {buffer_.get() + keep_ + slices[i].begin, slices[i].length};
    }
}

std::int64_t FieldReader::wholeNumber(std::int64_t lowest, std::int64_t highest)
{
    std::string_view text = field();
    // Blanks inside quotes do not change a number.
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return 0;  // "inf" and its like are words here, not numbers
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size()) {
        return 0;
    }
    if (error == std::errc::result_out_of_range) {
        if (text.find('-', 1) != std::string_view::npos) {
            return 0;  // a negative exponent: too small for a fraction, not too large
        }
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (error != std::errc()) {
        return 0;
    }
    value = std::nearbyint(value);
    if (value < static_cast<double>(lowest) || value > static_cast<double>(highest)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int64_t>(value);
}

}  // namespace karvel
