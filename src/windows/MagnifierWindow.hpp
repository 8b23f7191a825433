#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QStackedWidget;

namespace karvel {

class Desktop;
class MagnifiedPhrase;
class PhraseBlocks;

/// The whole phrase in large signs, or as it was written, in blocks, of which it makes pictures; following
/// the display while it is open.
class Ingrandimento : public QDialog {
    Q_OBJECT

  public:
    Ingrandimento(Desktop& desktop, QWidget* parent);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] QWidget* switches();
    [[nodiscard]] QWidget* buttons();
    void showPhrase();
    void showBlocks();
    void showPicture();
    void fit();
    void fitSigns();
    void fitBlocks();

    Desktop& desktop_;
    MagnifiedPhrase* phrase_;
    QScrollArea* area_;
    PhraseBlocks* blocks_;
    QScrollArea* blocksArea_;
    QStackedWidget* views_;
    QLabel* count_;
    QCheckBox* inBlocks_;
    QCheckBox* ring_;
    QCheckBox* fromRight_;
    QCheckBox* inColumns_;
    QSpinBox* height_;
};

}  // namespace karvel
