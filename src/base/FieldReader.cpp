#include "base/FieldReader.hpp"

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

/// Room behind the window that a wide comparison may look at; its bytes never decide anything.
constexpr std::size_t kPadding = 16;

/// No group of fields may be longer: a file without a single line end is no text, and must not eat the
/// memory.
constexpr std::size_t kLongestGroup = std::size_t{1} << 30;

/// The first double quote in [from, end), or `end`. Fields are a dozen bytes long, so the set-up of a
/// library call would cost more than the search.
inline const char* findQuote(const char* from, const char* end)
{
#if defined(__SSE2__)
    const __m128i quote = _mm_set1_epi8('"');
    for (; from < end; from += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        const auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, quote)));
        if (hits != 0) {
            return std::min(from + std::countr_zero(hits), end);
        }
    }
    return end;
#else
    const void* hit = std::memchr(from, '"', static_cast<std::size_t>(end - from));
    return hit != nullptr ? static_cast<const char*>(hit) : end;
#endif
}

bool endsField(char byte)
{
    return byte == ',' || byte == '\r' || byte == '\n';
}

}  // namespace

std::size_t TextSource::read(std::span<char> buffer)
{
    const std::size_t count = std::min(buffer.size(), text_.size() - at_);
    std::memcpy(buffer.data(), text_.data() + at_, count);
    at_ += count;
    return count;
}

WatchedSource::WatchedSource(std::unique_ptr<ByteSource> source, Watcher watcher)
    : source_(std::move(source)), watcher_(std::move(watcher))
{
}

std::size_t WatchedSource::read(std::span<char> buffer)
{
    if (!watcher_(done_, source_->size())) {
        throw ReadingStopped();
    }
    const std::size_t count = source_->read(buffer);
    done_ += count;
    return count;
}

FieldReader::FieldReader(ByteSource& source, std::size_t window)
    : source_(source), capacity_(std::max<std::size_t>(window, 16)), buffer_(new char[capacity_ + kPadding]())
{
}

/// Gets more bytes behind `end_`; false at the end of the source. Moves what is kept to the front.
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

/// The usual case, a quoted field and its CR LF wholly inside the window: where the next one begins, or null.
inline const char* FieldReader::quotedFieldInWindow(const char* at, std::string_view& field) const
{
    const char* const end = buffer_.get() + end_;
    if (at == end || *at != '"') {
        return nullptr;
    }
    const char* const quote = findQuote(at + 1, end);
    if (end - quote < 3 || quote[1] != '\r' || quote[2] != '\n') {
        return nullptr;
    }
    field = {at + 1, static_cast<std::size_t>(quote - at - 1)};
    return quote + 3;
}

bool FieldReader::recordInWindow(std::array<std::string_view, 4>& fields)
{
    if (emptyLines_ > 0) {
        return false;
    }
    const char* at = buffer_.get() + at_;
    for (std::string_view& field : fields) {
        at = quotedFieldInWindow(at, field);
        if (at == nullptr) {
            return false;
        }
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
    while (have() && !endsField(buffer_[at_])) {
        ++at_;
    }
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
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return 0;  // "inf" and its like are words here, not numbers
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        if (text.find('-', 1) != std::string_view::npos) {
            return 0;  // a negative exponent: too small for a fraction, not too large
        }
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (error != std::errc() || end != text.data() + text.size()) {
        return 0;
    }
    value = std::nearbyint(value);
    if (value < static_cast<double>(lowest) || value > static_cast<double>(highest)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int64_t>(value);
}

}  // namespace karvel
