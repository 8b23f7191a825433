// Takes a picture of every window, for the guide and for checking how they look:
//   make_pictures DIRECTORY
#include <QCheckBox>
#include <QDir>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTest>
#include <fstream>
#include <iterator>
#include <utility>

#include "windows/AboutWindow.hpp"
#include "windows/AlphabetWindow.hpp"
#include "windows/ColourWindow.hpp"
#include "windows/DirectoryWindow.hpp"
#include "windows/Form6.hpp"
#include "windows/GuideWindow.hpp"
#include "windows/InsertionWindow.hpp"
#include "windows/ItalianWindow.hpp"
#include "windows/LetturaWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/NumeralsWindow.hpp"
#include "windows/PrintingWindow.hpp"
#include "windows/SplashWindow.hpp"
#include "windows/TranslatedWordsWindow.hpp"
#include "windows/VociWindow.hpp"
#include "windows/signs/AnswerPane.hpp"
#include "windows/support/Stage.hpp"
#include "windows/support/Theme.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// Grabs `window` as it opens and once more half as large again, "NAME.png" and "NAME-grande.png".
void take(QWidget& window, const QString& directory)
{
    window.show();
    window.raise();
    QTest::qWait(150);
    const QString file = directory + QLatin1Char('/') + window.objectName().toLower();
    window.grab().save(file + QStringLiteral(".png"));
    const QSize size = window.size();
    window.resize(size * 3 / 2);
    QTest::qWait(150);
    if (window.size() != size) {
        window.grab().save(file + QStringLiteral("-grande.png"));
        window.resize(size);
    }
}

template <typename Window>
void open(Stage& stage, const QString& directory)
{
    auto* const window = new Window(stage.desktop(), &stage.form1());
    take(*window, directory);
    window->close();
}

/// Takes a box together with the window behind it, at the moment in which it is shown.
class BoxPicture : public QObject {
  public:
    BoxPicture(QWidget& window, QString file) : window_(window), file_(std::move(file))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const box = qobject_cast<QMessageBox*>(watched);
        if (box != nullptr && event->type() == QEvent::Show) {
            const QPixmap shown = box->grab();
            QPixmap picture = window_.grab();
            QPainter painter(&picture);
            const QFontMetrics metrics(painter.font());
            const int title = metrics.height() + 10;
            QRect frame(QPoint(), shown.size() + QSize(2, title + 2));
            frame.moveCenter(picture.rect().center());
            painter.fillRect(frame, kAccent);
            painter.setPen(Qt::white);
            painter.drawText(frame.adjusted(12, 0, 0, title - frame.height()), Qt::AlignVCenter,
                             box->windowTitle());
            painter.drawPixmap(frame.topLeft() + QPoint(1, title + 1), shown);
            painter.end();
            picture.save(file_);
        }
        return false;
    }

  private:
    QWidget& window_;
    QString file_;
};

void compose(Stage& stage, std::initializer_list<const char*> codes)
{
    for (const char* const code : codes) {
        stage.press(code);
    }
}

/// The offering formula, read word by word.
void takeReading(Stage& stage, const QString& directory)
{
    std::ifstream model(std::string(KARVEL_SOURCE_DIR) + "/data/tree/lettura.txt", std::ios::binary);
    stage.drive().write(kModelPath, std::string(std::istreambuf_iterator<char>(model), {}));
    auto& window = stage.windows().open<Lettura>();
    control<QPlainTextEdit>(&window, "LetturaTesto")
        ->setPlainText(QStringLiteral("M23-X1:R4-X8-Q1:D4-A40-V30:X1-R11-R11-O49-R8-O29-V30-U23-D58-G43-O49\n"
                                      "D37-I9-O3-X2-Z2-W22-Z2-F1-H1-V6-S27-N35:D28-Z1-N35-F39-Aa1-M17-M17"));
    click(&window, "LetturaLeggi");
    take(window, directory);
    window.close();
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(new Style);
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        return 2;
    }
    const QString directory = QString::fromLocal8Bit(argv[1]);
    std::ifstream shipped(std::string(KARVEL_SOURCE_DIR) + "/data/tree/dizio.txt", std::ios::binary);
    Stage stage(std::string(std::istreambuf_iterator<char>(shipped), {}));

    stage.form1().resize(1180, 690);
    stage.choose("prefins");
    compose(stage, {"d51", "f21", "b47"});
    take(stage.form1(), directory);
    QTest::qWait(150);
    {
        const BoxPicture traduzione(stage.form1(), directory + QStringLiteral("/traduzione.png"));
        stage.expect(
            {.title = "Traduzione",
             .text = "1) -  BUONO, BELLO, PERFETTO\n\n2) -  nfr\n\nNote: aggettivo; Wb 2, 253.1-256.15",
             .buttons = Buttons::OkCancel},
            Button::Cancel);
        stage.click("Command12");
    }
    form9::openFromMenu(stage.desktop(), stage.windows());
    take(*stage.windows().opened<form9>(), directory);
    stage.windows().opened<form9>()->close();
    open<Ingrandimento>(stage, directory);
    {
        Ingrandimento inBlocks(stage.desktop(), nullptr);
        inBlocks.setObjectName(QStringLiteral("ingrandimento-blocchi"));
        inBlocks.setAttribute(Qt::WA_DeleteOnClose, false);
        inBlocks.show();
        for (const char* const box : {"blocchi", "cartiglio"}) {
            control<QCheckBox>(&inBlocks, box)->setChecked(true);
        }
        take(inBlocks, directory);
    }
    open<Inserimento>(stage, directory);
    open<Form2>(stage, directory);
    open<Numerals>(stage, directory);
    open<Form4>(stage, directory);
    open<Form5>(stage, directory);
    open<Form6>(stage, directory);
    open<italiano>(stage, directory);
    open<Sysform>(stage, directory);
    open<frmAbout>(stage, directory);
    open<Guide>(stage, directory);
    takeReading(stage, directory);
    auto& found = stage.windows().open<Voci>();
    found.list(Mode::Contains, "d51");
    const auto* const answers = found.findChild<AnswerPane*>();
    if (!QTest::qWaitFor([&] { return !answers->reading(); })) {
        return 1;  // the list would stand half filled in the picture
    }
    take(found, directory);
    auto* const splash = new frmSplash(stage.desktop(), stage.form1());
    take(*splash, directory);
    return 0;
}
