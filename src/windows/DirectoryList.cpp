#include "windows/DirectoryList.hpp"

#include <QKeyEvent>
#include <QStyle>

#include "windows/support/PlainTip.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kIndent = 3;  // blanks for each level

QString lastName(const std::string& path)
{
    return qtext(path.ends_with('\\') ? path : path.substr(path.rfind('\\') + 1));
}

}  // namespace

DirectoryList::DirectoryList(QWidget* parent) : QListWidget(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemDoubleClicked, this, &DirectoryList::enter);
}

void DirectoryList::show(const DirectoryListing& listing)
{
    clear();
    if (!listing.readable) {
        auto* const note =
            new QListWidgetItem(QStringLiteral("(%1 non si può leggere)").arg(qtext(listing.path)), this);
        note->setFlags(Qt::NoItemFlags);
        return;
    }
    int depth = 0;
    for (const std::string& directory : directoryChain(listing.path)) {
        add(lastName(directory), directory, depth++, true);
    }
    setCurrentRow(count() - 1);
    for (const std::string& name : listing.subdirectories) {
        add(qtext(name), pathBelow(listing.path, name), depth, false);
    }
    scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

void DirectoryList::add(const QString& name, const std::string& path, int depth, bool open)
{
    const QIcon icon = style()->standardIcon(open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon);
    auto* const item = new QListWidgetItem(icon, QString(depth * kIndent, QLatin1Char(' ')) + name, this);
    item->setData(Qt::UserRole, qtext(path));
    item->setToolTip(plainTip(qtext(path)));
}

void DirectoryList::enter(const QListWidgetItem* item)
{
    if (item != nullptr && (item->flags() & Qt::ItemIsEnabled) != 0) {
        emit entered(utf8(item->data(Qt::UserRole).toString()));
    }
}

void DirectoryList::keyPressEvent(QKeyEvent* event)
{
    // Enter opens the directory; it must not press the window's default button as well.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        enter(currentItem());
        event->accept();
        return;
    }
    QListWidget::keyPressEvent(event);
}

}  // namespace karvel
