#pragma once

#include <QDialog>

namespace karvel {

class Desktop;

/// The user's guide, inside the program.
class Guide : public QDialog {
    Q_OBJECT

  public:
    Guide(Desktop& desktop, QWidget* parent);
};

}  // namespace karvel
