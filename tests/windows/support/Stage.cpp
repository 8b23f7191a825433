#include "windows/support/Stage.hpp"

#include <QInputDialog>
#include <QMessageBox>
#include <QThread>
#include <map>

#include "app/Installer.hpp"
#include "base/SignCode.hpp"
#include "windows/signs/SignCell.hpp"

namespace karvel::testing {

namespace fs = std::filesystem;

namespace {

const fs::path kTree = fs::path(KARVEL_SOURCE_DIR) / "data" / "tree";

fs::path imagesOn(const TemporaryDrive& drive)
{
    return drive.directory() / "programmi" / "Karvel" / "GR";
}

/// Lays the signs' images out as links to one copy: to copy hundreds of files takes longer than most tests.
void linkImages(const TemporaryDrive& drive)
{
    static const TemporaryDrive store;
    if (!fs::exists(imagesOn(store))) {
        fs::copy(kTree / "GR", imagesOn(store));
    }
    fs::create_directory(imagesOn(drive));
    for (const auto& image : fs::directory_iterator(imagesOn(store))) {
        fs::create_hard_link(image, imagesOn(drive) / image.path().filename());
    }
}

/// What of `shown` is not as `box` says; empty when all is.
QString difference(const MessageBox& box, const QMessageBox& shown)
{
    static const std::map<Icon, QMessageBox::Icon> kIcons{{Icon::None, QMessageBox::NoIcon},
                                                          {Icon::Critical, QMessageBox::Critical},
                                                          {Icon::Question, QMessageBox::Question},
                                                          {Icon::Exclamation, QMessageBox::Warning},
                                                          {Icon::Information, QMessageBox::Information}};
    const QString text = qtext(box.text).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (shown.windowTitle() != qtext(box.title) || shown.text() != text) {
        return QStringLiteral("text, expected [%1] %2").arg(qtext(box.title), text);
    }
    if (shown.icon() != kIcons.at(box.icon)) {
        return QStringLiteral("icon");
    }
    return shown.buttons().size() == (box.buttons == Buttons::Ok ? 1 : 2) ? QString()
                                                                          : QStringLiteral("buttons");
}

QAbstractButton* buttonOf(const QMessageBox& shown, Button button)
{
    static const std::map<Button, QMessageBox::StandardButton> kButtons{{Button::Ok, QMessageBox::Ok},
                                                                        {Button::Cancel, QMessageBox::Cancel},
                                                                        {Button::Yes, QMessageBox::Yes},
                                                                        {Button::No, QMessageBox::No}};
    return shown.button(kButtons.at(button));
}

}  // namespace

MessageBox foundBox(const std::string& translation)
{
    return {.title = "Traduzione",
            .text = "1) -  " + translation + "\n\n2) -  \n\nNote: ",
            .buttons = Buttons::OkCancel};
}

Stage::Stage(const std::string& dictionary)
    : pictures_(drive_.files().drives()),
      session_(drive_.files(), pictures_, prompt_, windows_),
      desktop_(session_, pictures_)
{
    linkImages(drive_);
    installTree(kTree, drive_.files().drives());
    drive_.write("C:\\programmi\\Karvel\\dizio.txt", dictionary);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { answerBox(); });
    watch_.start(1);
    if (formLoad(session_) != StartUp::Ready) {
        qFatal("start-up failed");
    }
    form1_ = std::make_unique<Form1>(desktop_, windows_);
    windows_.attach(desktop_, *form1_);
    QObject::connect(&prompt_, &Prompt::aboutToAsk, &desktop_, &Desktop::changed);
    QObject::connect(&prompt_, &Prompt::progress, form1_.get(), &Form1::showProgress);
    form1_->showState();
    form1_->show();
}

Stage::~Stage()
{
    if (!noBoxLeft()) {
        QTest::qFail("a box was missing, wrong or unexpected", __FILE__, __LINE__);
    }
}

std::string Stage::cells()
{
    std::string codes;
    for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
        codes += control<SignCell>(element("Vendol", i))->cell().code;
    }
    return codes;
}

void Stage::press(const std::string& code)
{
    const auto page = static_cast<int>(kCategories.find(code[0])) + 1;
    if (session_.palette().CurrentPage() != page) {
        desktop_.handle([&] { session_.palette().changed(page); });
    }
    click(element("tasto", static_cast<std::size_t>(std::stoi(code.substr(1)) - 1)));
}

void Stage::activate()
{
    form1_->activateWindow();
    if (!QTest::qWaitForWindowActive(form1_.get())) {
        qFatal("the window cannot be activated");
    }
}

void Stage::answerBox()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (hand_ && QApplication::activePopupWidget() != nullptr && QThread::currentThread()->loopLevel() > 0) {
        modal = QApplication::activePopupWidget();  // a menu that something waits for
    }
    if (modal == nullptr || !modal->isVisible()) {
        return;
    }
    if (hand_) {
        // From a timer of its own: what the hand does may open another box.
        QTimer::singleShot(0, modal, [this, modal] { hand_(*modal); });
        return;
    }
    auto* const message = qobject_cast<QMessageBox*>(modal);
    auto* const input = qobject_cast<QInputDialog*>(modal);
    if (message == nullptr && input == nullptr) {
        return;
    }
    Step step;
    QString wrong = QStringLiteral("unexpected box");
    if (!script_.empty() && script_.front().input.has_value() == (input != nullptr)) {
        step = script_.front();
        script_.pop_front();
        wrong = message != nullptr ? difference(step.box, *message) : QString();
        if (message != nullptr && step.box.defaultButton &&
            message->defaultButton() != buttonOf(*message, *step.box.defaultButton)) {
            wrong = QStringLiteral("default button");
        }
        if (input != nullptr && input->windowTitle() != qtext(step.box.title)) {
            wrong = QStringLiteral("title");
        }
    }
    if (!wrong.isEmpty()) {
        failed_ = true;
        qWarning().noquote() << wrong << "\nshown: [" << modal->windowTitle() << "]"
                             << (message != nullptr ? message->text() : QString());
    }
    if (QAbstractButton* const button = message != nullptr ? buttonOf(*message, step.answer) : nullptr) {
        QTest::mouseClick(button, Qt::LeftButton);
    } else if (input != nullptr && step.input) {
        input->setTextValue(qtext(*step.input));
        QTest::keyClick(input, Qt::Key_Return);
    } else {
        QTest::keyClick(modal, Qt::Key_Escape);
    }
}

}  // namespace karvel::testing
