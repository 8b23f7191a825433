#pragma once

#include <QFrame>
#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "base/SignRepertoire.hpp"

class QAction;
class QLineEdit;
class QListWidget;

namespace karvel {

class Desktop;

/// "Trova segno": a field that lists the signs that fit what is typed, best first.
class FindSign : public QWidget {
    Q_OBJECT

  public:
    /// The list opens over `stage`, which must outlive the field.
    FindSign(Desktop& desktop, QWidget& stage, QWidget* parent);

    /// Moves the focus into the field; `typed`, if not empty, becomes its text. Escape moves the focus back.
    void start(const QString& typed = {});

    /// Draws the symbols of the field in its present colours.
    void showIcons();

    /// Inserts the sign chosen in the list, if the user is choosing one now.
    void insertPending();

    /// The field itself; it has the focus while the user searches.
    [[nodiscard]] const QLineEdit* field() const { return field_; }

  signals:
    /// The user has chosen the sign `code` in the list, and it was inserted.
    void inserted(const std::string& code);
    /// Enter was pressed in the empty field: the user has typed all signs.
    void finished();
    /// No sign fits `text`: the user looks it up in the dictionary.
    void wordWanted(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool key(int key);
    void list();
    void move(int step);
    void insertChosen();
    void leave();
    [[nodiscard]] bool homophonesListed() const;

    Desktop& desktop_;
    QWidget& stage_;
    QLineEdit* field_;
    QListWidget* list_;
    QAction* search_ = nullptr;  ///< the magnifier symbol; a click on it sets the focus into the field
    QAction* clear_ = nullptr;
    std::vector<const SignInfo*> found_;
    QPointer<QWidget> before_;
};

}  // namespace karvel
