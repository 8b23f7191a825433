#include "windows/signs/SignImage.hpp"

#include <QBuffer>
#include <QDirIterator>
#include <QImageReader>
#include <QPainter>
#include <QTest>
#include <memory>
#include <random>

#include "support/TemporaryDrive.hpp"
#include "windows/signs/PictureStore.hpp"

using namespace karvel;
using namespace karvel::testing;

namespace {

QImage asTheToolkitReadsIt(const QByteArray& file)
{
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer).read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class SignImageTest : public QObject {
    Q_OBJECT

  private slots:
    void looksAsTheToolkitReadsIt()
    {
        TemporaryDrive drive;
        const std::string path = "C:\\sign.gif";
        QDirIterator signs(QStringLiteral(KARVEL_SOURCE_DIR "/data/tree/GR"), {QStringLiteral("?0*.gif")});
        std::mt19937 random(1);
        int broken = 0;
        int usual = 0;
        while (signs.hasNext()) {
            const QByteArray whole = contents(signs.next());
            for (int round = 0; round < 8; ++round) {
                QByteArray file = whole;
                if (round > 0) {  // what is damaged is judged by the toolkit, or looks the same all the same
                    const auto reach = static_cast<std::size_t>(round % 2 == 0 ? 60 : file.size());
                    file[static_cast<qsizetype>(random() % reach)] ^= static_cast<char>(1U << random() % 8);
                }
                drive.write(path, file.toStdString());
                const QImage image = usualImage(drive.files().drives(), path);
                usual += image.isNull() ? 0 : 1;
                if (!image.isNull()) {
                    QCOMPARE(image.convertToFormat(QImage::Format_ARGB32_Premultiplied),
                             asTheToolkitReadsIt(file));
                }
                broken += decodedImage(drive.files().drives(), path).isNull() ? 1 : 0;
            }
        }
        QVERIFY(usual > 120);
        QVERIFY(broken > 0);
    }

    void drawsWhatWasMadeAhead()
    {
        TemporaryDrive drive;
        const std::string directory = "C:\\programmi\\Karvel\\GR\\";
        const std::vector<std::string> paths = {directory + "a01.gif", directory + "a02.gif"};
        for (const std::string& path : paths) {
            const QString name = QString::fromStdString(path.substr(directory.size()));
            drive.write(path,
                        contents(QStringLiteral(KARVEL_SOURCE_DIR "/data/tree/GR/") + name).toStdString());
        }
        const Drives drives = drive.files().drives();
        PictureStore plain(drives);
        PictureStore store(drives);
        store.use(std::make_unique<Ahead<QImage>>(
            paths, [&drives](const std::string& path) { return usualImage(drives, path); }));
        for (const std::string& path : paths) {
            QVERIFY(store.canLoad(path));
        }
        store.scaleAhead(paths, 66, 1);
        for (const int side : {66, 40}) {  // another size than foreseen is made when it is drawn
            for (const std::string& path : paths) {
                QCOMPARE(store.scaled(path, side, 1).toImage(), plain.scaled(path, side, 1).toImage());
            }
        }
    }
};

QTEST_MAIN(SignImageTest)
#include "SignImageTest.moc"
