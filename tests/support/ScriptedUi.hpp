#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/WindowOpener.hpp"
#include "base/Pictures.hpp"
#include "base/UserInterface.hpp"

namespace karvel::testing {

/// Answers message boxes from a script and keeps what was asked, so that a wrong question never passes.
/// A box that the script does not expect is a failure and gets the answer that changes least.
class ScriptedUi : public UserInterface {
  public:
    ~ScriptedUi() override
    {
        EXPECT_TRUE(script_.empty()) << script_.size() << " expected boxes were not shown";
    }

    /// The next box must be equal to `box`.
    void expect(MessageBox box, Button answer = Button::Ok) { script_.push_back({std::move(box), answer}); }
    void answerInput(std::optional<std::string> text) { inputs_.push_back(std::move(text)); }

    Button ask(const MessageBox& box) override
    {
        shown.push_back(box);
        if (script_.empty()) {
            ADD_FAILURE() << "unexpected box: [" << box.title << "] " << box.text;
            return box.buttons == Buttons::YesNo ? Button::No : Button::Cancel;
        }
        const auto [expected, answer] = script_.front();
        script_.pop_front();
        EXPECT_EQ(expected.title, box.title);
        EXPECT_EQ(expected.text, box.text);
        EXPECT_EQ(static_cast<int>(expected.icon), static_cast<int>(box.icon)) << box.title;
        EXPECT_EQ(static_cast<int>(expected.buttons), static_cast<int>(box.buttons)) << box.title;
        EXPECT_EQ(expected.defaultButton, box.defaultButton) << box.title;
        EXPECT_EQ(expected.systemModal, box.systemModal) << box.title;
        return answer;
    }

    std::optional<std::string> input(const std::string& title, const std::string& prompt) override
    {
        inputsAsked.push_back(title + "|" + prompt);
        if (inputs_.empty()) {
            ADD_FAILURE() << "unexpected input box: " << title;
            return std::nullopt;
        }
        auto text = inputs_.front();
        inputs_.pop_front();
        return text;
    }

    void beep() override { ++beeps; }
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
    bool continueReading(std::uint64_t, std::uint64_t) override { return !stopReading; }

    std::vector<MessageBox> shown;
    std::vector<std::string> inputsAsked;
    int beeps = 0;
    int busyDepth = 0;
    bool stopReading = false;

  private:
    struct Step {
        MessageBox box;
        Button answer;
    };
    std::deque<Step> script_;
    std::deque<std::optional<std::string>> inputs_;
};

/// Every image can be loaded but those named.
class FakePictures : public Pictures {
  public:
    bool canLoad(const std::string& systemPath) override
    {
        return !missing.contains(systemPath) && !allMissing;
    }

    std::set<std::string> missing;
    bool allMissing = false;
};

/// Keeps what was opened, in order: "italiano", "imm1 PATH|NAME", "Ingrandimento".
class RecordedWindows : public WindowOpener {
  public:
    void openItalian() override { opened.emplace_back("italiano"); }
    void openPicture(const std::string& path, const std::string& name) override
    {
        opened.push_back("imm1 " + path + "|" + name);
    }
    void raiseMagnifier() override { opened.emplace_back("Ingrandimento"); }

    std::vector<std::string> opened;
};

}  // namespace karvel::testing
