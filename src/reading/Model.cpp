#include "reading/Model.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <utility>

#include "base/RuntimeError.hpp"
#include "base/SignCode.hpp"

namespace karvel {

namespace {

constexpr std::string_view kHeader = "karvel-lettura 2";
constexpr std::uint32_t kMaxCount = 1U << 24U;  ///< a float holds every smaller number exactly
constexpr std::array<std::string_view, kEdits> kEditNames = {"fine", "dentro", "senza", "altro"};

[[noreturn]] void damaged()
{
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

/// Takes columns from the front of the file. Every function throws RuntimeError 13 when there is something
/// else.
class Columns {
  public:
    explicit Columns(std::string_view rest) : rest_(rest) {}

    std::string_view text(char end)
    {
        const std::size_t length = rest_.find(end);
        if (length == std::string_view::npos) {
            damaged();
        }
        const std::string_view column = rest_.substr(0, length);
        rest_.remove_prefix(length + 1);
        return column;
    }

    std::uint32_t number(char end, std::size_t limit)
    {
        const std::string_view column = text(end);
        std::uint32_t value = 0;
        const auto [last, fault] = std::from_chars(column.data(), column.data() + column.size(), value);
        if (fault != std::errc() || last != column.data() + column.size() || value >= limit) {
            damaged();
        }
        return value;
    }

    float count(char end) { return static_cast<float>(number(end, kMaxCount)); }

    SignNumbers signs(char end)
    {
        const std::string_view codes = text(end);
        if (!isSignSequence(codes)) {
            damaged();
        }
        return signsOf(codes);
    }

    char16_t signOrNone(char end)
    {
        const std::string_view codes = text(end);
        if (!codes.empty() && !isSignCode(codes)) {
            damaged();
        }
        return codes.empty() ? char16_t{0} : signsOf(codes).front();
    }

    /// The number of lines of the section `name` that begins here; never more than the bytes that are left.
    std::size_t section(std::string_view name)
    {
        if (text(' ') != name) {
            damaged();
        }
        return number('\n', rest_.size() + 1);
    }

    Edit edit(char end)
    {
        const auto name = std::ranges::find(kEditNames, text(end));
        if (name == kEditNames.end()) {
            damaged();
        }
        return static_cast<Edit>(name - kEditNames.begin());
    }

    void expectEnd() const
    {
        if (!rest_.empty()) {
            damaged();
        }
    }

  private:
    std::string_view rest_;
};

}  // namespace

SignNumbers signsOf(std::string_view codes)
{
    SignNumbers signs;
    signs.reserve(codes.size() / kCodeLength);
    for (; codes.size() >= kCodeLength; codes.remove_prefix(kCodeLength)) {
        std::size_t number = 0;
        if (const std::string_view code = codes.substr(0, kCodeLength); isSignCode(code)) {
            const auto key = static_cast<std::size_t>((code[1] - '0') * 10 + code[2] - '0');
            number = kCategories.find(code[0]) * kKeys + key;
        }
        signs.push_back(static_cast<char16_t>(number));
    }
    return signs;
}

ReadingModel parseModel(std::string_view bytes)
{
    ReadingModel model;
    Columns columns(bytes);
    if (columns.text('\n') != kHeader) {
        damaged();
    }
    model.words.resize(1 + columns.section("parole"));
    for (auto& word : std::span(model.words).subspan(1)) {
        word.transliteration = columns.text('\t');
        word.kind = columns.number('\t', ReadingModel::kKinds);
        word.count = columns.count('\n');
    }
    const std::size_t words = model.words.size();
    model.spellings.resize(columns.section("grafie"));
    for (auto& spelling : model.spellings) {
        spelling.signs = columns.signs('\t');
        spelling.word = columns.number('\t', words);
        spelling.count = columns.count('\n');
    }
    model.pairs.resize(columns.section("coppie"));
    for (auto& pair : model.pairs) {
        pair.before = columns.number('\t', words);
        pair.word = columns.number('\t', words);
        pair.count = columns.count('\n');
    }
    model.triples.resize(columns.section("terne"));
    for (auto& triple : model.triples) {
        triple.before2 = columns.number('\t', words);
        triple.before = columns.number('\t', words);
        triple.word = columns.number('\t', words);
        triple.count = columns.count('\n');
    }
    model.edits.resize(columns.section("modifiche"));
    for (auto& edit : model.edits) {
        edit.edit = columns.edit('\t');
        edit.sign = columns.signs('\t').front();
        edit.beside = columns.signOrNone('\t');
        edit.count = columns.count('\n');
    }
    columns.expectEnd();
    return model;
}

}  // namespace karvel
