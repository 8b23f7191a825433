#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "cards/CardFiles.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"

namespace karvel {

/// What the cards window does: shows one card at a time, creates and deletes cards, and adds and removes
/// their signs.
///
/// Failures are reported in a box and leave the files as they were; nothing here throws, but
/// `press`, which throws like Palette::pressCode.
class CardEditor {
  public:
    /// All must outlive the editor.
    CardEditor(const FileSystem& files, UserInterface& ui, const DisplayLine& display, Palette& palette);

    /// The window opens: the first card, and then the card loaded last if there still is one.
    void open();

    /// The cards that can be loaded, as the list spells them.
    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }
    /// Which of them is shown; nothing while the first card is, which no command changes.
    [[nodiscard]] std::optional<std::size_t> current() const { return current_; }
    /// The name of the card shown, in upper case.
    [[nodiscard]] const std::string& name() const { return name_; }
    /// What its file holds, field by field; more than 48 when somebody else has written it.
    [[nodiscard]] const std::vector<std::string>& fields() const { return fields_; }
    /// Whether button `index` shows a sign that can be inserted.
    [[nodiscard]] bool isSign(std::size_t index) const;

    void showFirst();

    /// Shows card `index` of `names` and notes it as the one loaded last.
    void load(std::size_t index);

    /// Asks for a name and makes a card of it.
    void create();

    /// "Aggiungi a questa scheda": the display's first sign.
    void add();

    /// "Elimina da questa scheda": the display's first sign, wherever it stands on the card.
    void removeSign();

    /// Deletes the card shown; another one is then shown.
    void deleteCard();

    /// Button `index` (0 to 47): its sign goes to the display line as from a palette key.
    void press(std::size_t index);

    /// The name on the tab of the first card.
    static constexpr std::string_view kFirstName = "UOMINI";

  private:
    bool attempt(const std::string& failed, const std::function<void()>& action);
    void warn(const std::string& text, Icon icon = Icon::Exclamation);
    void refill();
    void loadNamed(std::string_view name);
    [[nodiscard]] std::optional<std::size_t> placeOf(std::string_view name) const;
    [[nodiscard]] bool isPresent();
    [[nodiscard]] bool leavesNothing(std::string_view code) const;
    void refuseLastSign();
    void takeUpFile(const std::string& name);
    bool reread();

    CardFiles cards_;
    UserInterface& ui_;
    const DisplayLine& display_;
    Palette& palette_;

    std::vector<std::string> names_;
    std::optional<std::size_t> current_;
    std::string name_{kFirstName};
    std::vector<std::string> fields_;
};

}  // namespace karvel
