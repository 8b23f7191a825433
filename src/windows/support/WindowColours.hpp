#pragma once

#include <QColor>
#include <QObject>

class QWidget;

namespace karvel {

class Desktop;
struct Colours;

/// The background of every window: the colour that the user chose. On a dark system the default grey becomes
/// a dark grey.
[[nodiscard]] QColor windowColour(const Colours& chosen);

/// Gives the window colour of the user to every window, dialog and menu, so that none differs from the
/// others, whatever the desktop's own theme is. With high contrast all of them keep the system's colours.
class WindowColours : public QObject {
    Q_OBJECT

  public:
    /// Watches the whole application until it is destroyed; `desktop` must outlive it.
    explicit WindowColours(Desktop& desktop);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void applyTo(QWidget& window) const;
    void follow();

    Desktop& desktop_;
    QColor shown_;
};

}  // namespace karvel
