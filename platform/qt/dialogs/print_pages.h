#pragma once

#include <QImage>
#include <QPainter>
#include <QString>
#include <vector>

#include "platform/qt/dialogs/printed_table.h"
#include "src/context/services/print_document.h"

class QPagedPaintDevice;

namespace tarvoni::qt {

// A document laid out on the pages of a device: issuer, title and facts on the first and their short form on the others,
// the captions on each, with the heading of the rows that go on there, remarks and signatures behind the last row, and a
// line with day and page below. Sums stay with a row that they sum, a heading with its first row.
class PrintPages {
 public:
  // `document` outlives the pages; `page` is the printable area in the device's units.
  PrintPages(const PrintDocument& document, const QRectF& page, QPaintDevice* device);

  int Count() const { return static_cast<int>(pages_.size()); }
  // Paints a page, from 0.
  void Paint(QPainter& painter, int page) const;

 private:
  // What stands at a height of a page.
  struct Piece {
    enum class Kind { kHeading, kCaptions, kRow, kFoot };
    Kind kind;
    double y;
    std::size_t table = 0;
    std::size_t row = 0;
  };
  // A fact's place below the title.
  struct FactCell {
    std::size_t fact;
    int line;
    bool right;
  };

  void PlaceFacts();
  void BreakPages();
  void PlaceTable(std::size_t table);
  void PlaceFoot();
  void Turn();
  void Put(Piece::Kind kind, double height, std::size_t table = 0, std::size_t row = 0);
  double RoomNeeded(std::size_t table, std::size_t row) const;
  bool Fits(double height) const { return y_ + height <= bottom_; }

  double TopHeight() const;  // issuer, title and facts
  double RunningHeadHeight() const;
  double FootHeight() const;  // remarks and signatures
  void PaintTop(QPainter& painter) const;
  void PaintFacts(QPainter& painter, double y) const;
  void PaintRunningHead(QPainter& painter) const;
  void PaintFoot(QPainter& painter, double y) const;
  void PaintSignatures(QPainter& painter, double y) const;
  void PaintPageLine(QPainter& painter, int page) const;
  void Line(QPainter& painter, double y, const QString& text, int flags) const;

  const PrintDocument& document_;
  QRectF page_;
  QPaintDevice* device_;
  double text_line_;
  std::vector<PrintedTable> tables_;
  std::vector<FactCell> facts_;
  std::vector<std::vector<Piece>> pages_;
  double y_ = 0;
  double bottom_ = 0;
};

// The device set up for a document: A4, its orientation and margins.
void SetUpPage(QPagedPaintDevice& device, const PrintDocument& document);

// Prints all pages.
void PrintTo(QPagedPaintDevice& device, const PrintDocument& document);

// The first page as a picture, in twice the size of the screen.
QImage FirstPage(const PrintDocument& document);

// Writes the document as a PDF file; false if the file can't be written.
bool WritePdf(const PrintDocument& document, const QString& file);

}  // namespace tarvoni::qt
