#include "dictionary/EditionUpdate.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <unordered_set>

#include "dictionary/DictionaryEntry.hpp"
#include "text/ByteSource.hpp"
#include "text/Checksum.hpp"
#include "text/FieldReader.hpp"

namespace karvel {

extern const std::string_view kEarlierRecords;  // made at build time from the data

namespace {

constexpr std::size_t kLargest = std::size_t{1} << 28;  // bytes: some three million records

using Fields = std::array<std::string_view, 4>;

/// The same for every form in which a record can stand in a file.
std::uint64_t checksumOf(const Fields& fields)
{
    std::uint64_t sum = checksum({});
    for (const std::string_view field : fields) {
        sum = checksum("\"", checksum(field, sum));  // no field holds a quote
    }
    return sum;
}

/// Calls `each` with the fields of every record of `text`, which has no fault, and with its bytes: from the
/// end of the record before up to and with the comma or line end behind the last field.
template <typename Each>
void forEachRecord(std::string_view text, Each each)
{
    TextSource source(text);
    FieldReader reader(source);
    std::uint64_t begin = 0;
    while (!reader.atEndButBlankLines()) {
        Fields fields;
        reader.fields(fields);
        each(fields, text.substr(begin, reader.position() - begin));
        begin = reader.position();
    }
}

using Checksums = std::unordered_set<std::uint64_t>;

/// The records of all editions: of the earlier ones checksums are kept, one a line.
Checksums shippedRecords(std::string_view edition)
{
    Checksums shipped;
    constexpr std::size_t kDigits = 16;
    for (std::string_view rest = kEarlierRecords; rest.size() >= kDigits;
         rest.remove_prefix(std::min(rest.size(), kDigits + 1))) {
        std::uint64_t sum = 0;
        std::from_chars(rest.data(), rest.data() + kDigits, sum, 16);
        shipped.insert(sum);
    }
    forEachRecord(edition,
                  [&](const Fields& fields, std::string_view) { shipped.insert(checksumOf(fields)); });
    return shipped;
}

bool endsLine(std::string_view text)
{
    return text.ends_with('\n') || text.ends_with('\r');
}

/// Adds a record as it stands, on lines of its own.
void addRecord(std::string& text, std::string_view bytes)
{
    if (bytes.ends_with(',')) {
        bytes.remove_suffix(1);  // it parted the record from the next one
    }
    text += bytes;
    if (!endsLine(text)) {
        text += "\r\n";
    }
}

}  // namespace

EditionUpdate planUpdate(const FileSystem& files)
{
    EditionUpdate update;
    try {
        update.after = files.readAll(kEditionPath, kLargest);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), std::string(kEditionPath));
    }
    TextSource edition(update.after);
    const Verification shipped = verify(edition);
    if (shipped.fault) {
        throw RuntimeError(ErrorNumber::InputPastEnd, std::string(kEditionPath));
    }
    update.editionRecords = shipped.records;
    update.before = files.readAll(kDictionaryPath, kLargest);
    TextSource present(update.before);
    Verification verified = verify(present);
    update.records = verified.records;
    update.fault = std::move(verified.fault);
    if (update.fault) {
        return update;
    }
    const Checksums known = shippedRecords(update.after);
    if (!endsLine(update.after)) {
        update.after += "\r\n";
    }
    forEachRecord(update.before, [&](const Fields& fields, std::string_view bytes) {
        if (!known.contains(checksumOf(fields))) {
            addRecord(update.after, bytes);
            ++update.ownRecords;
        }
    });
    return update;
}

std::string carryOut(EditionUpdate& update, const FileSystem& files)
{
    while (!update.changesNothing()) {
        if (auto kept = files.replaceKeeping(kDictionaryPath, update.before, update.after)) {
            return *std::move(kept);
        }
        update = planUpdate(files);  // another program has changed the dictionary meanwhile
        if (update.fault) {
            throw RuntimeError(ErrorNumber::InputPastEnd);
        }
    }
    return {};
}

}  // namespace karvel
