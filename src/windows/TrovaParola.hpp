#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

#include "dictionary/WordFinder.hpp"

class QLabel;
class QLineEdit;
class QToolButton;

namespace karvel {

class AnswerPane;
class Desktop;

/// "Trova parola": one field for Italian, transliteration and signs; the list follows every key. Closed, it
/// is only hidden, so that it keeps its place, size and text, and the dictionary in memory.
class TrovaParola : public QDialog {
    Q_OBJECT

  public:
    TrovaParola(Desktop& desktop, QWidget* parent);

    /// Moves the focus into the field; `text`, if not empty, becomes its text.
    void start(const QString& text = {});

    /// Escape: ends a reading; without one, closes the window.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ask();
    void understandAs(std::optional<QuestionKind> kind);
    void showAnswers();

    Desktop& desktop_;
    WordFinder finder_;  ///< keeps the dictionary in memory between openings
    QLineEdit* field_;
    QToolButton* understood_;
    QLabel* counts_;
    AnswerPane* pane_;
    std::optional<QuestionKind> kind_;  ///< chosen by the user
    std::shared_ptr<WordFinder::Search> asked_;
};

}  // namespace karvel
