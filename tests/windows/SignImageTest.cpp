#include "windows/signs/SignImage.hpp"

#include <QDirIterator>

#include "windows/signs/SignButton.hpp"
#include "windows/support/Stage.hpp"

using namespace karvel;
using namespace karvel::testing;

class SignImageTest : public QObject {
    Q_OBJECT

  private slots:
    void everySignLooksAsTheToolkitReadsIt()
    {
        const TemporaryDrive drive;
        QDirIterator signs(QStringLiteral(KARVEL_SOURCE_DIR "/data/tree/GR"), {QStringLiteral("*.gif")});
        for (int count = 0; signs.hasNext() || count < 700; ++count) {
            QFile file(signs.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            drive.write("C:\\sign.gif", bytes.toStdString());
            constexpr auto kForm = QImage::Format_ARGB32_Premultiplied;
            QCOMPARE(decodedImage(drive.files().drives(), "C:\\sign.gif").convertToFormat(kForm),
                     QImage::fromData(bytes).convertToFormat(kForm));
        }
    }

    void nothingIsAskedOfAnotherComputer()
    {
        const TemporaryDrive drive;
        drive.write("C:\\foto.gif", drive.read(KARVEL_SOURCE_DIR "/data/tree/GR/a01.gif"));
        const std::string here = utf8Path(drive.host("C:\\foto.gif"));
        if (!here.starts_with('/')) {
            QSKIP("a path of Windows is none on the drive of the test");
        }
        QVERIFY(!decodedImage(drive.files().drives(), here).isNull());
        QVERIFY(decodedImage(drive.files().drives(), "/" + here).isNull());
    }

    void theOtherPagesAreScaledInTheBackground()
    {
        Stage stage;
        PictureStore& pictures = stage.desktop().pictures();
        QTRY_VERIFY_WITH_TIMEOUT(pictures.kept() >= static_cast<qsizetype>(kPages * kKeys), 60000);
        const std::string path = stage.session().images().path("o19");
        const int side = stage.control<SignButton>("tasto(0)")->pictureSide();
        const QImage expected = PictureStore(stage.drive().files().drives()).scaled(path, side, 1).toImage();
        QVERIFY(!expected.isNull());
        // What was scaled needs no file any more, and looks as if it had just been read.
        const auto directory = stage.drive().host(stage.session().images().GlyphDirectory());
        std::filesystem::rename(directory, directory.parent_path() / "altrove");
        QCOMPARE(pictures.scaled(path, side, 1).toImage(), expected);
        stage.press("o19");
        QCOMPARE(stage.control<SignButton>("tasto(18)")->picturePath(), path);
    }
};

WINDOW_TESTS(SignImageTest)
#include "SignImageTest.moc"
