#pragma once

#include <QMessageBox>

class QTextEdit;

namespace karvel {

/// A message box for a text of any length. The text wraps anywhere when it has no blank, and scrolls inside
/// the box when it is higher than two thirds of the screen, so that the buttons can always be reached.
class Box : public QMessageBox {
  public:
    explicit Box(QWidget* parent) : QMessageBox(parent) {}

    /// A window with this property, set to true, is not covered by a box as long as there is room beside it.
    static constexpr const char* kKeepVisible = "keepVisible";

    /// Shows `text`, in which CR LF, CR and LF are each one line break. To be called after everything that
    /// changes the layout (icon, buttons).
    void showText(QString text);

  protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void stepAside();

    QTextEdit* view_ = nullptr;
};

}  // namespace karvel
