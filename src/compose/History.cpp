#include "compose/History.hpp"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.hpp"
#include "compose/UndoFile.hpp"

namespace karvel {

namespace {

constexpr std::string_view kTextName = "testo";             // stands in a line in place of the mode's number
constexpr std::size_t kLargestFile = std::size_t{1} << 20;  // bytes

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == 0x7F;
}

bool mayBeKept(const History::Search& search)
{
    if (search.text.empty()) {
        return false;
    }
    return search.isText()
               ? search.text.size() <= History::kLongest && std::ranges::none_of(search.text, isControl)
               : search.mode <= 6 && mayBePhrase(search.text);
}

/// A line of the file: mode or "testo", tab, codes or text.
std::optional<History::Search> searchOf(std::string_view line)
{
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view kind = line.substr(0, tab);
    const bool numbered = kind.size() == 1 && kind[0] >= '1' && kind[0] <= '6';
    if (!numbered && kind != kTextName) {
        return std::nullopt;
    }
    History::Search search{.mode = static_cast<std::uint8_t>(numbered ? kind[0] - '0' : 0),
                           .text = std::string(line.substr(tab + 1))};
    return mayBeKept(search) ? std::optional(std::move(search)) : std::nullopt;
}

}  // namespace

void History::read()
{
    if (std::exchange(read_, true)) {
        return;
    }
    std::string bytes;
    try {
        bytes = files_.readAll(kHistoryPath, kLargestFile);
    } catch (const RuntimeError& error) {
        mayWrite_ =
            error.number() == ErrorNumber::FileNotFound || error.number() == ErrorNumber::PathNotFound;
    }
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        if (auto search = searchOf(line)) {
            std::erase(searches_, *search);
            searches_.push_back(std::move(*search));
        }
    }
    if (searches_.size() > kKept) {
        searches_.erase(searches_.begin(), searches_.end() - static_cast<std::ptrdiff_t>(kKept));
    }
    position_ = static_cast<std::ptrdiff_t>(searches_.size());
}

const std::vector<History::Search>& History::searches()
{
    read();
    return searches_;
}

void History::rememberPhrase(std::uint8_t mode, std::string_view codes)
{
    remember({.mode = mode, .text = std::string(codes)});
}

void History::rememberText(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first != std::string_view::npos) {
        remember(
            {.mode = 0, .text = std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first))});
    }
}

void History::remember(Search search)
{
    read();
    if (!mayBeKept(search)) {
        return;
    }
    const bool isLast = !searches_.empty() && searches_.back() == search;
    if (!isLast) {
        std::erase(searches_, search);
        searches_.push_back(std::move(search));
        if (searches_.size() > kKept) {
            searches_.erase(searches_.begin());
        }
        write();
    }
    position_ = static_cast<std::ptrdiff_t>(searches_.size());
}

/// A failure is not reported: the search goes on, and a box at each search would be worse than a lost line.
void History::write() const
{
    if (!mayWrite_) {
        return;
    }
    std::string bytes;
    for (const Search& search : searches_) {
        bytes += search.isText() ? std::string(kTextName) : std::to_string(search.mode);
        bytes += '\t' + search.text + "\r\n";
    }
    try {
        files_.replace(kHistoryPath, bytes, Durability::Process);
    } catch (const RuntimeError&) {
    }
}

std::optional<std::string> History::step(std::ptrdiff_t direction, std::string_view shown)
{
    read();
    const auto count = static_cast<std::ptrdiff_t>(searches_.size());
    for (std::ptrdiff_t at = position_ + direction; at >= 0 && at < count; at += direction) {
        const Search& search = searches_[static_cast<std::size_t>(at)];
        if (!search.isText() && search.text != shown) {
            position_ = at;
            return search.text;
        }
    }
    return std::nullopt;
}

void History::clear()
{
    if (files_.exists(kHistoryPath)) {
        files_.remove(kHistoryPath);
    }
    searches_.clear();
    position_ = 0;
    read_ = true;
    mayWrite_ = true;
}

}  // namespace karvel
