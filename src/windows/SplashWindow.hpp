#pragma once

#include <QDialog>

namespace karvel {

class Desktop;

/// The opening window. It stands in front of the main window, which is ready behind it, and goes with its
/// button, with Escape, or with the first thing that the user does in the main window.
class frmSplash : public QDialog {
    Q_OBJECT

  public:
    /// `form1` must outlive the window.
    frmSplash(Desktop& desktop, QWidget& form1);

    /// Shows the main window, without waiting, and itself in front of it.
    void openInFront();

    void done(int result) override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget& form1_;
    bool begun_ = false;  ///< in the main window: whatever that has opened keeps the focus
};

}  // namespace karvel
