#pragma once

#include <QDialog>

namespace karvel {

class Desktop;

/// The opening window, in front of the main window, which can be used at once. Its button, Escape, and the
/// first action in the main window close it.
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
    bool begun_ = false;  ///< the user works in the main window: the focus stays where it is
};

}  // namespace karvel
