#pragma once

#include <QListView>

#include "windows/signs/AnswerModel.hpp"

namespace karvel {

class Desktop;

/// A list of answers with their signs. Only the rows in view are drawn.
class AnswerList : public QListView {
    Q_OBJECT

  public:
    /// `desktop` must outlive the list.
    AnswerList(Desktop& desktop, QWidget* parent);

    [[nodiscard]] AnswerModel& answers() { return model_; }

    /// The entry of the current row; null when there is none.
    [[nodiscard]] const DictionaryEntry* current() const;

    /// Copies the current row: signs, transliteration and translation, as text and as HTML.
    void copy() const;

    /// Makes the first row the current one.
    void toStart();

    /// What stands in the list while it has no row.
    void setEmptyText(const QString& text);

  signals:
    /// Return or a double click on a row.
    void chosen();
    /// Ctrl+Return.
    void signsWanted();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void open(bool open);

    AnswerModel model_;
    QString emptyText_;
};

}  // namespace karvel
