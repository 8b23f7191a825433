#pragma once

#include <QWidget>
#include <string>

namespace karvel {

class Desktop;

/// Shows a line of signs: as large as the height allows, smaller when the line is long.
class PhraseStrip : public QWidget {
    Q_OBJECT

  public:
    /// `desktop` must outlive the strip.
    explicit PhraseStrip(Desktop& desktop, QWidget* parent = nullptr);

    /// `codes` are sign codes without separators.
    void setCodes(const std::string& codes);

    [[nodiscard]] const std::string& codes() const { return codes_; }

    [[nodiscard]] QSize sizeHint() const override { return {420, 52}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {120, 36}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Desktop& desktop_;
    std::string codes_;
};

}  // namespace karvel
