#pragma once

#include <QComboBox>

class QStringListModel;

namespace karvel {

/// An editable list of very many words. Typing shows the words that begin so, without regard to letter case
/// and accents. `activated` is emitted only when the user chooses from a list.
class WordBox : public QComboBox {
    Q_OBJECT

  public:
    explicit WordBox(QWidget* parent = nullptr);

    /// Replaces the list. What is typed stays.
    void setWords(const QStringList& words);

  signals:
    /// Enter was pressed while the list of matches was open and nothing was chosen in it. The list consumes
    /// that key; the window must act as if there were no list.
    void enteredOverList();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QStringListModel* words_;
};

}  // namespace karvel
