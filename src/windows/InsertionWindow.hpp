#pragma once

#include <QDialog>

class QLineEdit;

namespace karvel {

class Desktop;
class PhraseStrip;

/// "Inserimento nel dizionario.": the texts of a new entry for the signs on the display.
class Inserimento : public QDialog {
    Q_OBJECT

  public:
    Inserimento(Desktop& desktop, QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLineEdit* addLine(const char* name, const QString& caption);
    void writeInAscii(const QString& text);
    void confirm();
    void showDoubtfulText();

    Desktop& desktop_;
    PhraseStrip* signs_;
    QLineEdit* text1_;
    QLineEdit* text2_;
    QLineEdit* text3_;
};

}  // namespace karvel
