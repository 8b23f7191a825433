#pragma once

#include <QDialog>

class QLabel;
class QScrollArea;
class QStackedWidget;

namespace karvel {

class Desktop;
class MagnifiedPhrase;
class PhraseBlocks;
class PictureSwitches;

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
    [[nodiscard]] QWidget* buttons();
    void showPhrase();
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
    PictureSwitches* switches_;  ///< of the view in blocks; only the first one works without it
};

}  // namespace karvel
