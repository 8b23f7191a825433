#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>

#include "windows/PrintingWindow.hpp"
#include "windows/SheetPreview.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

constexpr int kMargin = 1134;  // all measures of the sheet: 1/1440 inch
constexpr int kDots = 10;      // of them to a pixel at 144 pixels an inch

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

/// The first page as a picture.
QImage page(const QString& pdf)
{
    run(QStringLiteral("pdftoppm"), {"-r", "144", "-gray", "-singlefile", "-png", pdf, pdf});
    return QImage(pdf + QStringLiteral(".png")).convertToFormat(QImage::Format_Grayscale8);
}

/// How many dark pixels lie in a rectangle of the sheet.
int ink(const QImage& picture, int left, int top, int right, int bottom)
{
    int dark = 0;
    for (int y = top / kDots; y < std::min(bottom / kDots, picture.height()); ++y) {
        for (int x = left / kDots; x < std::min(right / kDots, picture.width()); ++x) {
            dark += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
        }
    }
    return dark;
}

/// Where the word lies, from the upper edge of the paper.
int topOf(const QString& pdf, const QString& word)
{
    const QRegularExpression line(QStringLiteral("yMin=\"([0-9.]+)\"[^>]*>%1<").arg(word));
    const auto match = line.match(run(QStringLiteral("pdftotext"), {"-bbox", pdf, "-"}));
    return match.hasMatch() ? qRound(match.captured(1).toDouble() * 20) : -1;
}

}  // namespace

class TestForm9 : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir directory_;
    QString pdf_;
    QPageSize::PageSizeId paper_ = QPageSize::A4;
    int prints_ = 0;
    bool cancelled_ = false;

    form9* open(Stage& stage)
    {
        auto* const window = new form9(stage.desktop(), &stage.form1(), [this](QPrinter& printer, QWidget*) {
            ++prints_;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf_);
            printer.setPageSize(QPageSize(paper_));
            return !cancelled_;
        });
        window->fill();
        window->show();
        return window;
    }
    void press(form9* window, const char* name)
    {
        QTest::mouseClick(window->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }

  private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(directory_.path())); }
    void cleanupTestCase() { QVERIFY(QDir::setCurrent(QDir::tempPath())); }
    void init()
    {
        pdf_ = QStringLiteral("foglio.pdf");
        QFile::remove(pdf_);
        paper_ = QPageSize::A4;
        prints_ = 0;
        cancelled_ = false;
    }

    void needsSigns()
    {
        Stage stage;
        stage.expect(
            {.title = "Attenzione", .text = "Non ci sono geroglifici nel display", .icon = Icon::Critical});
        stage.choose("stampa");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(stage.windows().opened<form9>() == nullptr);
        stage.press("a01");
        stage.choose("stampa");
        QCOMPARE(stage.windows().opened<form9>()->windowTitle(), QStringLiteral("Stampa"));
    }

    void scrollsTheRowAndTheText()
    {
        Stage stage;
        stage.press("a01");
        form9* const window = open(stage);
        auto* const bar = window->findChild<QScrollBar*>(QStringLiteral("VScroll1"));
        auto* const row = window->findChild<QLabel*>(QStringLiteral("Label1(0)"));
        auto* const text = window->findChild<QLabel*>(QStringLiteral("Label1(1)"));
        QCOMPARE(bar->maximum(), 4483);
        const int before = row->y();
        bar->setValue(4483);
        QCOMPARE(window->findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("4483"));
        const double scale = (row->y() - before) / 4483.0;
        QVERIFY(scale > 0.01);
        QVERIFY(qAbs(text->y() - row->y() - 600 * scale) <= 1.5);

        QVERIFY(text->isVisible());
        press(window, "Command1");
        QVERIFY(!text->isVisible());
        QCOMPARE(window->findChild<QPushButton*>(QStringLiteral("Command1"))->text(),
                 QStringLiteral("Geroglifici più testo"));
        QCOMPARE(bar->maximum(), 4483);
        bar->setValue(4000);
        QCOMPARE(bar->maximum(), 5698);
        bar->setValue(5698);
        press(window, "Command1");
        QCOMPARE(bar->maximum(), 5698);
        bar->setValue(5690);
        QCOMPARE(bar->maximum(), 4483);
        QCOMPARE(bar->value(), 4483);
    }

    void printsTwelveSignsAndTheTextWhereTheyWereShown_data()
    {
        QTest::addColumn<int>("paper");
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("position");
        QTest::newRow("A4, at the top") << int(QPageSize::A4) << "595 x 842 pts (A4)" << 0;
        QTest::newRow("A4, lower") << int(QPageSize::A4) << "595 x 842 pts (A4)" << 3000;
        QTest::newRow("Letter") << int(QPageSize::Letter) << "612 x 792 pts (letter)" << 1440;
    }
    void printsTwelveSignsAndTheTextWhereTheyWereShown()
    {
        QFETCH(int, paper);
        QFETCH(QString, size);
        QFETCH(int, position);
        paper_ = static_cast<QPageSize::PageSizeId>(paper);
        Stage stage;
        for (int sign = 0; sign < 15; ++sign) {
            stage.press("a01");
        }
        stage.session().last() = {.translation = "CITTÀ DEL SOLE", .note = "luogo", .foundCodes = ""};
        form9* const window = open(stage);
        window->findChild<QScrollBar*>(QStringLiteral("VScroll1"))->setValue(position);
        press(window, "Command2");
        QCOMPARE(prints_, 1);

        const QString info = run(QStringLiteral("pdfinfo"), {pdf_});
        QVERIFY2(info.contains(size), qPrintable(info));
        QVERIFY(info.contains(QRegularExpression(QStringLiteral("Pages: +1\n"))));
        const int rowTop = kMargin + position;
        const int textTop = rowTop + 840;
        QVERIFY(qAbs(topOf(pdf_, QStringLiteral("CITTÀ")) - textTop) < 100);
        QVERIFY(topOf(pdf_, QStringLiteral("luogo")) > topOf(pdf_, QStringLiteral("SOLE")) + 400);

        const QImage picture = page(pdf_);
        const int right = picture.width() * kDots;
        QCOMPARE(ink(picture, 0, 0, right, rowTop - kDots), 0);
        for (int cell = 0; cell < 12; ++cell) {
            const int left = kMargin + cell * 800;
            QVERIFY2(ink(picture, left, rowTop, left + 760, rowTop + 760) > 100,
                     qPrintable(QString::number(cell)));
            QVERIFY(ink(picture, left + 770, rowTop, left + 800, rowTop + 760) == 0);
        }
        QCOMPARE(ink(picture, kMargin + 12 * 800, rowTop, right, textTop), 0);
    }

    void printsTheSignsSharp()
    {
        Stage stage;
        stage.press("a01");
        form9* const window = open(stage);
        press(window, "Command1");
        press(window, "Command2");
        QCOMPARE(run(QStringLiteral("pdftotext"), {pdf_, "-"}).trimmed(), QString());
        // Columns of the list: page, number, type, width, height, ..., x-ppi at the thirteenth.
        const QStringList lines = run(QStringLiteral("pdfimages"), {"-list", pdf_}).split(QLatin1Char('\n'));
        QVERIFY(lines.size() > 2);
        const QStringList image = lines[2].split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QVERIFY2(image[12].toInt() >= 300, qPrintable(lines[2]));
    }

    void asksBeforePrintingWithoutText()
    {
        const MessageBox question{
            .title = "Attenzione:",
            .text =
                "Non è stata effettuata la ricerca, perciò non vi è testo da stampare ! !\r"
                "Continuare ugualmente ?",
            .icon = Icon::Exclamation,
            .buttons = Buttons::YesNo};
        Stage stage;
        stage.press("a01");
        form9* const window = open(stage);
        stage.expect(question, Button::No);
        press(window, "Command2");
        QCOMPARE(prints_, 0);
        stage.expect(question, Button::Yes);
        cancelled_ = true;
        press(window, "Command2");
        QCOMPARE(prints_, 1);
        QVERIFY(!QFile::exists(pdf_));
        stage.expect(question, Button::Yes);
        cancelled_ = false;
        press(window, "Command2");
        QVERIFY(QFile::exists(pdf_));
        QVERIFY(stage.noBoxLeft());
    }

    void goesOnOnAFurtherSheetWhenTheTextIsLong()
    {
        Stage stage;
        stage.press("a01");
        std::string note;
        for (int word = 0; word < 2000; ++word) {
            note += "parola" + std::to_string(word) + " ";
        }
        stage.session().last() = {.translation = "LUNGO", .note = note, .foundCodes = ""};
        press(open(stage), "Command2");
        const QString text = run(QStringLiteral("pdftotext"), {pdf_, "-"});
        for (int word = 0; word < 2000; ++word) {
            QVERIFY2(text.contains(QStringLiteral("parola%1").arg(word)), qPrintable(QString::number(word)));
        }
        QVERIFY(!run(QStringLiteral("pdfinfo"), {pdf_})
                     .contains(QRegularExpression(QStringLiteral("Pages: +1\n"))));
    }

    void reportsAFileThatCannotBeWritten()
    {
        Stage stage;
        stage.press("a01");
        stage.session().last().translation = "UOMO";
        form9* const window = open(stage);
        pdf_ = QStringLiteral("manca/foglio.pdf");
        stage.expect(defaultErrorReport(RuntimeError(ErrorNumber::PathFileAccess)));
        press(window, "Command2");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(window->isVisible());
    }
};

QTEST_MAIN(TestForm9)
#include "PrintingWindowTest.moc"
