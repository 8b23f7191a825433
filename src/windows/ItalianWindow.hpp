#pragma once

#include <QDialog>
#include <functional>

class QLabel;
class QPushButton;

namespace karvel {

class Desktop;
class WordBox;

/// "Ricerca italiano geroglifico": from an Italian word to its signs.
class italiano : public QDialog {
    Q_OBJECT

  public:
    italiano(Desktop& desktop, QWidget* parent);

    /// Empties the list and fills it with the dictionary's words as they are now.
    /// Throws RuntimeError when the dictionary cannot be read: the list is then empty.
    void fill();

    /// Escape and the close box do what ANNULLA does.
    void reject() override;

  private:
    QPushButton* button(const char* name, const QString& caption, const QString& spoken,
                        const std::function<void()>& handler);
    void run(const std::function<void()>& handler);

    Desktop& desktop_;
    WordBox* combo1_;
    QLabel* count_;
    QPushButton* use_ = nullptr;  ///< "Usa questi segni"
};

}  // namespace karvel
