#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "dictionary/SearchModes.hpp"

class QLabel;
class QLineEdit;

namespace karvel {

class AnswerPane;
class Desktop;
class EntryList;
class WindowSet;

/// "Voci trovate": all answers to the phrase in one list. Closed, it is only hidden, so that it keeps its
/// place and size.
class Voci : public QDialog {
    Q_OBJECT

  public:
    Voci(Desktop& desktop, QWidget* parent);

    /// Lists the answers to the phrase of the display in the present mode; opens "Trova parola" when nothing
    /// is composed.
    static void openFromMenu(Desktop& desktop, WindowSet& windows);

    /// Lists the answers to `phrase`, sign codes, not empty.
    void list(Mode mode, const std::string& phrase);

    /// Escape: ends a reading; without one, closes the window.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void showHeading();

    Desktop& desktop_;
    QLabel* heading_;
    QLineEdit* filter_;
    AnswerPane* pane_;
    std::shared_ptr<EntryList> listed_;
};

}  // namespace karvel
