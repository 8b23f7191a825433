#pragma once

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <optional>
#include <string>

#include "app/StartUp.hpp"
#include "support/TemporaryDrive.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/PictureStore.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/LentImages.hpp"
#include "windows/support/Prompt.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel::testing {

/// The main window over an installation of its own, with real boxes answered as a person would.
///
/// Boxes are answered by pressing their real buttons; what they said is compared with what the test expects.
/// A box that nobody expected is a failure and is closed with Escape.
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

    /// A control of the main window, by its name. Fails the test when there is none.
    template <typename Control>
    [[nodiscard]] Control* control(const char* name)
    {
        auto* const found = form1_->findChild<Control*>(QLatin1String(name));
        if (found == nullptr) {
            qFatal("no control called %s", name);
        }
        return found;
    }

    void click(const char* name) { QTest::mouseClick(control<QWidget>(name), Qt::LeftButton); }
    void choose(const char* action) { control<QAction>(action)->trigger(); }
    /// Turns to the page of `code` by the page box and clicks the key.
    void press(const std::string& code);

    /// The next box must say this; it is answered by its button `answer`.
    void expect(MessageBox box, Button answer = Button::Ok)
    {
        script_.push_back({std::move(box), {}, answer});
    }
    /// The next box is the input box with this title; `text` is typed, nothing cancels it.
    void expectInput(std::string title, std::optional<std::string> text)
    {
        MessageBox box;
        box.title = std::move(title);
        script_.push_back({box, std::move(text), Button::Cancel, true});
    }
    /// True when every expected box was shown.
    [[nodiscard]] bool noBoxLeft() const { return script_.empty() && !failed_; }

  private:
    struct Step {
        MessageBox box;
        std::optional<std::string> input;
        Button answer = Button::Ok;
        bool isInput = false;
    };

    void answerBox();
    void answerMessage(QMessageBox& shown);
    void answerInput(QInputDialog& shown);
    bool compare(const Step& step, const QMessageBox& shown);

    TemporaryDrive drive_;
    LentImages images_;
    PictureStore pictures_;
    Prompt prompt_;
    WindowSet windows_;
    Session session_;
    Desktop desktop_;
    std::unique_ptr<Form1> form1_;
    std::deque<Step> script_;
    QTimer watch_;
    bool failed_ = false;
};

}  // namespace karvel::testing
