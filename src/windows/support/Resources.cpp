#include "windows/support/Resources.hpp"

#include <QFile>

// Outside every namespace, because the toolkit's macro declares a function here. Without the macro the linker
// drops the resources of a static library.
static void initialise()
{
    Q_INIT_RESOURCE(resources);
    Q_INIT_RESOURCE(translations);
}

namespace karvel {

void initialiseResources()
{
    static const bool once = (initialise(), true);
    (void)once;
}

QPixmap openingPicture()
{
    initialiseResources();
    return QPixmap(QStringLiteral(":/pictures/apertura.jpg"));
}

QPixmap aboutPicture()
{
    initialiseResources();
    return QPixmap(QStringLiteral(":/pictures/informazioni.jpg"));
}

QString dataCredits()
{
    initialiseResources();
    QFile file(QStringLiteral(":/fonti.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace karvel
