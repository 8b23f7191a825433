#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTemporaryDir>

#include "windows/PrintingWindow.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr int kMargin = 1134;  // all measures of the sheet: 1/1440 inch
constexpr int kDots = 10;      // of them to a pixel at 144 pixels an inch
const auto kOnePage = QStringLiteral("Pages: +1\n");

/// Runs a program that reads a sheet, in the current directory: what it writes to its output.
QString run(const QString& program, const QStringList& arguments)
{
    // As a Windows program the test runs under Wine, which starts the programs of the machine below too but
    // tells neither when they end nor how: a shell notes it.
    const QString script = QStringLiteral("\"$0\" \"$@\" >said 2>&1; echo $? >code; mv code ended");
    const QStringList noted = QStringList{QStringLiteral("-c"), script, program} + arguments;
    QFile::remove(QStringLiteral("ended"));
#if defined(_WIN32)
    QProcess::startDetached(QStringLiteral("Z:/bin/sh"), noted);
#else
    QProcess::execute(QStringLiteral("/bin/sh"), noted);
#endif
    const auto contents = [](const char* name) {
        QFile file((QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    if (!QTest::qWaitFor([] { return QFile::exists(QStringLiteral("ended")); }, 30000) ||
        contents("ended").trimmed() != "0") {
        qWarning() << program << "failed (Debian package poppler-utils)" << contents("said");
    }
    return QString::fromUtf8(contents("said"));
}

/// True when dark pixels lie in a rectangle of the sheet.
bool ink(const QImage& picture, int left, int top, int right, int bottom)
{
    int dark = 0;
    for (int y = top / kDots; y < std::min(bottom / kDots, picture.height()); ++y) {
        for (int x = left / kDots; x < std::min(right / kDots, picture.width()); ++x) {
            dark += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
        }
    }
    return dark > 0;
}

/// Where the word lies, from the upper edge of the paper.
int topOf(const QString& word)
{
    const QRegularExpression line(QStringLiteral("yMin=\"([0-9.]+)\"[^>]*>%1<").arg(word));
    const auto match = line.match(run(QStringLiteral("pdftotext"), {"-bbox", "foglio.pdf", "-"}));
    return match.hasMatch() ? qRound(match.captured(1).toDouble() * 20) : -1;
}

/// The list of the images in the sheet, below two lines of headings.
QString images()
{
    return run(QStringLiteral("pdfimages"), {"-list", "foglio.pdf"});
}

QString info()
{
    return run(QStringLiteral("pdfinfo"), {"foglio.pdf"});
}

}  // namespace

class PrintingWindowTest : public QObject {
    Q_OBJECT

    QTemporaryDir directory_;
    QString pdf_;
    int prints_ = 0;
    bool cancelled_ = false;

    form9* open(Stage& stage)
    {
        auto* const window = new form9(stage.desktop(), &stage.form1(), [this](QPrinter& printer, QWidget*) {
            ++prints_;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf_);
            printer.setPageSize(QPageSize(QPageSize::Letter));
            return !cancelled_;
        });
        window->fill();
        window->show();
        return window;
    }

  private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(directory_.path())); }
    void cleanupTestCase() { QVERIFY(QDir::setCurrent(QDir::tempPath())); }
    void init()
    {
        pdf_ = QStringLiteral("foglio.pdf");
        QFile::remove(pdf_);
        prints_ = 0;
        cancelled_ = false;
    }

    void opensForSignsAndScrollsTheSheet()
    {
        Stage stage;
        stage.expect(
            {.title = "Attenzione", .text = "Non ci sono geroglifici nel display", .icon = Icon::Critical});
        QVERIFY(stage.open<form9>("stampa") == nullptr);
        stage.press("a01");
        const auto* const window = stage.open<form9>("stampa");
        auto* const bar = control<QScrollBar>(window, "VScroll1");
        const auto* const row = control<QLabel>(window, "Label1(0)");
        const auto* const text = control<QLabel>(window, "Label1(1)");
        QCOMPARE(bar->maximum(), 4483);
        const int before = row->y();
        bar->setValue(4483);
        QCOMPARE(control<QLineEdit>(window, "Text1")->text(), QStringLiteral("4483"));
        const double scale = (row->y() - before) / 4483.0;
        QVERIFY(scale > 0.01);
        QVERIFY(qAbs(text->y() - row->y() - 600 * scale) <= 1.5);
        QVERIFY(text->isVisible());
        click(window, "Command1");
        QVERIFY(!text->isVisible());
        QCOMPARE(control<QPushButton>(window, "Command1")->text(), QStringLiteral("Geroglifici più testo"));
        bar->setValue(4000);
        QCOMPARE(bar->maximum(), 5698);
        click(window, "Command1");
        bar->setValue(3990);
        QCOMPARE(bar->maximum(), 4483);
    }

    void printsTwelveSignsAndTheTextWhereTheyWereShown()
    {
        constexpr int kPosition = 1440;
        Stage stage;
        for (int sign = 0; sign < 15; ++sign) {
            stage.press("a01");
        }
        stage.session().last() = {.translation = "CITTÀ DEL SOLE", .note = "luogo", .foundCodes = ""};
        const auto* const window = open(stage);
        control<QScrollBar>(window, "VScroll1")->setValue(kPosition);
        click(window, "Command2");
        QCOMPARE(prints_, 1);
        QVERIFY2(info().contains(QStringLiteral("612 x 792 pts (letter)")), qPrintable(info()));
        QVERIFY(info().contains(QRegularExpression(kOnePage)));
        const int rowTop = kMargin + kPosition;
        const int textTop = rowTop + 780;
        QVERIFY(qAbs(topOf(QStringLiteral("CITTÀ")) - textTop) < 100);
        QVERIFY(topOf(QStringLiteral("luogo")) > topOf(QStringLiteral("SOLE")) + 400);
        run(QStringLiteral("pdftoppm"), {"-r", "144", "-gray", "-singlefile", "-png", pdf_, "foglio"});
        const QImage picture(QStringLiteral("foglio.png"));
        const int right = picture.width() * kDots;
        QVERIFY(!ink(picture, 0, 0, right, rowTop - kDots));
        for (int left = kMargin; left < kMargin + 12 * 800; left += 800) {
            QVERIFY(ink(picture, left, rowTop, left + 760, rowTop + 760));
            QVERIFY(!ink(picture, left + 770, rowTop, left + 800, rowTop + 760));
        }
        QVERIFY(!ink(picture, kMargin + 12 * 800, rowTop, right, textTop));
        QVERIFY(ink(picture, kMargin, rowTop, kMargin + 2 * kDots, rowTop + 760));  // flush with the text
        // Drawn from outlines; a sign of the user's own is an image on white, without a mask.
        QCOMPARE(images().count(QLatin1Char('\n')), 2);
        const FileSystem& files = stage.drive().files();
        const std::string own = "C:\\segni\\GR";
        stage.drive().write(own + "\\a01.gif", files.readAll("C:\\programmi\\Karvel\\GR\\a02.gif"));
        stage.session().images().setGlyphDirectory(own);
        click(open(stage), "Command2");
        // Columns of the list: page, number, type, width, height, ..., x-ppi at the thirteenth.
        const QStringList first =
            images().section(QLatin1Char('\n'), 2, 2).simplified().split(QLatin1Char(' '));
        QVERIFY2(first.value(12).toInt() >= 300, qPrintable(images()));
        QVERIFY2(!images().contains(QStringLiteral("mask")), qPrintable(images()));
    }

    void theStudySheetHasThePhraseItsTextsAndItsWordsOnAllItsPages()
    {
        int pages = 0;
        for (const int times : {1, 21}) {  // 4 and 84 signs
            Stage stage(record("d51f21b47", "buono", "nfr", "nota") + record("e16", "luogo"));
            for (int time = 0; time < times; ++time) {
                for (const char* const code : {"d51", "f21", "b47", "e16"}) {
                    stage.press(code);
                }
            }
            const auto* const window = open(stage);
            control<QCheckBox>(window, "studio")->click();
            QVERIFY(!control<QLabel>(window, "Label1(0)")->isVisible());
            click(window, "Command2");  // there is a text without a search: nothing is asked
            pages = control<QSpinBox>(window, "foglio")->maximum();
            QVERIFY2(info().contains(QRegularExpression(QStringLiteral("Pages: +%1\n").arg(pages))),
                     qPrintable(info()));
            const QString text = run(QStringLiteral("pdftotext"), {pdf_, "-"});
            // Each word stands below the phrase, and once in the line of the whole.
            QCOMPARE(text.count(QStringLiteral("nfr")), 2 * times);
            QCOMPARE(text.count(QStringLiteral("luogo")), 2 * times);
            QCOMPARE(text.count(QStringLiteral("nota")), times);
            QCOMPARE(images().count(QLatin1Char('\n')), 2);  // the signs are outlines
            control<QCheckBox>(window, "studio")->click();
            QVERIFY(control<QLabel>(window, "Label1(0)")->isVisible());
        }
        QVERIFY(pages > 1);
    }

    void asksBeforePrintingWithoutText()
    {
        Stage stage;
        stage.press("a01");
        const auto* const window = open(stage);
        const struct {
            Button answer;
            bool cancelled;
            int prints;
        } rows[] = {{Button::No, false, 0}, {Button::Yes, true, 1}, {Button::Yes, false, 2}};
        for (const auto& [answer, cancelled, prints] : rows) {
            QVERIFY(!QFile::exists(pdf_));
            stage.expect({.title = "Attenzione:",
                          .text = "Non è stata effettuata la ricerca, perciò non vi è testo da stampare ! !\r"
                                  "Continuare ugualmente ?",
                          .icon = Icon::Exclamation,
                          .buttons = Buttons::YesNo},
                         answer);
            cancelled_ = cancelled;
            click(window, "Command2");
            QCOMPARE(prints_, prints);
        }
        QVERIFY(QFile::exists(pdf_));
    }

    void aLongTextGoesOnOnFurtherSheetsAndAFailureIsReported()
    {
        Stage stage;
        stage.press("a01");
        std::string note;
        for (int word = 0; word < 2000; ++word) {
            note += "parola" + std::to_string(word) + " ";
        }
        stage.session().last() = {.translation = "LUNGO", .note = note, .foundCodes = ""};
        const auto* const window = open(stage);
        click(window, "Command2");
        const QString text = run(QStringLiteral("pdftotext"), {pdf_, "-"});
        for (int word = 0; word < 2000; ++word) {
            QVERIFY2(text.contains(QStringLiteral("parola%1").arg(word)), qPrintable(QString::number(word)));
        }
        QVERIFY(!info().contains(QRegularExpression(kOnePage)));
        pdf_ = QStringLiteral("manca/foglio.pdf");
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::PathFileAccess)));
        click(window, "Command2");
        QVERIFY(window->isVisible());
    }
};

WINDOW_TESTS(PrintingWindowTest)
#include "PrintingWindowTest.moc"
