#include "windows/support/Stage.hpp"

#include <QLineEdit>
#include <QStyleFactory>

#include "app/Installer.hpp"
#include "base/SignCode.hpp"

namespace karvel::testing {

namespace {

QMessageBox::Icon iconOf(Icon icon)
{
    switch (icon) {
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(Button button)
{
    switch (button) {
        case Button::Cancel:
            return QMessageBox::Cancel;
        case Button::Yes:
            return QMessageBox::Yes;
        case Button::No:
            return QMessageBox::No;
        case Button::Ok:
            break;
    }
    return QMessageBox::Ok;
}

}  // namespace

Stage::Stage(const std::string& dictionary)
    : images_(drive_),
      pictures_(drive_.files().drives()),
      session_(drive_.files(), pictures_, prompt_, windows_),
      desktop_(session_, pictures_)
{
    installTree(std::filesystem::path(KARVEL_SOURCE_DIR) / "data" / "tree", drive_.files().drives());
    drive_.write("C:\\programmi\\Karvel\\dizio.txt", dictionary);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { answerBox(); });
    watch_.start(1);
    if (formLoad(session_) != StartUp::Ready) {
        qFatal("start-up failed");
    }
    form1_ = std::make_unique<Form1>(desktop_, windows_);
    windows_.attach(desktop_, *form1_);
    QObject::connect(&prompt_, &Prompt::aboutToAsk, form1_.get(), &Form1::showState);
    QObject::connect(&prompt_, &Prompt::progress, form1_.get(), &Form1::showProgress);
    form1_->showState();
    form1_->show();
}

Stage::~Stage() = default;

void Stage::press(const std::string& code)
{
    const std::size_t page = kCategories.find(code[0]) + 1;
    if (session_.palette().CurrentPage() != page) {
        auto* const box = control<QLineEdit>("Text1");
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QString(QLatin1Char(code[0])));
        QTest::keyClick(box, Qt::Key_Return);
    }
    const int key = std::stoi(code.substr(1)) - 1;
    click(("tasto(" + std::to_string(key) + ")").c_str());
}

bool Stage::compare(const Step& step, const QMessageBox& shown)
{
    const MessageBox& box = step.box;
    const QString text = qtext(box.text).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    bool same =
        shown.windowTitle() == qtext(box.title) && shown.text() == text && shown.icon() == iconOf(box.icon);
    const int buttons = box.buttons == Buttons::Ok ? 1 : 2;
    same = same && shown.buttons().size() == buttons;
    if (box.defaultButton) {
        same = same && shown.defaultButton() == shown.button(buttonOf(*box.defaultButton));
    }
    if (!same) {
        qWarning().noquote() << "expected box [" << qtext(box.title) << "]" << text << "\nbut was shown ["
                             << shown.windowTitle() << "]" << shown.text() << "icon" << shown.icon();
    }
    return same;
}

void Stage::answerMessage(QMessageBox& shown)
{
    if (script_.empty() || script_.front().isInput) {
        failed_ = true;
        qWarning().noquote() << "unexpected box [" << shown.windowTitle() << "]" << shown.text();
        QTest::keyClick(&shown, Qt::Key_Escape);
        return;
    }
    const Step step = script_.front();
    script_.pop_front();
    failed_ = !compare(step, shown) || failed_;
    QAbstractButton* const answer = shown.button(buttonOf(step.answer));
    if (answer == nullptr) {
        failed_ = true;
        qWarning() << "the box has no such button";
        QTest::keyClick(&shown, Qt::Key_Escape);
        return;
    }
    QTest::mouseClick(answer, Qt::LeftButton);
}

void Stage::answerInput(QInputDialog& shown)
{
    if (script_.empty() || !script_.front().isInput ||
        shown.windowTitle() != qtext(script_.front().box.title)) {
        failed_ = true;
        qWarning() << "unexpected input box" << shown.windowTitle();
        QTest::keyClick(&shown, Qt::Key_Escape);
        return;
    }
    const Step step = script_.front();
    script_.pop_front();
    if (!step.input) {
        QTest::keyClick(&shown, Qt::Key_Escape);
        return;
    }
    auto* const line = shown.findChild<QLineEdit*>();
    line->selectAll();
    QTest::keyClicks(line, qtext(*step.input));
    QTest::keyClick(line, Qt::Key_Return);
}

void Stage::answerBox()
{
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) {
        return;
    }
    if (auto* const message = qobject_cast<QMessageBox*>(modal)) {
        answerMessage(*message);
    } else if (auto* const input = qobject_cast<QInputDialog*>(modal)) {
        answerInput(*input);
    }
}

}  // namespace karvel::testing
