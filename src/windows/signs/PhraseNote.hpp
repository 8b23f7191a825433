#pragma once

#include <QWidget>
#include <string>

namespace karvel {

class Desktop;

/// The phrase itself, small: its signs, its Gardiner numbers and their count. The cells may show an entry
/// instead. It follows the phrase by itself.
class PhraseNote : public QWidget {
    Q_OBJECT

  public:
    /// `desktop` must outlive the widget.
    PhraseNote(Desktop& desktop, QWidget* parent);

    [[nodiscard]] const QString& text() const { return text_; }

    [[nodiscard]] QSize sizeHint() const override { return {200, 28}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 28}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void showPhrase();

    Desktop& desktop_;
    std::string codes_;
    QString text_;
};

}  // namespace karvel
