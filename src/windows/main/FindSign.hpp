#pragma once

#include <QFrame>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "base/SignRepertoire.hpp"

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

    /// Puts the cursor into the field, with `typed` as its text if there is one; Escape brings it back to
    /// where it was.
    void start(const QString& typed = {});

  signals:
    /// Enter was pressed in the empty field: all signs are there.
    void finished();

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
    std::vector<const SignInfo*> found_;
    QPointer<QWidget> before_;
};

}  // namespace karvel
