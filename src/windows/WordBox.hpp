#pragma once

#include <QComboBox>

class QStringListModel;

namespace karvel {

/// An editable list of very many words. Typing shows those that begin so, whatever their letter case and
/// accents; the user's choice from a list, and nothing else, is told by `activated`.
class WordBox : public QComboBox {
    Q_OBJECT

  public:
    explicit WordBox(QWidget* parent = nullptr);

    /// Replaces the list. What is typed stays.
    void setWords(const QStringList& words);

  signals:
    /// Enter was pressed while the list of matches hung open and nothing was chosen in it: the list keeps
    /// that key from the window, which means the same by it as without the list.
    void enteredOverList();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QStringListModel* words_;
};

}  // namespace karvel
