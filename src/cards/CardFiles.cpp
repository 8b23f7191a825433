#include "cards/CardFiles.hpp"

#include <algorithm>

#include "base/SignCode.hpp"
#include "cards/CardName.hpp"
#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

constexpr std::size_t kLargestFile = 1U << 20U;  // bytes; a card beyond that is no card
constexpr std::string_view kNewCardSign = "a01";

/// Fields one per line. One that needs quotes got there in quotes and keeps them.
std::string linesOf(const std::vector<std::string>& fields)
{
    std::string text;
    for (const std::string& field : fields) {
        text += readableLine(field);
    }
    return text;
}

/// A sign code, written in any letter case, in small letters; any other text as it is.
std::string asSystemWrites(const std::string& field)
{
    std::string code = field;
    for (char& each : code) {
        if (each >= 'A' && each <= 'Z') {
            each = static_cast<char>(each - 'A' + 'a');
        }
    }
    return isSignCode(code) ? code : field;
}

bool isMissing(const RuntimeError& error)
{
    return error.number() == ErrorNumber::FileNotFound || error.number() == ErrorNumber::PathNotFound;
}

}  // namespace

std::string cardImage(std::string_view code)
{
    return "C:\\programmi\\Karvel\\GR\\" + std::string(code) + ".gif";
}

std::string CardFiles::path(std::string_view name)
{
    if (cardNameRefusal(name)) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    return std::string(kCardDirectory) + std::string(name) + ".txt";
}

std::vector<std::string> CardFiles::fieldsOf(std::string_view path) const
{
    const std::string bytes = files_.readAll(path, kLargestFile);
    TextSource source(bytes);
    FieldReader reader(source);
    std::vector<std::string> fields;
    while (!reader.atEnd()) {
        fields.push_back(decode(reader.field()));
    }
    return fields;
}

std::vector<std::string> CardFiles::signsOf(std::string_view path) const
{
    std::vector<std::string> signs = fieldsOf(path);
    std::erase(signs, std::string());
    std::ranges::transform(signs, signs.begin(), asSystemWrites);
    return signs;
}

std::vector<std::string> CardFiles::read(std::string_view name) const
{
    return signsOf(path(name));
}

std::vector<std::string> CardFiles::readFirst() const
{
    try {
        return signsOf(kFirstCardPath);
    } catch (const RuntimeError& error) {
        if (!isMissing(error)) {
            throw;
        }
        return {};
    }
}

void CardFiles::append(std::string_view name, std::string_view code) const
{
    files_.append(path(name), fieldLine(code));
}

void CardFiles::crea(std::string_view name) const
{
    const std::string card = path(name);
    if (files_.exists(card)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    files_.replace(card, fieldLine(kNewCardSign));
    try {
        enlist(name);
    } catch (const RuntimeError&) {
        files_.remove(card);
        throw;
    }
}

void CardFiles::removeSign(std::string_view name, std::string_view code) const
{
    std::vector<std::string> fields = read(name);
    std::erase(fields, code);
    files_.replace(path(name), linesOf(fields));
}

void CardFiles::remove(std::string_view name) const
{
    const std::string card = path(name);
    const bool listed = std::ranges::any_of(list(), [&](const auto& each) { return sameCard(each, name); });
    const std::string before = listed ? files_.readAll(kCardListPath, kLargestFile) : std::string();
    strike(name);
    try {
        files_.remove(card);
    } catch (const RuntimeError& error) {
        if (isMissing(error)) {
            return;
        }
        if (listed) {
            files_.replace(kCardListPath, before);
        }
        throw;
    }
}

std::vector<std::string> CardFiles::list() const
{
    std::vector<std::string> names;
    try {
        names = fieldsOf(kCardListPath);
    } catch (const RuntimeError& error) {
        if (!isMissing(error)) {
            throw;
        }
    }
    std::erase(names, std::string());
    return names;
}

void CardFiles::enlist(std::string_view name) const
{
    if (std::ranges::none_of(list(), [&](const auto& each) { return sameCard(each, name); })) {
        files_.append(kCardListPath, fieldLine(name));
    }
}

void CardFiles::strike(std::string_view name) const
{
    std::vector<std::string> names = list();
    if (std::erase_if(names, [&](const auto& each) { return sameCard(each, name); }) > 0) {
        files_.replace(kCardListPath, linesOf(names));
    }
}

std::string CardFiles::last() const
{
    try {
        const std::vector<std::string> fields = fieldsOf(kLastCardPath);
        return fields.empty() ? std::string() : fields.front();
    } catch (const RuntimeError&) {
        return {};  // a note that cannot be read is no note
    }
}

void CardFiles::remember(std::string_view name) const
{
    files_.replace(kLastCardPath, fieldLine(upperCase(name)), Durability::Process);
}

void CardFiles::forget(std::string_view name) const
{
    if (sameCard(last(), name)) {
        files_.remove(kLastCardPath);
    }
}

}  // namespace karvel
