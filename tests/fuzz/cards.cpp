// Card files, their list and the note of the last card with any content, and every operation on them.

#include <algorithm>

#include "Composing.hpp"
#include "cards/CardEditor.hpp"
#include "cards/CardName.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::errorOf;
using fuzz::require;

namespace {

/// Nothing when reading ends with error 62.
std::optional<std::vector<std::string>> fieldsIn(std::string_view bytes)
{
    std::vector<std::string> fields;
    for (testing::FieldModel model(bytes); !model.atEnd();) {
        const auto field = model.field();
        if (!field) {
            return std::nullopt;
        }
        fields.push_back(decode(*field));
    }
    return fields;
}

/// A card is read as it stands, and loses just the sign that is taken out.
void cardFile(const fuzz::Drive& drive, std::string_view bytes, const std::string& code)
{
    const CardFiles cards(drive.files);
    drive.put("GeroLink/prova.txt", bytes);
    auto expected = fieldsIn(bytes);
    std::vector<std::string> fields;
    require(errorOf([&] { fields = cards.read("PROVA"); }) == (expected ? 0 : 62),
            "a card is read or told to be cut");
    if (!expected) {
        require(errorOf([&] { cards.removeSign("prova", code); }) == 62, "a cut card is not rewritten");
        require(drive.get("GeroLink/prova.txt") == bytes, "and stays as it is");
        return;
    }
    require(fields == *expected, "a card has the fields of its file");
    std::erase(*expected, code);
    cards.removeSign("prova", code);
    require(cards.read("prova") == *expected, "a card loses one sign and nothing else");
    cards.append("prova", "b02");
    expected->emplace_back("b02");
    require(cards.read("prova") == *expected, "a card gets one sign more");
}

/// Names come and go in the list; what is no card stays in it.
void listFile(const fuzz::Drive& drive, std::string_view bytes, const std::string& name)
{
    const CardFiles cards(drive.files);
    drive.put("GeroLink/speciale.txt", bytes);
    auto expected = fieldsIn(bytes);
    std::vector<std::string> names;
    require(errorOf([&] { names = cards.list(); }) == (expected ? 0 : 62),
            "the list is read or told to be cut");
    if (!expected || cardNameRefusal(name)) {
        return;
    }
    std::erase(*expected, std::string());
    require(names == *expected, "the list has the names of its file");
    const auto same = [&](const std::string& each) { return sameCard(each, name); };
    if (std::ranges::none_of(*expected, same)) {
        expected->push_back(name);
    }
    cards.enlist(name);
    require(cards.list() == *expected, "a name is put at the end once");
    std::erase_if(*expected, same);
    cards.strike(name);
    require(cards.list() == *expected, "a name is struck out and no other");
    drive.drop("GeroLink/" + name + ".txt");
    require(errorOf([&] { cards.crea(name); }) == 0, "a card can be made of every name that is not refused");
    require(cards.read(name) == std::vector<std::string>{"a01"}, "and begins with one sign");
    cards.remember(name);
    require(sameCard(cards.last(), name), "the last card is noted");
    cards.forget(name);
    require(cards.last().empty(), "and forgotten");
    cards.remove(name);
    require(cards.list() == *expected && !cards.exists(name), "a card is deleted with its name");
}

void editor(const fuzz::Drive& drive, fuzz::Quiet& quiet, std::string_view bytes, std::string_view actions)
{
    drive.put("GeroLink/speciale.txt", bytes.substr(0, bytes.size() / 2));
    drive.put("GeroLink/uomini.txt", bytes);
    drive.put("GeroLink/schedepref.txt", bytes.substr(bytes.size() / 3));
    drive.put("GeroLink/prova.txt", bytes.substr(bytes.size() / 2));
    fuzz::Composing composing(drive.files, quiet);
    CardEditor editor(drive.files, quiet, composing.display, composing.palette);
    editor.open();
    for (const char action : actions) {
        const auto what = static_cast<unsigned char>(action);
        if (what % 5 == 0 && !editor.names().empty()) {
            editor.load(what / 5 % editor.names().size());
        } else if (what % 5 == 1) {
            editor.press(what / 5 % kCardSigns);
        } else if (what % 5 == 2) {
            editor.add();
        } else if (what % 5 == 3) {
            editor.removeSign();
        } else {
            editor.deleteCard();
        }
        require(!editor.current() || *editor.current() < editor.names().size(),
                "the card shown is in the list");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::Drive drive;
    static fuzz::Quiet quiet;
    fuzz::Input input(data, size);
    const unsigned kind = input.byte() % 3;
    if (kind == 0) {
        const std::string code = decode(input.line());
        cardFile(drive, input.rest(), code);
    } else if (kind == 1) {
        const std::string name(input.line());
        listFile(drive, input.rest(), name);
    } else {
        const std::string_view actions = input.tail(4);
        editor(drive, quiet, input.rest(), actions);
    }
    for (const auto& entry : std::filesystem::directory_iterator(drive.root)) {
        require(entry.path().filename() != "prova.txt", "cards lie in their own directory");
    }
    return 0;
}
