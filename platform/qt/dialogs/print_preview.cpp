#include "platform/qt/dialogs/print_preview.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

#include "platform/qt/bar_layout.h"
#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/dialogs/message_dialog.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/dialogs/print_pages.h"
#include "platform/qt/file_export.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "platform/qt/xlsx_file.h"

namespace tarvoni::qt {
namespace {

constexpr int kMostCopies = 99;

// Which printer, and how often. Qt's own dialog would offer the page setup, which this Qt does not survive.
class PrinterDialog : public QDialog {
 public:
  explicit PrinterDialog(QWidget* parent)
      : QDialog(parent), printers_(new QComboBox(this)), copies_(new QSpinBox(this)) {
    setWindowTitle("Drucken");
    printers_->addItems(QPrinterInfo::availablePrinterNames());
    printers_->setCurrentText(QPrinterInfo::defaultPrinterName());
    copies_->setRange(1, kMostCopies);
    auto* form = new QFormLayout;
    form->addRow("&Drucker:", printers_);
    form->addRow("&Exemplare:", copies_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(MakeButtons(*this, "D&rucken").line);
  }

  QString Printer() const { return printers_->currentText(); }
  int Copies() const { return copies_->value(); }

 private:
  QComboBox* printers_;
  QSpinBox* copies_;
};

class PreviewDialog : public QDialog {
 public:
  PreviewDialog(const PreviewDialog&) = delete;
  PreviewDialog& operator=(const PreviewDialog&) = delete;
  PreviewDialog(QWidget* parent, const PrintDocument& document) : QDialog(parent), document_(document) {
    setWindowTitle("Druckvorschau – " + ToQt(document.title));
    // The pages are laid out as for a file, so that no printer is needed.
    paper_.setOutputFormat(QPrinter::PdfFormat);
    SetUpPage(paper_, document);
    pages_ = new QPrintPreviewWidget(&paper_, this);
    connect(pages_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { PrintTo(*printer, document_); });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeTools());
    layout->addWidget(pages_, 1);
    ResizeWithin(*this, {CharactersWide(*this, 130), LinesHigh(*this, 48)});
    pages_->fitToWidth();
    connect(pages_, &QPrintPreviewWidget::previewChanged, this, [this] { ShowPage(); });
    if (const auto* view = pages_->findChild<QAbstractScrollArea*>()) {
      connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { ShowPage(); });
    }
    ShowPage();
  }
  // The preview looks at the paper to its last.
  ~PreviewDialog() override { delete pages_; }

 private:
  QLayout* MakeTools() {
    auto* tools = new BarLayout;
    AddTool(tools, "previous", "&Zurück", [this] { Turn(-1); });
    page_ = new QLabel(this);
    page_->setObjectName("page");
    tools->addWidget(page_);
    AddTool(tools, "next", "&Weiter", [this] { Turn(1); });
    AddTool(tools, "fit_page", "&Ganze Seite", [this] { pages_->fitInView(); });
    AddTool(tools, "fit_width", "Seiten&breite", [this] { pages_->fitToWidth(); });
    AddTool(tools, "zoom_in", "&Größer", [this] { pages_->zoomIn(); });
    AddTool(tools, "zoom_out", "&Kleiner", [this] { pages_->zoomOut(); });
    tools->AddGap();
    AddTool(tools, "pdf", "Als &PDF speichern …", [this] { SavePdf(); })->setDefault(true);
    AddTool(tools, "xlsx", "Als &Excel speichern …", [this] { SaveXlsx(); });
    QPushButton* print = AddTool(tools, "print", "&Drucken …", [this] { Print(); });
    print->setEnabled(!QPrinterInfo::availablePrinterNames().isEmpty());
    if (!print->isEnabled()) print->setToolTip("Es ist kein Drucker eingerichtet.");
    AddTool(tools, "cancel", "S&chließen", [this] { reject(); });
    return tools;
  }

  template <typename Act>
  QPushButton* AddTool(BarLayout* tools, const char* name, const QString& caption, Act act) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, act);
    tools->addWidget(button);
    return button;
  }

  void Turn(int pages) {
    pages_->setCurrentPage(pages_->currentPage() + pages);
    ShowPage();
  }

  void ShowPage() {
    page_->setText("Seite " + QString::number(pages_->currentPage()) + " von " +
                   QString::number(pages_->pageCount()));
  }

  void SavePdf() {
    const auto file = AskSaveFile(this, "Als PDF speichern", document_.title, "PDF-Dateien (*.pdf)", "pdf");
    if (!file || WritePdf(document_, ToQt(file->string()))) return;
    ShowMessageBox(this, "Die PDF-Datei lässt sich nicht schreiben.", kBoxOk | kBoxWarning, "Speichern");
  }

  void SaveXlsx() {
    const auto file =
        AskSaveFile(this, "Als Excel-Datei speichern", document_.title, "Excel-Dateien (*.xlsx)", "xlsx");
    if (file) RunExport(this, [&] { WriteXlsx(document_, *file); });
  }

  void Print() {
    Modal asked(new PrinterDialog(this));
    if (!asked.Run()) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(asked->Printer());
    printer.setCopyCount(asked->Copies());
    printer.setDocName(ToQt(document_.title));
    SetUpPage(printer, document_);
    PrintTo(printer, document_);
  }

  const PrintDocument& document_;
  QPrinter paper_{QPrinter::HighResolution};
  QPrintPreviewWidget* pages_ = nullptr;
  QLabel* page_ = nullptr;
};

}  // namespace

void ShowPrintPreview(QWidget* parent, const PrintDocument& document) {
  Modal dialog(new PreviewDialog(parent, document));
  dialog.Run();
}

}  // namespace tarvoni::qt
