#pragma once

#include <QDialog>

class QLabel;
class QScrollArea;

namespace karvel {

class Desktop;
class MagnifiedPhrase;

/// The whole phrase in large signs, following the display while it is open.
class Ingrandimento : public QDialog {
    Q_OBJECT

  public:
    Ingrandimento(Desktop& desktop, QWidget* parent);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void showPhrase();
    void fit();

    Desktop& desktop_;
    MagnifiedPhrase* phrase_;
    QScrollArea* area_;
    QLabel* count_;
};

}  // namespace karvel
