#pragma once

#include <QDialog>

namespace karvel {

class Desktop;
class SignSheet;

/// "Numeri": the signs of the powers of ten, and how a number is written with them.
class Numerals : public QDialog {
    Q_OBJECT

  public:
    Numerals(Desktop& desktop, QWidget* parent);
};

}  // namespace karvel
