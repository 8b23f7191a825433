#pragma once

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "app/StartUp.hpp"
#include "support/TemporaryDrive.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/PictureStore.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Prompt.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel::testing {

/// The box that shows an entry without transliteration and note.
[[nodiscard]] MessageBox foundBox(const std::string& translation);

/// A control by its name. Ends the program when there is none.
template <typename Control>
[[nodiscard]] Control* control(const QObject* window, const QString& name)
{
    auto* const found = window->findChild<Control*>(name);
    if (found == nullptr) {
        qFatal("no control called %s", qPrintable(name));
    }
    return found;
}

inline void click(const QObject* window, const QString& name)
{
    QTest::mouseClick(control<QWidget>(window, name), Qt::LeftButton);
}

/// The main window over an installation of its own, with real boxes that are answered through their buttons.
///
/// Each box is compared with the one that the test expects next. A wrong or unexpected box, or an expected
/// one that was not shown, makes the test fail when the stage goes.
class Stage {
  public:
    /// `dictionary` is the content of dizio.txt. The signs' images are those that ship.
    explicit Stage(const std::string& dictionary = "");
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    [[nodiscard]] Form1& form1() { return *form1_; }
    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] Desktop& desktop() { return desktop_; }
    [[nodiscard]] WindowSet& windows() { return windows_; }
    [[nodiscard]] const TemporaryDrive& drive() const { return drive_; }
    [[nodiscard]] const std::string& phrase() { return session_.display().DisplayCodes(); }
    /// The codes that the twelve cells show.
    [[nodiscard]] std::string cells();

    template <typename Control>
    [[nodiscard]] Control* control(const QString& name)
    {
        return testing::control<Control>(form1_.get(), name);
    }
    void click(const QString& name) { testing::click(form1_.get(), name); }
    void choose(const QString& action) { control<QAction>(action)->trigger(); }
    /// Chooses `action` and returns the window that it opened, null when there is none.
    template <typename Window>
    Window* open(const QString& action)
    {
        choose(action);
        return windows_.opened<Window>();
    }
    /// Turns to the page of `code` and clicks the key.
    void press(const std::string& code);
    /// Makes the main window the active one, as keys need it.
    void activate();

    /// The next box must say this; it is answered by its button `answer`.
    void expect(MessageBox box, Button answer = Button::Ok)
    {
        script_.push_back({std::move(box), answer, {}});
    }
    /// The next box must be the input box with this title; `text` is typed.
    void expectInput(std::string title, std::string text)
    {
        script_.push_back({{.title = std::move(title), .text = {}}, Button::Ok, std::move(text)});
    }
    /// True when every expected box was shown, and no other.
    [[nodiscard]] bool noBoxLeft() const { return script_.empty() && !failed_; }
    /// From now on boxes and dialogs are given to `hand` instead.
    void answerWith(std::function<void(QWidget&)> hand) { hand_ = std::move(hand); }

  private:
    struct Step {
        MessageBox box;
        Button answer = Button::Ok;
        std::optional<std::string> input;
    };

    void answerBox();

    TemporaryDrive drive_;
    PictureStore pictures_;
    Prompt prompt_;
    WindowSet windows_;
    Session session_;
    Desktop desktop_;
    std::unique_ptr<Form1> form1_;
    std::deque<Step> script_;
    std::function<void(QWidget&)> hand_;
    QTimer watch_;
    bool failed_ = false;
};

/// Makes a class of tests known to the program, which runs one of them: `window_tests NAME`.
int registerTests(const char* name, std::function<std::unique_ptr<QObject>()> make);

}  // namespace karvel::testing

#define WINDOW_TESTS(Tests)              \
    static const int registered##Tests = \
        karvel::testing::registerTests(#Tests, [] { return std::make_unique<Tests>(); });
