#include "windows/signs/PhrasePicture.hpp"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMarginsF>
#include <QMimeData>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <array>

#include "windows/support/Desktop.hpp"
#include "windows/support/FileDialogs.hpp"
#include "windows/support/Text.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/Svg.hpp"

namespace karvel {

namespace {

constexpr double kMostPixels = 100'000'000;
constexpr int kLowest = 8;
constexpr int kHighest = 2000;
constexpr qreal kPixelsPerInch = 96;
constexpr int kPdfResolution = 1200;

const QString kTitle = QStringLiteral("Salva figura");

std::string titleOf(const PhrasePicture& picture, const LayoutPainter& layouts)
{
    return manuelDeCodage(layouts.layoutOf(picture.codes, picture.look));
}

/// The picture with its margin, `blockHeight` in the unit of the painter.
void paintWhole(QPainter& painter, const PhrasePicture& picture, qreal blockHeight, Desktop& desktop)
{
    const qreal margin = kPictureMargin * blockHeight / kBlockHeight;
    const auto placement = LayoutPainter::of(desktop).placementOf(picture.codes, picture.look);
    LayoutPainter::of(desktop).paint(painter, *placement, QPointF(margin, margin), blockHeight, Qt::black);
}

/// The file's whole content; nothing when the picture is too large for its form.
QByteArray contentFor(const QString& suffix, const PhrasePicture& picture, Desktop& desktop)
{
    if (suffix == QLatin1String("svg")) {
        return svgOf(picture, desktop);
    }
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    const bool done = suffix == QLatin1String("pdf") ? writePdf(picture, content, desktop)
                                                     : imageOf(picture, desktop).save(&content, "PNG");
    return done ? content.data() : QByteArray();
}

/// The file to write, with one of the three endings; empty for none.
QString chosenFile(QWidget& parent, Desktop& desktop)
{
    const std::array suffixes = {QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("pdf")};
    QStringList filters;
    for (const QString& suffix : suffixes) {
        filters += QStringLiteral("%1 (*.%2)").arg(suffix.toUpper(), suffix);
    }
    QFileDialog dialog(&parent, kTitle);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(suffixes[0]);
    openWhereUsedLast(dialog, QStringLiteral("&Salva"), desktop.session());
    dialog.selectFile(QStringLiteral("figura"));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(
            suffixes[static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter)))]);
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    const QString name = dialog.selectedFiles().constFirst();
    const QString suffix = QFileInfo(name).suffix().toLower();
    return std::ranges::find(suffixes, suffix) != suffixes.end()
               ? name
               : name + QLatin1Char('.') + dialog.defaultSuffix();
}

/// False when the user gives up.
bool askHeight(QWidget& parent, int& height)
{
    QInputDialog dialog(&parent);
    dialog.setWindowTitle(kTitle);
    dialog.setLabelText(QStringLiteral("Altezza dei blocchi, in pixel:"));
    dialog.setInputMode(QInputDialog::IntInput);
    dialog.setIntRange(kLowest, kHighest);
    dialog.setIntValue(height);
    dialog.setCancelButtonText(QStringLiteral("Annulla"));
    const bool accepted = dialog.exec() == QDialog::Accepted;
    height = dialog.intValue();
    return accepted;
}

void tell(Desktop& desktop, const QString& text)
{
    desktop.session().ui().ask({.title = utf8(kTitle), .text = utf8(text), .icon = Icon::Critical});
}

}  // namespace

QImage imageOf(const PhrasePicture& picture, Desktop& desktop)
{
    const QSizeF size = phraseSize(picture.codes, picture.blockHeight, picture.look, desktop);
    if (size.width() * size.height() > kMostPixels) {
        return {};
    }
    QImage image(qCeil(size.width()), qCeil(size.height()), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintWhole(painter, picture, picture.blockHeight, desktop);
    return image;
}

QByteArray svgOf(const PhrasePicture& picture, Desktop& desktop, SharedOutlines* shared)
{
    LayoutPainter& layouts = LayoutPainter::of(desktop);
    return QByteArray::fromStdString(svgOf(*layouts.placementOf(picture.codes, picture.look),
                                           picture.blockHeight, titleOf(picture, layouts), layouts.drawings(),
                                           shared)
                                         .text);
}

bool writePdf(const PhrasePicture& picture, QIODevice& device, Desktop& desktop)
{
    const QSizeF size = phraseSize(picture.codes, picture.blockHeight, picture.look, desktop);
    QPdfWriter pdf(&device);
    pdf.setCreator(QStringLiteral("Karvel"));
    pdf.setTitle(qtext(titleOf(picture, LayoutPainter::of(desktop))));
    pdf.setResolution(kPdfResolution);
    pdf.setPageSize(QPageSize(size / kPixelsPerInch, QPageSize::Inch, {}, QPageSize::ExactMatch));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&pdf)) {
        return false;
    }
    paintWhole(painter, picture, picture.blockHeight * kPdfResolution / kPixelsPerInch, desktop);
    return painter.end();
}

void copyPicture(const PhrasePicture& picture, Desktop& desktop)
{
    if (picture.codes.empty()) {
        return;
    }
    const QImage image = imageOf(picture, desktop);
    auto* const data = new QMimeData;
    if (!image.isNull()) {
        data->setImageData(image);
    }
    data->setData(QStringLiteral("image/svg+xml"), svgOf(picture, desktop));
    QApplication::clipboard()->setMimeData(data);
}

void savePicture(QWidget& parent, PhrasePicture picture, Desktop& desktop)
{
    if (picture.codes.empty()) {
        return;
    }
    const QString name = chosenFile(parent, desktop);
    const QString suffix = QFileInfo(name).suffix().toLower();
    if (name.isEmpty() || (suffix == QLatin1String("png") && !askHeight(parent, picture.blockHeight))) {
        return;
    }
    const QByteArray content = contentFor(suffix, picture, desktop);
    if (content.isEmpty()) {
        tell(desktop, QStringLiteral("La figura sarebbe troppo grande: scegliere un'altezza minore."));
        return;
    }
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        tell(desktop, QStringLiteral("Non si può scrivere %1: %2").arg(name, file.errorString()));
    }
}

}  // namespace karvel
