#include "windows/signs/AnswerPane.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>
#include <optional>
#include <utility>

#include "app/EntryList.hpp"
#include "windows/signs/AnswerList.hpp"
#include "windows/signs/PhrasePicture.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/FileDialogs.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

// Milliseconds of reading before the event loop runs again. The first piece is longer, so that a dictionary
// of usual size is read in it.
constexpr int kFirstPiece = 40;
constexpr int kPiece = 12;
constexpr int kPatience = 250;   // milliseconds before the progress is shown
constexpr int kPageBlocks = 32;  // height of the blocks on a saved page, in pixels

}  // namespace

AnswerPane::AnswerPane(Desktop& desktop, const char* listName, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      list_(new AnswerList(desktop, this)),
      fault_(new QLabel(this)),
      order_(new QComboBox(this)),
      progress_(new QProgressBar(this)),
      reading_(progressLine())
{
    list_->setObjectName(QLatin1String(listName));
    fault_->setObjectName(QStringLiteral("fault"));
    fault_->setTextFormat(Qt::PlainText);
    fault_->setWordWrap(true);
    fault_->hide();
    order_->setObjectName(QStringLiteral("order"));
    order_->setAccessibleName(QStringLiteral("ordine dell'elenco"));
    order_->addItems({QStringLiteral("prima le migliori"), QStringLiteral("ordine del file")});
    connect(order_, &QComboBox::currentIndexChanged, this, [this](int index) {
        list_->answers().sort(index == 0 ? Answers::Order::BestFirst : Answers::Order::FileOrder);
        list_->toStart();
    });
    auto* const ascii = new QCheckBox(QStringLiteral("lettere &ASCII"), this);
    ascii->setObjectName(QStringLiteral("ascii"));
    ascii->setToolTip(QStringLiteral("la traslitterazione come si scrive sulla tastiera: A, a, H, x ..."));
    connect(ascii, &QCheckBox::toggled, this, [this](bool on) { list_->answers().showAscii(on); });
    use_ = button(QStringLiteral("&Usa questi segni"), "use", [this] { useSigns(); });
    use_->setToolTip(QStringLiteral("aggiunge i segni della voce alla frase (Ctrl+Invio)"));
    save_ = button(QStringLiteral("&Salva elenco..."), "save", [this] { save(); });
    auto* const line = new QHBoxLayout;
    line->addWidget(order_);
    line->addWidget(ascii);
    line->addStretch(1);
    line->addWidget(use_);
    line->addWidget(save_);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list_, 1);
    column->addWidget(reading_);
    column->addWidget(fault_);
    column->addLayout(line);
    connect(list_, &AnswerList::chosen, this, &AnswerPane::choose);
    connect(list_, &AnswerList::signsWanted, this, &AnswerPane::useSigns);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &AnswerPane::enable);
    connect(&list_->answers(), &QAbstractItemModel::modelReset, this, &AnswerPane::enable);
    next_.setInterval(0);
    connect(&next_, &QTimer::timeout, this, [this] { readOn(kPiece); });
    enable();
}

QWidget* AnswerPane::progressLine()
{
    auto* const made = new QWidget(this);
    progress_->setObjectName(QStringLiteral("progress"));
    progress_->setAccessibleName(QStringLiteral("lettura del dizionario"));
    progress_->setFormat(QStringLiteral("Lettura del dizionario: %p%"));
    auto* const stopButton = button(QStringLiteral("&Interrompi"), "stop", [this] { stop(); });
    stopButton->setToolTip(QStringLiteral("smette di leggere il dizionario (Esc)"));
    auto* const line = new QHBoxLayout(made);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(progress_, 1);
    line->addWidget(stopButton);
    made->hide();
    return made;
}

QPushButton* AnswerPane::button(const QString& caption, const char* name,
                                const std::function<void()>& handler)
{
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);  // Return in the list chooses a row
    connect(made, &QPushButton::clicked, this, [handler] { handler(); });
    return made;
}

void AnswerPane::follow(std::shared_ptr<AnswerSearch> search)
{
    search_ = std::move(search);
    shown_ = 0;
    begun_.start();
    list_->setCurrentIndex({});
    tell({});
    readOn(kFirstPiece);
}

/// Sorting and listing takes time, so the list is shown anew only when the answers have become twice as many.
void AnswerPane::readOn(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    const bool more = search_->read([&] { return timer.elapsed() >= milliseconds; });
    if (more) {
        next_.start();
        progress_->setValue(search_->percent());
    } else {
        next_.stop();
    }
    reading_->setVisible(more && begun_.elapsed() >= kPatience);
    if (!more || shown_ == 0 || search_->found() >= 2 * shown_) {
        showFound();
    }
    if (!more) {
        tell(search_->failure() ? faultLine(*search_->failure()) : std::string());
        search_.reset();
    }
}

bool AnswerPane::stop()
{
    if (!search_) {
        return false;
    }
    next_.stop();
    reading_->hide();
    showFound();
    tell(stoppedLine(search_->percent(), search_->found()));
    search_.reset();
    return true;
}

/// A row that the user has moved to stays the current one, and a list that the user has scrolled stays there.
void AnswerPane::showFound()
{
    std::optional<DictionaryEntry> current;  // a copy: the search may have read the entry again
    if (const DictionaryEntry* const entry = list_->current();
        entry != nullptr && list_->currentIndex().row() > 0) {
        current = *entry;
    }
    const int top = shown_ > 0 ? list_->indexAt({1, 1}).row() : 0;
    shown_ = search_->found();
    Answers answers = search_->answers();
    if (order_->currentIndex() != 0) {
        answers.sort(Answers::Order::FileOrder);
    }
    list_->answers().setAnswers(std::move(answers), search_->rest());
    const int row = current ? list_->answers().rowOf(*current) : -1;
    if (row > 0) {
        list_->setCurrentIndex(list_->answers().index(row));
    } else {
        list_->toStart();
        if (top > 0) {
            list_->scrollTo(list_->answers().index(top), QAbstractItemView::PositionAtTop);
        }
    }
    emit shown();
}

void AnswerPane::tell(const std::string& line)
{
    fault_->setText(qtext(line));
    fault_->setVisible(!line.empty());
}

void AnswerPane::enable()
{
    use_->setEnabled(list_->current() != nullptr);
    save_->setEnabled(!list_->answers().answers().empty());
}

void AnswerPane::choose()
{
    if (const DictionaryEntry* const entry = list_->current()) {
        desktop_.handle([this, chosen = *entry] {
            showEntry(desktop_.session(), chosen, searched_.empty() ? chosen.signs : searched_);
        });
    }
}

void AnswerPane::useSigns()
{
    if (const DictionaryEntry* const entry = list_->current()) {
        desktop_.handle([this, codes = entry->signs] { karvel::useSigns(desktop_.session(), codes); });
    }
}

void AnswerPane::save()
{
    const QStringList types = {QStringLiteral("Pagina HTML con le figure (*.html)"),
                               QStringLiteral("Pagina HTML con geroglifici Unicode (*.html)"),
                               QStringLiteral("Tabella CSV (*.csv)")};
    auto* const dialog = new QFileDialog(this, QStringLiteral("Salva elenco"));
    dialog->setObjectName(QStringLiteral("saveList"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(types);
    dialog->setDefaultSuffix(QStringLiteral("html"));
    openWhereUsedLast(*dialog, QStringLiteral("&Salva"), desktop_.session());
    dialog->selectFile(QStringLiteral("elenco"));
    connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, types](const QString& type) {
        dialog->setDefaultSuffix(type == types[2] ? QStringLiteral("csv") : QStringLiteral("html"));
    });
    connect(dialog, &QFileDialog::fileSelected, this, [this, dialog, types](const QString& path) {
        const bool csv = path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive);
        const bool unicode = dialog->selectedNameFilter() == types[1];
        desktop_.handle([&] {
            write(path, csv       ? asCsv(list_->answers().answers())
                        : unicode ? asHtml(list_->answers().answers(), heading_)
                                  : pageWithPictures());
        });
    });
    dialog->open();
}

/// Each sign's outline stands once on the page.
std::string AnswerPane::pageWithPictures()
{
    SharedOutlines outlines;
    return asHtml(
        list_->answers().answers(), heading_,
        [&](const std::string& codes) {
            return svgOf({.codes = codes, .blockHeight = kPageBlocks}, desktop_, &outlines).toStdString();
        },
        [&] { return "<svg width=\"0\" height=\"0\">" + outlines.symbols + "</svg>\n"; });
}

/// A file that is replaced is replaced whole or not at all.
void AnswerPane::write(const QString& path, const std::string& text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray::fromStdString(text)) < 0 ||
        !file.commit()) {
        throw RuntimeError(file.error() == QFileDevice::PermissionsError ||
                                   file.error() == QFileDevice::OpenError
                               ? ErrorNumber::PermissionDenied
                           : file.error() == QFileDevice::ResourceError ? ErrorNumber::DiskFull
                                                                        : ErrorNumber::DeviceIo);
    }
}

}  // namespace karvel
