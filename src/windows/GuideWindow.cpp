#include "windows/GuideWindow.hpp"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFragment>
#include <QVBoxLayout>
#include <algorithm>

#include "windows/support/Desktop.hpp"
#include "windows/support/Resources.hpp"
#include "windows/support/Theme.hpp"
#include "windows/support/WindowColours.hpp"

namespace karvel {

namespace {

constexpr qreal kLineHeight = 130;  // per cent

/// Sets the space between the lines and the colour of the links, and makes pictures no wider than the page
/// (logical pixels).
void layOut(QTextDocument& document, qreal width, const QColor& link)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        QTextBlockFormat format = block.blockFormat();
        const bool picture = block.text().contains(QChar::ObjectReplacementCharacter);
        format.setLineHeight(picture ? 100 : kLineHeight, QTextBlockFormat::ProportionalHeight);
        format.setNonBreakableLines(false);  // a long command would make the whole page scroll sideways
        format.setTopMargin(format.headingLevel() > 0 ? 18 : 4);
        cursor.setBlockFormat(format);
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextCharFormat character = part.fragment().charFormat();
            if (character.isImageFormat()) {
                QTextImageFormat image = character.toImageFormat();
                const QSize size = QImage(QStringLiteral(":/guida/") + image.name()).size();
                image.setWidth(std::min<qreal>(size.width(), width));
                character = image;
            } else if (character.isAnchor()) {
                character.setForeground(link);  // the toolkit takes it from the desktop's theme
            } else {
                continue;
            }
            cursor.setPosition(part.fragment().position());
            cursor.setPosition(part.fragment().position() + part.fragment().length(),
                               QTextCursor::KeepAnchor);
            cursor.setCharFormat(character);
        }
    }
}

}  // namespace

Guide::Guide(Desktop& desktop, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Guide"));
    setWindowTitle(QStringLiteral("Guida di Karvel"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    auto* const page = new QTextBrowser(this);
    page->setObjectName(QStringLiteral("page"));
    page->setAccessibleName(QStringLiteral("guida"));
    page->setOpenExternalLinks(true);
    page->setSearchPaths({QStringLiteral(":/guida")});
    page->document()->setDocumentMargin(24);
    initialiseResources();
    QFile file(QStringLiteral(":/guida/guida.md"));
    if (file.open(QIODevice::ReadOnly)) {
        page->document()->setBaseUrl(QUrl(QStringLiteral("qrc:/guida/")));
        page->document()->setMarkdown(QString::fromUtf8(file.readAll()));
    }
    layOut(*page->document(), 620,
           paletteFor(windowColour(desktop.session().colours())).color(QPalette::Link));
    page->moveCursor(QTextCursor::Start);

    auto* const chapters = new QListWidget(this);
    chapters->setObjectName(QStringLiteral("chapters"));
    chapters->setAccessibleName(QStringLiteral("capitoli"));
    chapters->setMaximumWidth(240);
    for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 1 || level == 2) {
            auto* const item = new QListWidgetItem(block.text(), chapters);
            item->setData(Qt::UserRole, block.position());
        }
    }
    connect(chapters, &QListWidget::currentItemChanged, page, [page](const QListWidgetItem* item) {
        if (item == nullptr) {
            return;
        }
        const QTextBlock heading = page->document()->findBlock(item->data(Qt::UserRole).toInt());
        const qreal top = page->document()->documentLayout()->blockBoundingRect(heading).top();
        page->verticalScrollBar()->setValue(qRound(top));
    });

    auto* const find = new QLineEdit(this);
    find->setObjectName(QStringLiteral("find"));
    find->setPlaceholderText(QStringLiteral("Cerca nella guida"));
    find->setAccessibleName(find->placeholderText());
    connect(find, &QLineEdit::returnPressed, page, [page, find] {
        if (!page->find(find->text())) {
            page->moveCursor(QTextCursor::Start);
            page->find(find->text());
        }
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, find,
            [find] { find->setFocus(); });
    auto* const close = new QPushButton(QStringLiteral("Chiudi"), this);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &Guide::close);

    auto* const side = new QVBoxLayout;
    side->addWidget(chapters, 1);
    side->addWidget(find);
    side->addWidget(close);
    auto* const row = new QHBoxLayout(this);
    row->addLayout(side);
    row->addWidget(page, 1);
    resize(960, 680);
    page->setFocus();
}

}  // namespace karvel
