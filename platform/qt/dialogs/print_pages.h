#pragma once

#include <QPainter>
#include <QString>
#include <vector>

#include "src/context/services/toolkit.h"

class QPagedPaintDevice;

namespace tarvoni::qt {

// A document laid out on the pages of a device: the title and head on the first, the captions on each, the foot behind
// the last row, and a line with day and page below. Long cells are wrapped; a table too wide for the page is set
// smaller first.
class PrintPages {
 public:
  // `document` outlives the pages; `page` is the printable area in the device's units.
  PrintPages(const PrintDocument& document, const QRectF& page, QPaintDevice* device);

  int Count() const { return static_cast<int>(pages_.size()); }
  // Paints a page, from 0.
  void Paint(QPainter& painter, int page) const;

 private:
  struct Page {
    std::size_t first = 0;  // row
    std::size_t end = 0;
  };

  void FitColumns();
  std::vector<double> NaturalWidths() const;
  void ShareWidth(const std::vector<double>& natural);
  void BreakPages();
  double RowHeight(const std::vector<std::string>& cells) const;
  double CaptionHeight() const;
  double TopHeight() const;  // title and head
  double PaintTop(QPainter& painter) const;
  double PaintRow(QPainter& painter, double y, const std::vector<std::string>& cells) const;
  double PaintCaptions(QPainter& painter, double y) const;
  void PaintFoot(QPainter& painter, double y) const;
  void PaintPageLine(QPainter& painter, int page) const;
  double LineHeight(const QFont& font) const;
  std::vector<std::string> Captions() const;
  QFont Font(double points, bool bold = false) const;

  const PrintDocument& document_;
  QRectF page_;
  QPaintDevice* device_;
  double points_;  // size of the table's type
  double padding_ = 0;
  std::vector<double> widths_;
  std::vector<Page> pages_;
};

// The device set up for a document: A4, its orientation and margins.
void SetUpPage(QPagedPaintDevice& device, const PrintDocument& document);

// Prints all pages.
void PrintTo(QPagedPaintDevice& device, const PrintDocument& document);

// Writes the document as a PDF file; false if the file can't be written.
bool WritePdf(const PrintDocument& document, const QString& file);

}  // namespace tarvoni::qt
