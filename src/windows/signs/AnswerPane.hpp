#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "dictionary/AnswerSearch.hpp"

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
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

    /// The phrase that the answers belong to; without one each belongs to its own signs.
    void setSearched(const std::string& phrase) { searched_ = phrase; }

    /// Shows the answers of `search`, which it reads to its end while the windows go on working. The answers
    /// of a short reading stand there at the return; those of a long one appear while it is read.
    void follow(std::shared_ptr<AnswerSearch> search);

    /// Ends the reading; the answers found so far stay, with a line that says so. False when nothing is being
    /// read.
    bool stop();

    [[nodiscard]] bool reading() const { return next_.isActive(); }

    /// The title of a saved list.
    void setHeading(const std::string& heading) { heading_ = heading; }

    void choose();
    void useSigns();

  signals:
    /// Other answers are shown.
    void shown();

  private:
    QPushButton* button(const QString& caption, const char* name, const std::function<void()>& handler);
    QWidget* progressLine();
    void readOn(int milliseconds);
    void showFound();
    void tell(const std::string& line);
    void save();
    void write(const QString& path, const std::string& text);
    [[nodiscard]] std::string pageWithPictures();
    void enable();

    Desktop& desktop_;
    AnswerList* list_;
    QLabel* fault_;
    QComboBox* order_;
    QPushButton* use_;
    QPushButton* save_;
    QProgressBar* progress_;
    QWidget* reading_;  ///< the line with the progress; hidden while nothing is read
    std::string heading_;
    std::string searched_;
    std::shared_ptr<AnswerSearch> search_;  ///< null when its reading has ended
    std::size_t shown_ = 0;                 ///< how many of its answers the list shows
    QElapsedTimer begun_;                   ///< since `follow`
    QTimer next_;                           ///< reads the next piece
};

}  // namespace karvel
