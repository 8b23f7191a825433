#pragma once

#include <QDialog>
#include <QImage>

class QLabel;

namespace karvel {

class Desktop;

/// "Immagine allegata": the picture that a dictionary note names.
class imm1 : public QDialog {
    Q_OBJECT

  public:
    imm1(Desktop& desktop, QWidget* parent);

    /// Shows the image at `path`, in the system's form; an empty path says that `name` was not found.
    void showPicture(const std::string& path, const std::string& name);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void place();
    void fit();

    Desktop& desktop_;
    QImage image_;
    QLabel* picture_;
};

}  // namespace karvel
