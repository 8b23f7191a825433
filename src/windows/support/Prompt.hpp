#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <cstdint>

#include "base/UserInterface.hpp"

namespace karvel {

/// Shows the core's message boxes and questions with the toolkit.
class Prompt : public QObject, public UserInterface {
    Q_OBJECT

  public:
    Button ask(const MessageBox& box) override;
    std::optional<std::string> input(const std::string& title, const std::string& prompt) override;
    void beep() override;
    void setBusy(bool busy) override;
    bool continueReading(std::uint64_t done, std::uint64_t total) override;

  signals:
    /// A box or the progress is about to be shown; the windows show the present state before.
    void aboutToAsk();
    /// The progress of a long reading, 0 to 100; -1 when it has ended.
    void progress(int percent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void endProgress();

    QElapsedTimer reading_;
    qint64 shownAt_ = 0;  ///< milliseconds into the reading
    int busy_ = 0;
    bool progressShown_ = false;
    bool stopWanted_ = false;
};

}  // namespace karvel
