#include "windows/main/FindSign.hpp"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "compose/SignFinder.hpp"
#include "text/Transliteration.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Icons.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kIcon = 40;  // logical pixels
constexpr int kFieldWidth = 280;
constexpr int kListWidth = 460;
constexpr int kShown = 8;           // rows before the list scrolls
constexpr std::size_t kFound = 40;  // signs listed at most

/// Draws a row's sign only when the row is visible: of forty rows eight are.
class SignRow : public QStyledItemDelegate {
  public:
    SignRow(Desktop& desktop, QObject* parent) : QStyledItemDelegate(parent), desktop_(desktop) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const std::string code = utf8(index.data(Qt::UserRole).toString());
        if (!code.empty()) {
            QStyleOptionViewItem row = option;
            initStyleOption(&row, index);
            const QRect place =
                row.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget);
            desktop_.pictures().draw(*painter, desktop_.session().images().path(code), QRectF(place).center(),
                                     kIcon);
        }
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = {kIcon, kIcon};
    }

  private:
    Desktop& desktop_;
};

}  // namespace

FindSign::FindSign(Desktop& desktop, QWidget& stage, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      stage_(stage),
      field_(new QLineEdit(this)),
      list_(new QListWidget(&stage))
{
    field_->setObjectName(QStringLiteral("findSign"));
    field_->setPlaceholderText(QStringLiteral("Trova segno (Ctrl+F)"));
    field_->setAccessibleName(QStringLiteral("Trova segno"));
    field_->setToolTip(
        QStringLiteral("numero di Gardiner, codice, valore fonetico o parola della descrizione; "
                       "Invio inserisce, Spazio passa al segno seguente; Invio a campo vuoto cerca"));
    search_ = field_->addAction(QIcon(), QLineEdit::LeadingPosition);
    search_->setText(QStringLiteral("trova segno"));
    clear_ = field_->addAction(QIcon(), QLineEdit::TrailingPosition);
    clear_->setObjectName(QStringLiteral("clearFind"));
    clear_->setText(QStringLiteral("svuota"));
    clear_->setToolTip(QStringLiteral("svuota il campo"));
    clear_->setVisible(false);
    showIcons();
    connect(search_, &QAction::triggered, field_, [this] { field_->setFocus(); });
    connect(clear_, &QAction::triggered, field_, &QLineEdit::clear);
    connect(field_, &QLineEdit::textChanged, clear_,
            [this](const QString& text) { clear_->setVisible(!text.isEmpty()); });
    field_->setFixedWidth(kFieldWidth);
    field_->installEventFilter(this);
    list_->setObjectName(QStringLiteral("foundSigns"));
    list_->setAccessibleName(QStringLiteral("segni trovati"));
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setUniformItemSizes(true);
    list_->setIconSize({kIcon, kIcon});
    list_->setItemDelegate(new SignRow(desktop_, list_));
    list_->hide();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field_);
    connect(field_, &QLineEdit::textChanged, this, &FindSign::list);
    connect(list_, &QListWidget::itemClicked, this, [this] { insertChosen(); });
}

void FindSign::showIcons()
{
    const QColor ink = field_->palette().color(QPalette::Text);
    search_->setIcon(symbolIcon(Symbol::Search, ink));
    clear_->setIcon(symbolIcon(Symbol::Cross, ink));
}

void FindSign::start(const QString& typed)
{
    if (!field_->hasFocus()) {
        before_ = QApplication::focusWidget();
    }
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
    if (!typed.isEmpty()) {
        field_->setText(typed);
    }
}

void FindSign::list()
{
    found_ = desktop_.session().finder().find(typed(field_->text()), kFound);
    list_->clear();
    for (const SignInfo* const sign : found_) {
        auto* const row = new QListWidgetItem(qtext(signCaption(sign->code)), list_);
        row->setData(Qt::UserRole, qtext(sign->code));
    }
    if (found_.empty() && !field_->text().trimmed().isEmpty()) {
        new QListWidgetItem(
            QStringLiteral("nessun segno: cerca «%1» nel dizionario").arg(field_->text().trimmed()), list_);
    }
    list_->setVisible(list_->count() > 0);
    if (list_->count() == 0) {
        return;
    }
    list_->setCurrentRow(0);
    const int rows = std::min(list_->count(), kShown);
    const int height = std::min(stage_.height(), rows * std::max(kIcon + 4, list_->sizeHintForRow(0)) + 6);
    const int width = std::min(stage_.width(), kListWidth);
    const int left = stage_.mapFromGlobal(field_->mapToGlobal(QPoint(0, 0))).x();
    list_->setGeometry(std::clamp(left, 0, stage_.width() - width), 0, width, height);
    list_->raise();
}

void FindSign::move(int step)
{
    if (!found_.empty()) {
        const int last = static_cast<int>(found_.size()) - 1;
        list_->setCurrentRow(std::clamp(list_->currentRow() + step, 0, last));
    }
}

/// True when several signs have the value typed. Then Space selects the next one; otherwise it is a blank.
bool FindSign::homophonesListed() const
{
    const std::string value = asciiTransliteration(typed(field_->text().trimmed()));
    return found_.size() > 1 && found_[0]->placeOf(value) && found_[1]->placeOf(value);
}

void FindSign::insertChosen()
{
    const int row = list_->currentRow();
    if (found_.empty() && row == 0) {
        const QString text = field_->text().trimmed();
        field_->clear();
        emit wordWanted(text);
        return;
    }
    if (row < 0 || row >= static_cast<int>(found_.size())) {
        return;
    }
    const std::string code(found_[static_cast<std::size_t>(row)]->code);
    bool done = false;
    desktop_.handle([&] { done = desktop_.session().palette().pressCode(code); });
    field_->clear();
    field_->setFocus();
    if (done) {
        emit inserted(code);
    }
}

void FindSign::insertPending()
{
    if (field_->hasFocus() && list_->isVisible() && !found_.empty()) {
        insertChosen();
    }
}

void FindSign::leave()
{
    field_->clear();
    list_->hide();
    if (before_ != nullptr) {
        before_->setFocus();
    } else {
        stage_.setFocus();
    }
}

bool FindSign::key(int key)
{
    switch (key) {
        case Qt::Key_Escape:
            leave();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (field_->text().isEmpty()) {
                emit finished();
            } else {
                insertChosen();
            }
            return true;
        case Qt::Key_Down:
            move(1);
            return true;
        case Qt::Key_Up:
            move(-1);
            return true;
        case Qt::Key_PageDown:
            move(kShown);
            return true;
        case Qt::Key_PageUp:
            move(-kShown);
            return true;
        case Qt::Key_Space:
            if (homophonesListed()) {
                move(1);
                return true;
            }
            return false;
        default:
            return false;
    }
}

bool FindSign::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == field_ && event->type() == QEvent::KeyPress) {
        return key(static_cast<QKeyEvent*>(event)->key());
    }
    if (watched == field_ && event->type() == QEvent::FocusOut) {
        list_->hide();
    }
    if (watched == field_ && event->type() == QEvent::FocusIn && !field_->text().isEmpty()) {
        list();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace karvel
