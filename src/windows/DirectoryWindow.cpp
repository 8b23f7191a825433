#include "windows/DirectoryWindow.hpp"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/DirectoryList.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

QLabel* pathLabel(QWidget* parent, const char* name, const QString& meaning)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setAccessibleName(meaning);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

}  // namespace

Sysform::Sysform(Desktop& desktop, QWidget* parent, DirectoryReader::List list)
    : QDialog(parent),
      desktop_(desktop),
      chooser_(desktop.session().directoryChooser()),
      reader_(new DirectoryReader(std::move(list), this)),
      drive1_(new QComboBox(this)),
      dir1_(new DirectoryList(this)),
      label2_(pathLabel(this, "Label2", QStringLiteral("directory proposta"))),
      inUse_(pathLabel(this, "inUso", QStringLiteral("directory in uso"))),
      note_(pathLabel(this, "nota", QStringLiteral("nota")))
{
    setObjectName(QStringLiteral("Sysform"));
    setWindowTitle(QStringLiteral("Sistema"));
    setAttribute(Qt::WA_DeleteOnClose);
    build();
    chooser_.open();
    for (const std::string& entry : chooser_.drives()) {
        drive1_->addItem(qtext(entry));
    }
    connect(drive1_, &QComboBox::textActivated, this, &Sysform::driveChosen);
    connect(dir1_, &DirectoryList::entered, this, [this](const std::string& path) {
        desktop_.handle([&] { chooser_.directoryChanged(path); });
        readDirectory();
    });
    patience_.setSingleShot(true);
    patience_.setInterval(200);
    connect(&patience_, &QTimer::timeout, readingLine_, &QWidget::show);
    connect(reader_, &DirectoryReader::changed, this, &Sysform::showReading);
    connect(&desktop_, &Desktop::changed, this, &Sysform::showState);
    showState();
    readDirectory();
}

void Sysform::build()
{
    drive1_->setObjectName(QStringLiteral("Drive1"));
    drive1_->setAccessibleName(QStringLiteral("unità"));
    dir1_->setObjectName(QStringLiteral("Dir1"));
    dir1_->setAccessibleName(QStringLiteral("directory"));
    QFont bold = label2_->font();
    bold.setBold(true);
    label2_->setFont(bold);
    note_->hide();

    const auto button = [this](const char* name, const QString& caption, auto handler) {
        auto* const made = new QPushButton(caption, this);
        made->setObjectName(QLatin1String(name));
        made->setAccessibleName(caption);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, handler);
        return made;
    };
    command2_ = button("Command2", QStringLiteral("Modifica percorso"), [this] {
        desktop_.handle([this] { chooser_.editPath(); });
        readDirectory();
    });
    command1_ = button("Command1", QStringLiteral("Conferma"), [this] { confirm(); });
    command1_->setDefault(true);
    QPushButton* const leave = button("Command3", QStringLiteral("Annulla"), [this] { close(); });

    auto* const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setHorizontalSpacing(12);
    form->addRow(QStringLiteral("In uso:"), inUse_);
    form->addRow(QStringLiteral("Proposta:"), label2_);
    form->addRow(QStringLiteral("&Unità:"), drive1_);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(command2_);
    buttons->addStretch(1);
    buttons->addWidget(command1_);
    buttons->addWidget(leave);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(10);
    auto* const hint = new QLabel(
        QStringLiteral("Indicare la directory che contiene la cartella GR con le figure dei segni: "
                       "«Modifica percorso» apre l’elenco, un doppio clic entra in una directory."),
        this);
    hint->setWordWrap(true);
    column->addWidget(hint);
    column->addLayout(form);
    column->addWidget(dir1_, 1);
    column->addWidget(note_);
    column->addWidget(readingLine());
    column->addLayout(buttons);
    resize(520, 480);
}

/// The progress bar while a drive is read, and the button that stops it.
QWidget* Sysform::readingLine()
{
    readingLine_ = new QWidget(this);
    readingNote_ = new QLabel(readingLine_);
    readingNote_->setObjectName(QStringLiteral("lettura"));
    readingNote_->setTextFormat(Qt::PlainText);
    auto* const bar = new QProgressBar(readingLine_);
    bar->setAccessibleName(QStringLiteral("lettura in corso"));
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setMaximumHeight(14);
    auto* const stop = new QPushButton(QStringLiteral("Interrompi"), readingLine_);
    stop->setObjectName(QStringLiteral("interrompi"));
    stop->setAccessibleName(QStringLiteral("interrompi la lettura"));
    stop->setAutoDefault(false);
    connect(stop, &QPushButton::clicked, this, [this] {
        reader_->abandon();
        chooser_.stopReading();
        showState();
    });
    auto* const row = new QHBoxLayout(readingLine_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(readingNote_);
    row->addWidget(bar, 1);
    row->addWidget(stop);
    readingLine_->hide();
    return readingLine_;
}

void Sysform::showState()
{
    inUse_->setText(qtext(desktop_.session().images().GlyphDirectory()));
    label2_->setText(qtext(chooser_.DirectoryCandidate()));
    dir1_->setEnabled(chooser_.directoryEnabled());
    command1_->setEnabled(!chooser_.readingDisc());
    command2_->setEnabled(!chooser_.readingDisc());
    drive1_->setCurrentIndex(drive1_->findText(qtext(chooser_.drive())));
}

void Sysform::showReading()
{
    if (reader_->reading()) {
        patience_.start();
    } else {
        patience_.stop();
        readingLine_->hide();
    }
}

void Sysform::driveChosen(const QString& entry)
{
    desktop_.handle([&] { chooser_.driveChanged(utf8(entry)); });
    if (!chooser_.readingDisc()) {
        readDirectory();
        return;
    }
    readingNote_->setText(QStringLiteral("Lettura di %1 …").arg(entry));
    reader_->read(desktop_.session().files().drives(), std::string(GlyphDirectoryChooser::kDisc),
                  [this](const DirectoryListing& listing) {
                      desktop_.handle([&] { chooser_.discRead(listing.readable); });
                      if (listing.readable) {
                          dir1_->show(listing);
                          note_->hide();
                      }
                  });
}

void Sysform::readDirectory()
{
    const std::string wanted = chooser_.directory();
    readingNote_->setText(QStringLiteral("Lettura di %1 …").arg(qtext(wanted)));
    reader_->read(desktop_.session().files().drives(), wanted,
                  [this, wanted](const DirectoryListing& listing) {
                      dir1_->show(listing);
                      note_->setVisible(listing.readable && !listing.asWanted);
                      note_->setText(QStringLiteral("%1 non esiste: l’elenco parte da %2.")
                                         .arg(qtext(wanted), qtext(listing.path)));
                  });
}

void Sysform::confirm()
{
    bool taken = false;
    const QPointer<Sysform> window = this;  // it may be closed while a box is open
    desktop_.handle([&] { taken = chooser_.confirm(); });
    if (window && taken) {
        close();
    }
}

}  // namespace karvel
