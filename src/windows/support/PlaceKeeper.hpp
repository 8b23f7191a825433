#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <string>

class QWidget;

namespace karvel {

class Session;

/// Opens a window where it was when it was closed last, and remembers that place and size for the next start.
class PlaceKeeper : public QObject {
    Q_OBJECT

  public:
    /// Places `window`, which has its name already and owns the keeper. Without a remembered place it is put
    /// over the palette of `main` with the size `usual`; null leaves it as it is. `session` must outlive it.
    PlaceKeeper(QWidget& window, const QWidget* main, QSize usual, Session& session);
    ~PlaceKeeper() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void keep();

    QWidget& window_;
    Session& session_;
    std::string name_;
    QRect place_;  ///< of the shown window: position of its frame, size of its content; null before that
};

}  // namespace karvel
