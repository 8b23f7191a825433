#include "cards/CardEditor.hpp"

#include <algorithm>

#include "base/SignCode.hpp"
#include "cards/CardName.hpp"
#include "text/CodePage.hpp"
#include "text/Compose.hpp"

namespace karvel {

namespace {

std::string bracketed(std::string_view name)
{
    return "[" + std::string(name) + "]";
}

}  // namespace

CardEditor::CardEditor(const FileSystem& files, UserInterface& ui, const DisplayLine& display,
                       Palette& palette)
    : cards_(files), ui_(ui), display_(display), palette_(palette)
{
}

void CardEditor::warn(const std::string& text, Icon icon)
{
    ui_.ask({.title = "Attenzione:", .text = text, .icon = icon});
}

/// Runs `action`; a failure is reported as `failed` and the reason. True when it went well.
bool CardEditor::attempt(const std::string& failed, const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const RuntimeError& error) {
        warn(failed + "\r" + std::string(error.text()) + ".", Icon::Critical);
        return false;
    }
}

void CardEditor::refill()
{
    std::vector<std::string> listed;
    attempt("Non riesco a leggere l'elenco delle schede.", [&] { listed = cards_.list(); });
    names_.clear();
    for (std::string& name : listed) {
        // The user may have edited the list: a line that is no card name stays in the file and is not used.
        if (!cardNameRefusal(name) && !placeOf(name)) {
            names_.push_back(std::move(name));
        }
    }
    if (current_) {
        current_ = placeOf(name_);
        if (!current_) {
            showFirst();
        }
    }
}

std::optional<std::size_t> CardEditor::placeOf(std::string_view name) const
{
    const auto found =
        std::ranges::find_if(names_, [&](const std::string& each) { return sameCard(each, name); });
    return found == names_.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - names_.begin()));
}

bool CardEditor::isSign(std::size_t index) const
{
    return index < std::min(fields_.size(), kCardSigns) && isSignCode(fields_[index]);
}

void CardEditor::open()
{
    refill();
    showFirst();
    const std::string last = cards_.last();
    if (placeOf(last) && cards_.exists(last)) {
        loadNamed(last);
    }
}

void CardEditor::showFirst()
{
    current_.reset();
    name_ = kFirstName;
    fields_.clear();
    attempt("Non riesco a leggere la scheda " + bracketed(name_) + ".",
            [this] { fields_ = cards_.readFirst(); });
}

void CardEditor::loadNamed(std::string_view name)
{
    if (const auto place = placeOf(name)) {
        load(*place);
    }
}

void CardEditor::load(std::size_t index)
{
    current_ = index;
    name_ = upperCase(names_[index]);
    fields_.clear();
    if (!isPresent() || !reread()) {
        return;
    }
    try {
        cards_.remember(name_);
    } catch (const RuntimeError&) {
        return;  // only a convenience for the next opening: the card is shown all the same
    }
}

/// False when the card's file is missing; the user has then been told.
bool CardEditor::isPresent()
{
    if (cards_.exists(name_)) {
        return true;
    }
    const Button answer = ui_.ask({.title = "Attenzione:",
                                   .text = "Il file della scheda " + bracketed(name_) +
                                           " non c'è più.\rTolgo il nome dall'elenco delle schede ?",
                                   .icon = Icon::Exclamation,
                                   .buttons = Buttons::YesNo,
                                   .defaultButton = Button::No});
    if (answer == Button::Yes) {
        attempt("Non riesco a scrivere l'elenco delle schede.", [this] { cards_.strike(name_); });
        refill();
    }
    showFirst();
    return false;
}

/// The card's fields as the file holds them now; the first card when it cannot be read.
bool CardEditor::reread()
{
    if (attempt("Non riesco a leggere la scheda " + bracketed(name_) + ".",
                [this] { fields_ = cards_.read(name_); })) {
        return true;
    }
    showFirst();
    return false;
}

void CardEditor::create()
{
    const auto typed = ui_.input("Nuova scheda", "Nome della nuova scheda:");
    if (!typed) {
        return;
    }
    const std::string name = composed(trimmed(*typed));
    if (const auto refusal = cardNameRefusal(name)) {
        warn(*refusal);
        return;
    }
    if (cards_.exists(name)) {
        takeUpFile(name);
        return;
    }
    if (attempt("Non riesco a creare la scheda " + bracketed(name) + ".", [&] { cards_.crea(name); })) {
        refill();
        loadNamed(name);
    }
}

/// There is a file of that name: a card already, or one that somebody has put there by hand.
void CardEditor::takeUpFile(const std::string& name)
{
    if (placeOf(name)) {
        warn("Esiste già una scheda con il nome " + bracketed(name) + ".\rScegliere un altro nome.");
        return;
    }
    const Button answer = ui_.ask({.title = "Domanda di sistema:",
                                   .text = "Il file " + bracketed(name + ".txt") +
                                           " esiste già, ma la scheda non è nell'elenco.\r"
                                           "La aggiungo all'elenco così com'è ?",
                                   .icon = Icon::Question,
                                   .buttons = Buttons::YesNo,
                                   .defaultButton = Button::No});
    if (answer == Button::Yes &&
        attempt("Non riesco a scrivere l'elenco delle schede.", [&] { cards_.enlist(name); })) {
        refill();
        loadNamed(name);
    }
}

void CardEditor::add()
{
    if (!current_ || !isPresent() || !reread()) {
        return;
    }
    if (fields_.size() >= kCardSigns) {
        warn("La scheda " + bracketed(name_) +
             " è già piena \rPer aggiungere un geroglifico è neccessario eliminarne almeno uno !");
        return;
    }
    const std::string code = display_.DisplayCodes().substr(0, kCodeLength);
    if (code.empty()) {
        warn(
            "Sul display non è presente il geroglifico da aggiungere \r"
            "Digitare prima il geroglifico e ripetere l'operazione.",
            Icon::Critical);
        return;
    }
    if (!isSignCode(code)) {
        warn("Il primo segno del display (" + code + ") non è un geroglifico della tavolozza.",
             Icon::Critical);
        return;
    }
    attempt("Non riesco a scrivere la scheda " + bracketed(name_) + ".", [&] { cards_.append(name_, code); });
    reread();
}

void CardEditor::refuseLastSign()
{
    warn("La scheda " + bracketed(name_) +
         " contiene un solo geroglifico. \rNon posso lasciare la scheda vuota !\r"
         "Aggiungere prima un geroglifico e poi eliminare il presente.");
}

bool CardEditor::leavesNothing(std::string_view code) const
{
    return std::ranges::all_of(fields_, [&](const std::string& field) { return field == code; });
}

void CardEditor::removeSign()
{
    if (!current_ || !isPresent() || !reread()) {
        return;
    }
    if (fields_.size() == 1) {
        refuseLastSign();
        return;
    }
    const std::string code = display_.DisplayCodes().substr(0, kCodeLength);
    if (code.empty()) {
        warn(
            "Sul display non è presente il geroglifico da eliminare \r"
            "Digitare prima il geroglifico selezionandolo dalla presente scheda e ripetere l'operazione.",
            Icon::Critical);
        return;
    }
    // The same sign several times is one sign: taking it away would leave the card empty too.
    if (leavesNothing(code)) {
        refuseLastSign();
        return;
    }
    const Button answer = ui_.ask(
        {.title = "Domanda di sistema:",
         .text = "Elimino il geroglifico, presente sul display, alla scheda " + bracketed(name_) + " ?",
         .icon = Icon::Question,
         .buttons = Buttons::OkCancel});
    if (answer != Button::Ok) {
        return;
    }
    attempt("Non riesco a scrivere la scheda " + bracketed(name_) + ".",
            [&] { cards_.removeSign(name_, code); });
    reread();
}

void CardEditor::deleteCard()
{
    if (!current_) {
        return;
    }
    refill();  // somebody else may have changed the list meanwhile
    if (!current_) {
        return;
    }
    if (names_.size() == 1) {
        warn(
            "Attenzione non è possibile eliminare questa scheda poichè è l'unica \r"
            "Procedere aggiungendo una nuova scheda e successivamente cancellare questa.");
        return;
    }
    const Button answer = ui_.ask({.title = "Domanda di sistema:",
                                   .text = "Elimino la scheda " + bracketed(name_) + " ?",
                                   .icon = Icon::Question,
                                   .buttons = Buttons::OkCancel,
                                   .defaultButton = Button::Cancel});
    if (answer != Button::Ok) {
        return;
    }
    const bool deleted = attempt("Non riesco a eliminare la scheda " + bracketed(name_) + ".", [this] {
        cards_.remove(name_);
        cards_.forget(name_);
    });
    const std::size_t place = *current_;
    refill();
    if (deleted && !names_.empty()) {
        load(std::min(place, names_.size() - 1));
    }
}

void CardEditor::press(std::size_t index)
{
    if (isSign(index)) {
        palette_.pressCode(fields_[index]);
    }
}

}  // namespace karvel
