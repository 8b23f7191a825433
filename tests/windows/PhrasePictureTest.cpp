#include "windows/signs/PhrasePicture.hpp"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QTemporaryDir>
#include <filesystem>

#include "windows/AlphabetWindow.hpp"
#include "windows/MagnifierWindow.hpp"
#include "windows/signs/PhraseBlocks.hpp"
#include "windows/support/Stage.hpp"
#include "writing/ManuelDeCodage.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

/// The sum of the differences of all pixels' opacity.
qint64 difference(const QImage& one, const QImage& other)
{
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sum += std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y)));
        }
    }
    return sum;
}

}  // namespace

class PhrasePictureTest : public QObject {
    Q_OBJECT

  private slots:
    void whatIsReadFromTheRightIsTheMirrorOfWhatIsReadFromTheLeft()
    {
        for (const bool outlines : {true, false}) {
            Stage stage;
            if (!outlines) {
                std::filesystem::remove(stage.drive().host(kOutlinesPath));
            }
            PhrasePicture picture{.codes = "b47d51n13", .look = {.ring = true}, .blockHeight = 110};
            QCOMPARE(svgOf(picture, stage.desktop()).contains("<path"), outlines);
            const QImage left = imageOf(picture, stage.desktop());
            picture.look.placement.rightToLeft = true;
            const QImage right = imageOf(picture, stage.desktop());
            QCOMPARE(right.size(), left.size());
            QCOMPARE(qAlpha(left.pixel(0, 0)), 0);
            QVERIFY(difference(left, QImage(left.size(), left.format())) > 100000);
            QVERIFY(difference(left.mirrored(true, false), right) * 5 < difference(left, right));
        }
    }

    void aPastedGroupingIsDrawnAndCopied()
    {
        Stage stage;
        const auto drawn = [&] {
            return manuelDeCodage(LayoutPainter::of(stage.desktop()).layoutOf(stage.phrase(), {}));
        };
        QClipboard* const clipboard = QApplication::clipboard();
        clipboard->setText(QStringLiteral("F35:I9*D21"));
        stage.choose("incolla");
        QCOMPARE(drawn(), std::string("F35:I9*D21"));
        stage.choose("copia");
        QCOMPARE(clipboard->text(), QStringLiteral("𓄤𓆑𓂋"));
        stage.press("a01");
        QCOMPARE(drawn(), std::string("F35-I9:D21-A1"));
        stage.click("Command8");
        stage.choose("incolla");  // a copy of this program keeps its groups
        QCOMPARE(drawn(), std::string("F35:I9*D21"));
        stage.choose("legami");
        stage.choose("copia");
        QCOMPARE(clipboard->text(), QStringLiteral("𓄤𓐰𓆑𓐱𓂋"));
    }

    void theSwitchesOfTheMagnifierShapeThePictureThatIsCopiedAndSaved()
    {
        Stage stage;
        stage.press("d51");
        stage.press("b47");
        stage.click("Command7");
        auto* magnifier = stage.windows().opened<Ingrandimento>();
        magnifier->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(magnifier));
        const auto copied = [&] {
            QClipboard* const clipboard = QApplication::clipboard();
            clipboard->setText(QStringLiteral("altro"));
            const auto arrived = [&] { return clipboard->mimeData()->hasImage(); };
            // A window that has just opened may lose the first key under Wine.
            for (int tries = 0; tries < 2 && !arrived(); ++tries) {
                QTest::keyClick(magnifier, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
                (void)QTest::qWaitFor(arrived, 3000);  // the button moves first
            }
            return arrived() ? clipboard->image() : QImage();
        };
        const QImage plain = copied();
        QVERIFY(control<QCheckBox>(magnifier, "blocchi")->isChecked());
        click(magnifier, "cartiglio");
        const QImage ringed = copied();
        QVERIFY(!plain.isNull() && !ringed.isNull() && ringed != plain);
        QVERIFY(QApplication::clipboard()->mimeData()->data("image/svg+xml").contains("<rect"));
        click(magnifier, "colonna");
        const QImage column = copied();
        QVERIFY(column.height() > column.width());
        // The next window has the same switches.
        control<QSpinBox>(magnifier, "altezza")->setValue(40);
        magnifier->close();
        QTRY_VERIFY(stage.windows().opened<Ingrandimento>() == nullptr);
        stage.click("Command7");
        magnifier = stage.windows().opened<Ingrandimento>();
        QCOMPARE(control<PhraseBlocks>(magnifier, "frasePerBlocchi")->picture().blockHeight, 40);
        QVERIFY(!control<QCheckBox>(magnifier, "destra")->isChecked());
        magnifier->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(magnifier));
        const QImage again = copied();
        QVERIFY(!again.isNull() && again.height() < column.height() / 2 && again.height() > again.width());

        const QTemporaryDir directory;
        QStringList opened;  // the directories in which the dialogs open
        for (const char* const ending : {"png", "svg", "pdf"}) {
            const QString name = directory.filePath(QStringLiteral("nome.") + QLatin1String(ending));
            stage.answerWith([&](QWidget& shown) {
                if (auto* const dialog = qobject_cast<QFileDialog*>(&shown)) {
                    auto* const line = control<QLineEdit>(dialog, "fileNameEdit");
                    opened << dialog->directory().absolutePath();
                    line->setText(name);
                    QTest::keyClick(line, Qt::Key_Return);
                } else if (auto* const question = qobject_cast<QInputDialog*>(&shown)) {
                    question->setIntValue(200);
                    question->accept();
                }
            });
            click(magnifier, "salva");
            QFile file(name);
            QVERIFY2(file.open(QIODevice::ReadOnly), ending);
            const QByteArray start = file.readAll();
            QVERIFY(start.startsWith("\x89PNG") || start.startsWith("<svg") || start.startsWith("%PDF"));
        }
        QVERIFY(opened[0] != QDir::currentPath());
        QCOMPARE(opened[1], directory.path());
        const QImage saved(directory.filePath(QStringLiteral("nome.png")));
        QVERIFY(saved.height() > column.height() * 2 && qAlpha(saved.pixel(0, 0)) == 0);
    }
};

WINDOW_TESTS(PhrasePictureTest)
#include "PhrasePictureTest.moc"
