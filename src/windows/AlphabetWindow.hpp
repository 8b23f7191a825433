#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace karvel {

class Desktop;
class PhraseBlocks;
class PictureSwitches;
class SignSheet;

/// "Alfabeto": the chart of the phonetic signs, and a box for a name to be written with them.
class Form2 : public QDialog {
    Q_OBJECT

  public:
    Form2(Desktop& desktop, QWidget* parent);

  private:
    void fillChart();
    void showName(const std::string& codes);
    void transcribeName();

    Desktop& desktop_;
    QLineEdit* text1_;
    PhraseBlocks* signs_;
    PictureSwitches* switches_;
    QLabel* count_;
    QPushButton* use_ = nullptr;  ///< "Usa questi segni"
    SignSheet* chart_;
};

}  // namespace karvel
