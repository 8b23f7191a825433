#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include "windows/AlphabetWindow.hpp"
#include "windows/NumeralsWindow.hpp"
#include "windows/TranslatedWordsWindow.hpp"
#include "windows/signs/SignSheet.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

MessageBox word(const std::string& translation)
{
    return {.title = "Traduzione",
            .text = "traduzione:\n1 - " + translation + "\n2 - \nNote: ",
            .icon = Icon::Information,
            .buttons = Buttons::OkCancel};
}

QStringList lines(const Form4* window)
{
    QStringList all;
    for (const auto* const item : control<QListWidget>(window, "List1")->findItems("*", Qt::MatchWildcard)) {
        all.append(item->text());
    }
    return all;
}

bool inked(const QImage& part)
{
    int dark = 0;
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            dark += qGray(part.pixel(x, y)) < 140 ? 1 : 0;
        }
    }
    return dark > 40;
}

/// True when there is dark ink where `sign` stands on `page`, of which `sheet` fills the whole width.
bool inkAt(const SheetSign* sign, const QImage& page, const SignSheet* sheet)
{
    const qreal factor = page.width() / static_cast<qreal>(sheet->width());
    const QRectF place(QPointF(sign->pos()) * factor, QSizeF(sign->width(), sign->height() - 46) * factor);
    return inked(page.copy(place.toRect()));
}

}  // namespace

class WordWindowsTest : public QObject {
    Q_OBJECT

  private slots:
    void aPhraseIsSplitAndItsWordsCollected()
    {
        Stage stage(record("a01", "uno") + record("a01a02", "due") + record("a03", "tre"));
        const MessageBox nothing{
            .title = "Sistema:",
            .text =
                "Questo menù visualizza i termini ricercati con il metodo DIVIDI IN PAROLE\n\n"
                "Ora non vi sono termini presenti.",
            .icon = Icon::Information};
        stage.expect(nothing);
        QVERIFY(stage.open<Form4>("tradotte") == nullptr);
        stage.choose("traduci");
        for (const char* const sign : {"a01", "a02", "a03", "a01"}) {
            stage.press(sign);
        }
        stage.expect(word("DUE"));
        stage.expect(word("TRE"));
        stage.expect(word("UNO"), Button::Cancel);
        stage.click("Command12");
        QCOMPARE(stage.phrase(), std::string("a01"));
        const auto* const window = stage.open<Form4>("tradotte");
        QCOMPARE(lines(window), QStringList({"DUE", "TRE"}));
        stage.expect(word("UNO"));  // the open window follows the next search
        stage.click("Command12");
        QCOMPARE(lines(window), QStringList({"DUE", "TRE", "UNO"}));
        const auto* const list = control<QListWidget>(window, "List1");
        const QRect first = list->visualItemRect(list->item(0));
        QVERIFY(first.height() >= 32);
        QVERIFY(
            inked(list->viewport()->grab(QRect(first.topLeft(), QSize(100, 30))).toImage()));  // the signs
        click(window, "Command1");
        QTRY_VERIFY(stage.windows().opened<Form4>() == nullptr);
        const auto* const again = stage.open<Form4>("tradotte");
        QCOMPARE(lines(again).size(), 3);
        click(again, "Command2");
        QVERIFY(lines(again).isEmpty());
        stage.expect(nothing);
        stage.choose("tradotte");
    }

    void aNameIsTypedAndClickedAndTranscribed()
    {
        Stage stage;
        const auto* const window = stage.open<Form2>("ins");
        QVERIFY(!window->isModal());
        QVERIFY(!control<QWidget>(window, "use")->isEnabled());
        auto* const name = control<QLineEdit>(window, "Text1");
        QTest::keyClicks(name, QStringLiteral("Cleopatr"));
        QVERIFY(stage.cells().empty());
        click(window, "sign(0)");
        QCOMPARE(name->text(), QStringLiteral("CleopatrA"));
        QVERIFY(window->focusWidget() == name);
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(stage.cells(), std::string("n38d06g03n13i27p19o19b47p19"));
        QVERIFY(stage.phrase().empty());
        QCOMPARE(control<QLabel>(window, "count")->text(), QStringLiteral("Segni: 9"));
        click(window, "use");
        QCOMPARE(stage.phrase(), std::string("n38d06g03n13i27p19o19b47p19"));
    }

    void theSheetsHoldTheirSignsAndPrintThem()
    {
        Stage stage;
        const auto* const alphabet = control<SignSheet>(stage.open<Form2>("ins"), "chart");
        const auto* const numerals = control<SignSheet>(stage.open<Numerals>("numeri"), "chart");
        std::string codes;
        for (std::size_t i = 0; i < 7; ++i) {
            codes += control<SheetSign>(numerals, element("sign", i))->code();
        }
        QCOMPARE(codes, std::string("o35n27n10f51c23f20b20"));
        for (const SignSheet* const sheet : {alphabet, numerals}) {
            QImage page(sheet->size() * 2, QImage::Format_RGB32);
            page.fill(Qt::white);
            QPainter painter(&page);
            sheet->draw(painter, QRectF(page.rect()));
            painter.end();
            for (const SheetSign* const sign : sheet->findChildren<SheetSign*>()) {
                QVERIFY2(inkAt(sign, page, sheet), sign->code().c_str());
            }
        }
        const QTemporaryDir directory;
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(directory.filePath(QStringLiteral("foglio.pdf")));
        numerals->printOn(printer);
        QVERIFY(QFileInfo(printer.outputFileName()).size() > 1000);
        printer.setOutputFileName(directory.filePath(QStringLiteral("manca/foglio.pdf")));
        try {
            numerals->printOn(printer);
            QFAIL("printed into a directory that is not there");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.value(), 75);
        }
    }
};

WINDOW_TESTS(WordWindowsTest)
#include "WordWindowsTest.moc"
