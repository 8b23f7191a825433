#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/monkey/Dice.hpp"
#include "windows/monkey/Hands.hpp"
#include "windows/monkey/Household.hpp"
#include "windows/monkey/PhraseRules.hpp"
#include "windows/monkey/Trail.hpp"

class QColorDialog;
class QDialog;
class QFileDialog;
class QInputDialog;
class QMessageBox;

namespace karvel::testing {

/// Does one thing at random after the other with whatever windows are open, boxes and dialogs included, and
/// asks after each whether everything still holds that must.
class Monkey : public QObject {
    Q_OBJECT

  public:
    using Counts = std::map<std::string, int>;

    Monkey(std::uint64_t seed, std::uint64_t events, Household& household);

    ~Monkey() override;

    /// Runs the program, again each time that it is left, until all events are done or a rule is broken.
    void play();

    /// The rule that was broken; empty when none was.
    [[nodiscard]] const std::string& broken() const { return broken_; }
    [[nodiscard]] std::uint64_t events() const { return trail_.steps(); }
    void tell() { trail_.tell(); }

    [[nodiscard]] const Counts& windows() const { return windows_; }
    [[nodiscard]] const Counts& actions() const { return actions_; }
    [[nodiscard]] const Counts& controls() const { return controls_; }
    [[nodiscard]] const Counts& boxes() const { return boxes_; }
    [[nodiscard]] int runs() const { return runs_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Widgets = std::vector<QWidget*>;

    void next();
    void tick();
    [[nodiscard]] bool waitsForOthers();
    void check();
    void end(const std::string& broken);
    static void hear(QtMsgType type, const QMessageLogContext& context, const QString& message);
    void act();
    bool followsPurpose();
    void interrupt();

    [[nodiscard]] static QString callOf(const QWidget& widget);
    void watch(QWidget& window);

    [[nodiscard]] static Widgets reachable();
    [[nodiscard]] QPoint pointIn(const QWidget& widget);
    void actOnPopup(QWidget& popup);
    void pressKey();
    void clickControl(QWidget& window, Qt::MouseButton button);
    void moveAbout(QWidget& window);
    void trigger(const Widgets& windows);
    void typeText(QWidget& window);
    void handleWindow(QWidget& window);
    [[nodiscard]] QString text();

    bool answer(QWidget& modal);
    void answerMessage(QMessageBox& box);
    void answerInput(QInputDialog& box);
    void chooseFile(QFileDialog& dialog);
    void choosePrinter(QDialog& dialog);
    void chooseColour(QColorDialog& dialog);
    void finish(QDialog& dialog);

    Dice dice_;
    Hands hands_;
    Household& household_;
    Trail trail_;
    PhraseRules rules_;
    std::uint64_t wanted_;
    std::unique_ptr<Run> run_;
    std::string broken_;
    std::vector<int> levels_;       ///< of the event loops in which something is being done
    std::string complaint_;         ///< of the toolkit, which warns of what it was wrongly asked
    std::vector<QString> purpose_;  ///< what is to be pressed next, the last one first
    bool searching_ = false;
    bool posted_ = false;
    Counts windows_, actions_, controls_, boxes_;
    int runs_ = 0;
};

}  // namespace karvel::testing
