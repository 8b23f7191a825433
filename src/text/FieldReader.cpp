#include "text/FieldReader.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace karvel {

namespace {

/// No group of fields may have more bytes: a file without a single line end is no text and must not take all
/// the memory.
constexpr std::size_t kLongestGroup = std::size_t{1} << 27;

bool endsField(char byte)
{
    return byte == ',' || byte == '\r' || byte == '\n';
}

#if defined(__SSE2__)

/// Bytes behind the window that `findQuote` may load. Their values do not matter.
constexpr std::size_t kPadding = 16;

/// The first double quote in [from, end), or `end`. A field has about a dozen bytes: a library call for each
/// would take longer than the comparison.
inline const char* findQuote(const char* from, const char* end)
{
    const __m128i quotes = _mm_set1_epi8('"');
    for (; from < end; from += sizeof(__m128i)) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        if (const auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, quotes)))) {
            return std::min(from + std::countr_zero(hits), end);
        }
    }
    return end;
}

#else

constexpr std::size_t kPadding = 0;

const char* findQuote(const char* from, const char* end)
{
    const void* const hit = std::memchr(from, '"', static_cast<std::size_t>(end - from));
    return hit != nullptr ? static_cast<const char*>(hit) : end;
}

#endif

/// A file of settings has only a few bytes and needs no window of the size that a dictionary needs.
std::size_t windowFor(const ByteSource& source, std::size_t wanted)
{
    const std::uint64_t size = source.size();
    const auto least =
        static_cast<std::size_t>(size > 0 ? std::min<std::uint64_t>(size + 1, wanted) : wanted);
    return std::max<std::size_t>(least, 16);
}

}  // namespace

FieldReader::FieldReader(ByteSource& source, std::size_t window)
    : source_(source), capacity_(windowFor(source, window)), buffer_(new char[capacity_ + kPadding]())
{
}

/// Reads more bytes behind `end_`; false at the end of the source. Moves the bytes that are still needed to
/// the front of the window.
bool FieldReader::more()
{
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
        std::unique_ptr<char[]> wider(new char[capacity_ * 2 + kPadding]());
        std::memcpy(wider.get(), buffer_.get(), end_);
        buffer_ = std::move(wider);
        capacity_ *= 2;
    }
    const std::size_t count = source_.read({buffer_.get() + end_, capacity_ - end_});
    end_ += count;
    return count > 0;
}

bool FieldReader::atEnd()
{
    keep_ = at_;
    return emptyLines_ == 0 && !have();
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

bool FieldReader::quotedFieldsInWindow(std::span<std::string_view> fields)
{
    constexpr std::ptrdiff_t kFieldEnd = 3;  // closing quote, CR, LF
    if (emptyLines_ > 0) {
        return false;
    }
    const char* at = buffer_.get() + at_;
    const char* const end = buffer_.get() + end_;
    for (std::string_view& field : fields) {
        if (at == end || *at != '"') {
            return false;
        }
        const char* const close = findQuote(++at, end);
        if (end - close < kFieldEnd || close[1] != '\r' || close[2] != '\n') {
            return false;
        }
        field = {at, static_cast<std::size_t>(close - at)};
        at = close + kFieldEnd;
    }
    keep_ = at_ = static_cast<std::size_t>(at - buffer_.get());
    return true;
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

/// Characters between the closing quote and the delimiter belong to no field.
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
    std::array<Slice, kUsual> few{};
    std::vector<Slice> many;
    if (fields.size() > kUsual) {
        many.resize(fields.size());
    }
    Slice* const slices = fields.size() > kUsual ? many.data() : few.data();
    keep_ = at_;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        slices[i] = next();
    }
    // The views are made last, because reading a field may move the window.
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
        return 0;  // "inf" and "nan" are words here, not numbers
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
