#pragma once

#include <QWidget>
#include <string>

#include "windows/signs/PhrasePicture.hpp"

class QCheckBox;
class QSpinBox;

namespace karvel {

class Session;

/// "A blocchi", "Cartiglio", "Da destra a sinistra", "In colonna" and a height: what a picture of a phrase
/// looks like. The choice is remembered from one start to the next.
class PictureSwitches : public QWidget {
    Q_OBJECT

  public:
    /// The choice is remembered under `window`, the name of the window that owns the switches.
    /// `usual` is used before the first choice. `session` must outlive the switches.
    PictureSwitches(Session& session, const QString& window, const PhrasePicture& usual, QWidget* parent);
    ~PictureSwitches() override;

    [[nodiscard]] bool inBlocks() const;
    void setInBlocks(bool inBlocks);

    /// Whether the other switches can be used.
    void setShaping(bool shaping);

    /// The phrase `codes` as the switches say.
    [[nodiscard]] PhrasePicture pictureOf(const std::string& codes) const;

  signals:
    void changed();

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QCheckBox* checkBox(const char* name, const QString& caption, bool checked);
    void recall();
    void keep();

    Session& session_;
    std::string name_;  ///< of the choice
    QCheckBox* inBlocks_;
    QCheckBox* ring_;
    QCheckBox* fromRight_;
    QCheckBox* inColumns_;
    QSpinBox* height_;
};

}  // namespace karvel
