#include "windows/PrintingWindow.hpp"

#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

#include "windows/PrintSheet.hpp"
#include "windows/SheetPreview.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel {

namespace {

constexpr double kMillimetresPerUnit = 25.4 / 1440;
constexpr int kMillimetre = 57;  // in 1/1440 inch: one step of the scroll bar

bool systemPrintDialog(QPrinter& printer, QWidget* parent)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace

form9::form9(Desktop& desktop, QWidget* parent) : form9(desktop, parent, systemPrintDialog) {}

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
    showState();
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

    text1_ = new QLineEdit(this);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setAccessibleName(QStringLiteral("posizione in 1/1440 di pollice"));
    text1_->setReadOnly(true);
    text1_->setFocusPolicy(Qt::ClickFocus);
    text1_->setAlignment(Qt::AlignRight);
    text1_->setFixedWidth(80);
    millimetres_ = new QLabel(this);
    millimetres_->setObjectName(QStringLiteral("millimetri"));

    auto* const position = new QHBoxLayout;
    position->addWidget(text1_);
    position->addWidget(millimetres_, 1);
    auto* const hint = new QLabel(
        QStringLiteral("Si stampano i primi dodici segni del display. La barra accanto al foglio li sposta "
                       "in alto o in basso."),
        this);
    hint->setWordWrap(true);
    remarks_ = new QLabel(this);
    remarks_->setObjectName(QStringLiteral("avviso"));
    remarks_->setWordWrap(true);
    command1_ = button("Command1", {}, &form9::toggle);
    QPushButton* const print = button("Command2", QStringLiteral("Stampa..."), &form9::print);
    print->setDefault(true);
    QPushButton* const leave = button("Command3", QStringLiteral("Chiudi"), &form9::closeWindow);

    auto* const column = new QVBoxLayout;
    column->setSpacing(10);
    column->addWidget(hint);
    column->addWidget(command1_);
    column->addWidget(new QLabel(QStringLiteral("Posizione sul foglio:"), this));
    column->addLayout(position);
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
    setTabOrder(vScroll1_, command1_);
    setTabOrder(command1_, print);
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
}

void form9::toggle()
{
    desktop_.handle([this] { window_.toggleText(); });
}

void form9::print()
{
    Session& session = desktop_.session();
    desktop_.handle([&] {
        if (!window_.startPrint(session.last(), session.ui())) {
            return;
        }
        if (!printer_) {
            printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
            form7::setUp(*printer_);
        }
        if (choosePrinter_(*printer_, this)) {
            preview_->setSheet(Sheet::of(printer_->pageLayout()));
            const BusyPointer hourglass(session.ui());
            sheet_->print(*printer_);
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
