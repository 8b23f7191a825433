#pragma once

#include <QMenu>

#include "reading/Passage.hpp"

namespace karvel {

/// The menu of one word of a passage: what it may be, and where it may begin and end.
class ReadingMenu : public QMenu {
    Q_OBJECT

  public:
    /// `passage` has a word at the place `word`. Nothing of it is used after the constructor.
    ReadingMenu(const Passage& passage, std::size_t word, QWidget* parent);

  signals:
    void chosen(const karvel::ReadingChoice& choice);
    /// The user wants to type a reading.
    void otherWanted();
    /// With the next word.
    void joinWanted();
    /// After the first `signs` signs.
    void cutWanted(std::size_t signs);
    /// The reader shall choose again.
    void releaseWanted();

  private:
    void addChoice(const ReadingChoice& choice, bool present);
    void addChoices(const ReadWord& word);
    void addCuts(const std::string& codes);
};

}  // namespace karvel
