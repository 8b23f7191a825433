#include <algorithm>
#include <charconv>

#include "base/SignCode.hpp"
#include "reading/Passage.hpp"

namespace karvel {

namespace {

constexpr std::string_view kFirstLine = "karvel-brano 1";
constexpr std::string_view kLastLine = "fine";

/// A field on a line of its own: what parts lines and fields is written with a backslash.
std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '\\':
                result += "\\\\";
                break;
            case '\t':
                result += "\\t";
                break;
            case '\n':
                result += "\\n";
                break;
            case '\r':
                result += "\\r";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::optional<std::string> unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const std::size_t which = ++i < text.size() ? std::string_view("\\tnr").find(text[i]) : 4;
        if (which >= 4) {
            return std::nullopt;
        }
        result += "\\\t\n\r"[which];
    }
    return result;
}

std::vector<std::string_view> split(std::string_view text, char at)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(at);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::optional<std::size_t> number(std::string_view text)
{
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

/// "parola", first sign, signs, and for a choice transliteration, translation and note.
std::optional<FixedWord> readFixed(std::string_view line)
{
    const auto fields = split(line, '\t');
    if ((fields.size() != 3 && fields.size() != 6) || fields[0] != "parola") {
        return std::nullopt;
    }
    const auto begin = number(fields[1]);
    const auto length = number(fields[2]);
    if (!begin || !length || *begin == 0 || *length == 0) {
        return std::nullopt;
    }
    FixedWord word{*begin - 1, *length, {}};
    if (fields.size() == 6) {
        const auto reading = unescaped(fields[3]);
        const auto meaning = unescaped(fields[4]);
        const auto note = unescaped(fields[5]);
        if (!reading || !meaning || !note) {
            return std::nullopt;
        }
        word.choice = ReadingChoice{*reading, *meaning, *note, 1};
    }
    return word;
}

}  // namespace

std::string writeHandWork(const HandWork& work)
{
    std::string file = std::string(kFirstLine) + "\n";
    for (const std::string_view line : split(work.text, '\n')) {
        file += "testo\t" + escaped(line) + "\n";
    }
    for (const FixedWord& word : work.fixed) {
        file += "parola\t" + std::to_string(word.begin + 1) + "\t" + std::to_string(word.length);
        if (word.choice) {
            file += "\t" + escaped(word.choice->transliteration) + "\t" + escaped(word.choice->translation) +
                    "\t" + escaped(word.choice->note);
        }
        file += "\n";
    }
    return file + std::string(kLastLine) + "\n";
}

std::optional<HandWork> readHandWork(std::string_view bytes)
{
    const std::string file = passageText(bytes);
    std::vector<std::string_view> lines = split(file, '\n');
    for (std::string_view& line : lines) {
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);  // an editor wrote it with the line ends of Windows
    }
    constexpr std::string_view kText = "testo\t";
    if (lines.size() < 4 || lines.front() != kFirstLine || !lines.back().empty() ||
        lines[lines.size() - 2] != kLastLine || !lines[1].starts_with(kText)) {
        return std::nullopt;
    }
    HandWork work;
    std::size_t i = 1;
    for (; lines[i].starts_with(kText); ++i) {
        const auto line = unescaped(lines[i].substr(kText.size()));
        if (!line) {
            return std::nullopt;
        }
        work.text += (i == 1 ? "" : "\n") + *line;
    }
    std::size_t free = 0;  // the first sign after the last fixed word
    const std::size_t signs = readSigns(work.text).codes.size() / kCodeLength;
    for (; i + 2 < lines.size(); ++i) {
        const auto word = readFixed(lines[i]);
        if (!word || word->begin < free || word->begin > signs || word->length > signs - word->begin) {
            return std::nullopt;
        }
        free = word->begin + word->length;
        work.fixed.push_back(*word);
    }
    return work;
}

}  // namespace karvel
