#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace karvel {

class Desktop;

/// "Parole tradotte:": the translations that word splitting has collected.
class Form4 : public QDialog {
    Q_OBJECT

  public:
    Form4(Desktop& desktop, QWidget* parent);

  private:
    void showWords();

    Desktop& desktop_;
    QListWidget* list1_;
    QPushButton* clear_;
};

}  // namespace karvel
