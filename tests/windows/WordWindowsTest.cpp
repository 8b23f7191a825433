#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include "windows/AlphabetWindow.hpp"
#include "windows/NumeralsWindow.hpp"
#include "windows/TranslatedWordsWindow.hpp"
#include "windows/signs/SignCell.hpp"
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

std::string shownCodes(Stage& stage)
{
    std::string codes;
    for (std::size_t i = 0; i < DisplayLine::kCells; ++i) {
        codes += stage.control<SignCell>(qPrintable(element("Vendol", i)))->cell().code;
    }
    return codes;
}

QStringList lines(const QListWidget* list)
{
    QStringList all;
    for (int i = 0; i < list->count(); ++i) {
        all.append(list->item(i)->text());
    }
    return all;
}

}  // namespace

class TestWordWindows : public QObject {
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
        stage.choose("tradotte");
        QVERIFY(stage.windows().opened<Form4>() == nullptr);

        stage.choose("traduci");
        QCOMPARE(stage.control<QLabel>("Label1")->text(), QStringLiteral("TIPO RICERCA: Dividi in parole"));
        for (const char* const sign : {"a01", "a02", "a03", "a01"}) {
            stage.press(sign);
        }
        stage.expect(word("DUE"));
        stage.expect(word("TRE"));
        stage.expect(word("UNO"), Button::Cancel);
        stage.click("Command12");
        QVERIFY(stage.noBoxLeft());
        QCOMPARE(stage.session().display().DisplayCodes(), std::string("a01"));

        stage.choose("tradotte");
        auto* const window = stage.windows().opened<Form4>();
        QVERIFY(window != nullptr);
        auto* const list = window->findChild<QListWidget*>(QStringLiteral("List1"));
        QCOMPARE(lines(list), QStringList({"DUE", "TRE"}));
        stage.expect(word("UNO"));  // the open window follows the next search
        stage.click("Command12");
        QCOMPARE(lines(list), QStringList({"DUE", "TRE", "UNO"}));
        QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QTRY_VERIFY(stage.windows().opened<Form4>() == nullptr);

        stage.choose("tradotte");
        auto* const again = stage.windows().opened<Form4>();
        QCOMPARE(again->findChild<QListWidget*>()->count(), 3);
        QTest::mouseClick(again->findChild<QPushButton*>(QStringLiteral("Command2")), Qt::LeftButton);
        QCOMPARE(again->findChild<QListWidget*>()->count(), 0);
        stage.expect(nothing);
        stage.choose("tradotte");
        QVERIFY(stage.noBoxLeft());
    }

    void aNameIsTypedAndClickedAndTranscribed()
    {
        Stage stage;
        stage.choose("ins");
        auto* const window = stage.windows().opened<Form2>();
        QVERIFY(window != nullptr && !window->isModal());
        auto* const name = window->findChild<QLineEdit*>(QStringLiteral("Text1"));
        QTest::keyClicks(name, QStringLiteral("Cleopatr"));
        QVERIFY(shownCodes(stage).empty());
        QTest::mouseClick(window->findChild<SheetSign*>(QStringLiteral("sign(0)")), Qt::LeftButton);
        QCOMPARE(name->text(), QStringLiteral("CleopatrA"));
        QVERIFY(window->focusWidget() == name);
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(shownCodes(stage), std::string("n38d06g03n13i27p19o19b47p19"));
        QVERIFY(stage.session().display().DisplayCodes().empty());
        QCOMPARE(window->findChild<QLabel*>(QStringLiteral("count"))->text(), QStringLiteral("Segni: 9"));
        name->setText(QStringLiteral("12"));
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(shownCodes(stage).empty());
    }

    void theSheetsHoldTheirSignsAndPrintThemOnAPage()
    {
        Stage stage;
        stage.choose("ins");
        stage.choose("numeri");
        const auto* const numerals = stage.windows().opened<Numerals>();
        QVERIFY(numerals != nullptr);
        std::string codes;
        for (int i = 0; i < 7; ++i) {
            codes += numerals->findChild<SheetSign*>(element("sign", static_cast<std::size_t>(i)))->code();
        }
        QCOMPARE(codes, std::string("o35n27n10f51c23f20b20"));
        const auto* const alphabet = stage.windows().opened<Form2>();
        for (const QDialog* const window :
             {static_cast<const QDialog*>(alphabet), static_cast<const QDialog*>(numerals)}) {
            const auto* const sheet = window->findChild<SignSheet*>(QStringLiteral("chart"));
            QImage page(1400, 1000, QImage::Format_RGB32);
            page.fill(Qt::white);
            QPainter painter(&page);
            sheet->draw(painter, QRectF(page.rect()), 1);
            painter.end();
            // Dark ink stands in the middle of every sign's place.
            const qreal factor = std::min(1400.0 / sheet->width(), 1000.0 / sheet->height());
            const qreal left = (1400 - sheet->width() * factor) / 2;
            for (const SheetSign* const sign : sheet->findChildren<SheetSign*>()) {
                const QRect place = sign->geometry();
                const QRect onPage(static_cast<int>(left + place.x() * factor),
                                   static_cast<int>(place.y() * factor),
                                   static_cast<int>(place.width() * factor),
                                   static_cast<int>((place.height() - 46) * factor));
                int dark = 0;
                for (int y = onPage.top(); y < onPage.bottom(); ++y) {
                    for (int x = onPage.left(); x < onPage.right(); ++x) {
                        dark += qGray(page.pixel(x, y)) < 80 ? 1 : 0;
                    }
                }
                QVERIFY2(dark > 40, sign->code().c_str());
            }
        }
    }

    void aSheetThatCannotBePrintedIsAFailure()
    {
        Stage stage;
        stage.choose("numeri");
        const auto* const sheet =
            stage.windows().opened<Numerals>()->findChild<SignSheet*>(QStringLiteral("chart"));
        const QTemporaryDir directory;
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(directory.filePath(QStringLiteral("foglio.pdf")));
        sheet->printOn(printer);
        QVERIFY(QFileInfo(printer.outputFileName()).size() > 1000);
        printer.setOutputFileName(directory.filePath(QStringLiteral("manca/foglio.pdf")));
        try {
            sheet->printOn(printer);
            QFAIL("printed into a directory that is not there");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.value(), 75);
        }
    }

    void undoTellsOfADamagedFileAndGoesOn()
    {
        Stage stage;
        stage.press("a01");
        stage.press("a02");
        stage.choose("undo");
        QCOMPARE(shownCodes(stage), std::string("a01"));
        stage.drive().write("C:\\programmi\\Karvel\\Undo.dat", "file undo\r\n");
        stage.expect({.title = "Messaggio di sistema",
                      .text = "Non è possibile tornare allo stato precedente: il file Undo.dat manca o è "
                              "danneggiato.\n\nErrore 62: Input oltre la fine del file",
                      .icon = Icon::Critical});
        stage.choose("undo");
        QVERIFY(stage.noBoxLeft());
        QVERIFY(shownCodes(stage).empty());
        stage.press("a03");
        QCOMPARE(shownCodes(stage), std::string("a03"));
    }
};

QTEST_MAIN(TestWordWindows)
#include "WordWindowsTest.moc"
