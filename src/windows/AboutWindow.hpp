#pragma once

#include <QDialog>
#include <memory>

#include "settings/Registry.hpp"

namespace karvel {

class Desktop;

/// The about box: version, licences, and the way to the system's own information program.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    frmAbout(Desktop& desktop, QWidget* parent);

  private:
    [[nodiscard]] QWidget* heading();
    [[nodiscard]] QWidget* credits();
    [[nodiscard]] QWidget* buttons();

    Desktop& desktop_;
    std::unique_ptr<Registry> registry_ = systemRegistry();
    std::unique_ptr<Programs> programs_ = systemPrograms();
};

}  // namespace karvel
