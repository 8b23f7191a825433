#include "windows/PrintingWindow.hpp"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>

#include "app/EntryList.hpp"
#include "windows/PrintJob.hpp"
#include "windows/PrintSheet.hpp"
#include "windows/SheetPreview.hpp"
#include "windows/StudyPages.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

constexpr double kMillimetresPerUnit = 25.4 / 1440;
constexpr int kMillimetre = 57;  // in 1/1440 inch: one step of the scroll bar

}  // namespace

form9::form9(Desktop& desktop, QWidget* parent) : form9(desktop, parent, karvel::choosePrinter) {}

form9::form9(Desktop& desktop, QWidget* parent, ChoosePrinter choosePrinter)
    : QDialog(parent),
      desktop_(desktop),
      choosePrinter_(std::move(choosePrinter)),
      sheet_(new form7(desktop, this)),
      window_(sheet_->page())
{
    setObjectName(QStringLiteral("form9"));
    setWindowTitle(QStringLiteral("Stampa"));
    setAttribute(Qt::WA_DeleteOnClose);
    build();
    connect(&desktop_, &Desktop::changed, this, &form9::showState);
    showState();
}

form9::~form9() = default;

void form9::openFromMenu(Desktop& desktop, WindowSet& windows)
{
    if (desktop.session().display().DisplayCodes().empty()) {
        PrintPage nothing;
        (void)preparePrint(nothing, {}, desktop.session().images(), desktop.pictures(), {},
                           desktop.session().ui());
        return;
    }
    windows.open<form9>().fill();
}

bool form9::fill()
{
    Session& session = desktop_.session();
    const bool filled = preparePrint(sheet_->page(), session.display().DisplayCodes(), session.images(),
                                     session.pictures(), session.last(), session.ui());
    chooseStudy(filled && studyBox_->isChecked());
    return filled;
}

QPushButton* form9::button(const char* name, const QString& caption, void (form9::*handler)())
{
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(caption);
    made->setAutoDefault(false);
    made->setMinimumHeight(34);
    connect(made, &QPushButton::clicked, this, handler);
    return made;
}

/// Where the row of signs lies, as a number and in millimetres.
QWidget* form9::positionLine()
{
    auto* const made = new QWidget(this);
    text1_ = new QLineEdit(made);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setAccessibleName(QStringLiteral("posizione in 1/1440 di pollice"));
    text1_->setReadOnly(true);
    text1_->setFocusPolicy(Qt::ClickFocus);
    text1_->setAlignment(Qt::AlignRight);
    text1_->setFixedWidth(80);
    millimetres_ = new QLabel(made);
    millimetres_->setObjectName(QStringLiteral("millimetri"));
    auto* const grid = new QGridLayout(made);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Posizione sul foglio:"), made), 0, 0, 1, 2);
    grid->addWidget(text1_, 1, 0);
    grid->addWidget(millimetres_, 1, 1);
    return made;
}

QSpinBox* form9::pageBox()
{
    auto* const made = new QSpinBox(this);
    made->setObjectName(QStringLiteral("foglio"));
    made->setAccessibleName(QStringLiteral("foglio mostrato nell'anteprima"));
    made->setPrefix(QStringLiteral("Foglio "));
    connect(made, &QSpinBox::valueChanged, this, &form9::showState);
    return made;
}

void form9::build()
{
    preview_ = new SheetPreview(*sheet_, this);
    vScroll1_ = new QScrollBar(Qt::Vertical, this);
    vScroll1_->setObjectName(QStringLiteral("VScroll1"));
    vScroll1_->setAccessibleName(QStringLiteral("posizione verticale sul foglio"));
    vScroll1_->setToolTip(QStringLiteral("posizione verticale sul foglio"));
    vScroll1_->setRange(0, window_.maximum());
    vScroll1_->setSingleStep(kMillimetre);
    vScroll1_->setPageStep(10 * kMillimetre);
    vScroll1_->setFocusPolicy(Qt::StrongFocus);
    connect(vScroll1_, &QScrollBar::valueChanged, this,
            [this](int value) { desktop_.handle([&] { window_.scrolled(value); }); });

    hint_ = new QLabel(this);
    hint_->setWordWrap(true);
    studyBox_ = new QCheckBox(QStringLiteral("Foglio di &studio"), this);
    studyBox_->setObjectName(QStringLiteral("studio"));
    studyBox_->setAccessibleName(QStringLiteral("foglio di studio"));
    studyBox_->setToolTip(
        QStringLiteral("tutta la frase in blocchi, con traslitterazione e traduzione, e le sue parole"));
    connect(studyBox_, &QCheckBox::toggled, this, &form9::chooseStudy);
    position_ = positionLine();
    studyPage_ = pageBox();
    remarks_ = new QLabel(this);
    remarks_->setObjectName(QStringLiteral("avviso"));
    remarks_->setWordWrap(true);
    command1_ = button("Command1", {}, &form9::toggle);
    QPushButton* const print = button("Command2", QStringLiteral("Stampa..."), &form9::print);
    print->setDefault(true);
    QPushButton* const leave = button("Command3", QStringLiteral("Chiudi"), &form9::closeWindow);

    auto* const column = new QVBoxLayout;
    column->setSpacing(10);
    column->addWidget(studyBox_);
    column->addWidget(hint_);
    column->addWidget(command1_);
    column->addWidget(position_);
    column->addWidget(studyPage_);
    column->addWidget(remarks_);
    column->addStretch(1);
    column->addWidget(print);
    column->addWidget(leave);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(16, 16, 16, 16);
    row->addWidget(preview_, 1);
    row->addWidget(vScroll1_);
    row->addSpacing(10);
    row->addLayout(column);
    setTabOrder(vScroll1_, studyBox_);
    setTabOrder(studyBox_, command1_);
    setTabOrder(command1_, studyPage_);
    setTabOrder(studyPage_, print);
    setTabOrder(print, leave);
    resize(740, 640);
}

void form9::showState()
{
    sheet_->page().setText(desktop_.session().last());
    const QSignalBlocker quiet(vScroll1_);
    vScroll1_->setMaximum(window_.maximum());
    vScroll1_->setValue(window_.position());
    text1_->setText(QString::number(window_.position()));
    millimetres_->setText(QStringLiteral("= %1 mm").arg(window_.position() * kMillimetresPerUnit, 0, 'f', 0));
    command1_->setText(qtext(window_.toggleCaption()));
    command1_->setAccessibleName(command1_->text());
    preview_->showPage(window_);
    remarks_->setText(qtext(window_.remarks(preview_->sheet().height())).trimmed());
    showStudy();
}

/// Shows what the choice of the sheet changes.
void form9::showStudy()
{
    const bool chosen = study_.has_value();
    vScroll1_->setEnabled(!chosen);
    command1_->setVisible(!chosen);
    position_->setVisible(!chosen);
    studyPage_->setVisible(chosen);
    hint_->setText(chosen
                       ? QStringLiteral("Si stampa tutta la frase in blocchi, con le sue voci e le parole in "
                                        "cui si divide.")
                       : QStringLiteral("Si stampano i primi dodici segni del display. La barra accanto al "
                                        "foglio li sposta in alto o in basso."));
    preview_->showStudy(pages_.get(), static_cast<std::size_t>(std::max(0, studyPage_->value() - 1)));
    if (chosen) {
        remarks_->setText(study_->failure   ? qtext(faultLine(*study_->failure))
                          : study_->stopped ? QStringLiteral("Lettura interrotta: il foglio può essere "
                                                             "incompleto.")
                                            : QString());
    }
}

void form9::chooseStudy(bool chosen)
{
    desktop_.handle([&] {
        study_.reset();
        if (chosen) {
            Session& session = desktop_.session();
            study_ = studyOf(session.files(), session.ui(), sheet_->page().phrase());
        }
        layOutStudy();
    });
}

void form9::layOutStudy()
{
    pages_ = study_ ? std::make_unique<StudyPages>(desktop_, study_->sheet, preview_->sheet()) : nullptr;
    const int count = pages_ ? static_cast<int>(pages_->count()) : 1;
    const QSignalBlocker quiet(studyPage_);
    studyPage_->setRange(1, count);
    studyPage_->setSuffix(QStringLiteral(" di %1").arg(count));
    studyPage_->setEnabled(count > 1);
    showStudy();
}

void form9::toggle()
{
    desktop_.handle([this] { window_.toggleText(); });
}

void form9::sendToPrinter()
{
    try {
        if (study_) {
            printStudy(*printer_, study_->sheet, desktop_);
        } else {
            sheet_->print(*printer_);
        }
    } catch (const RuntimeError&) {
        // After a failed write the toolkit's printer writes nothing more: the next print has a new one.
        const QPageLayout layout = printer_->pageLayout();
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        setUp(*printer_);
        printer_->setPageLayout(layout);
        throw;
    }
}

void form9::print()
{
    Session& session = desktop_.session();
    desktop_.handle([&] {
        if (!study_ && !window_.startPrint(session.last(), session.ui())) {
            return;
        }
        if (!printer_) {
            printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
            setUp(*printer_);
        }
        if (choosePrinter_(*printer_, this)) {
            preview_->setSheet(Sheet::of(printer_->pageLayout()));
            layOutStudy();
            const BusyPointer hourglass(session.ui());
            sendToPrinter();
        }
    });
}

void form9::closeWindow()
{
    close();
}

void form9::closeEvent(QCloseEvent* event)
{
    window_.close();
    QDialog::closeEvent(event);
}

}  // namespace karvel
