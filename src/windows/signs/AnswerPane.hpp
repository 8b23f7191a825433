#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "dictionary/Answers.hpp"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace karvel {

class AnswerList;
class Desktop;

/// A list of answers and what can be done with them: sort, choose, use the signs, copy, save.
class AnswerPane : public QWidget {
    Q_OBJECT

  public:
    /// `listName` is the name of the list's control. `desktop` must outlive the pane.
    AnswerPane(Desktop& desktop, const char* listName, QWidget* parent);

    [[nodiscard]] AnswerList& list() { return *list_; }

    /// Shows `answers`, sorted best first; `heading` is the title of a saved list, `fault` the line about an
    /// error, empty for none.
    void show(Answers answers, const std::string& rest, const std::string& heading, const std::string& fault);

    void choose();
    void useSigns();

  private:
    QPushButton* button(const QString& caption, const char* name, const std::function<void()>& handler);
    void save();
    void write(const QString& path, bool csv);
    void enable();

    Desktop& desktop_;
    AnswerList* list_;
    QLabel* fault_;
    QComboBox* order_;
    QPushButton* use_;
    QPushButton* save_;
    std::string heading_;
};

}  // namespace karvel
