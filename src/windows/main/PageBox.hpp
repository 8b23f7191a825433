#pragma once

#include <QKeyEvent>
#include <QLineEdit>

namespace karvel {

/// The field for a page letter. It signals every key; for Enter `enterPressed` comes first.
class PageBox : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

  signals:
    void enterPressed();
    void keyPressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            emit enterPressed();
        } else {
            QLineEdit::keyPressEvent(event);
        }
        emit keyPressed();
    }
};

}  // namespace karvel
