#pragma once

#include <QHash>
#include <QPainter>
#include <QString>
#include <vector>

#include "src/context/services/print_document.h"

namespace tarvoni::qt {

// One table of a document, laid out for a width: a table too wide has its captions in several lines
// and is set smaller first, then long cells are wrapped and,
// where not even its longest words have room, words broken; one too narrow gives its texts more room.
class PrintedTable {
 public:
  // `table` outlives it; `width` is in the device's units.
  PrintedTable(const PrintDocument::Table& table, double left, double width, QPaintDevice* device);

  std::size_t RowCount() const { return table_.rows.size(); }
  PrintDocument::RowKind KindOf(std::size_t row) const { return table_.rows[row].kind; }

  // 0 without a heading.
  double HeadingHeight() const;
  double CaptionHeight() const { return caption_height_; }
  double RowHeight(std::size_t row) const { return row_heights_[row]; }

  void PaintHeading(QPainter& painter, double y) const;
  void PaintCaptions(QPainter& painter, double y) const;
  void PaintRow(QPainter& painter, double y, std::size_t row) const;

 private:
  using Texts = std::vector<QString>;

  void ReadTexts();
  bool IsBold(std::size_t row) const { return KindOf(row) != PrintDocument::RowKind::kPlain; }
  double Advance(const QString& text, bool bold) const;
  std::vector<double> NaturalWidths(bool whole_captions) const;
  std::vector<double> WordWidths() const;
  double LongestWord(const QString& text, bool bold) const;
  void FitColumns();
  void Narrow(const std::vector<double>& least);
  void BreakWords(Texts& cells, bool bold) const;
  void StretchTexts();
  double HeightOf(const Texts& cells, bool bold) const;
  void PaintCells(QPainter& painter, double y, double height, const Texts& cells, bool bold,
                  bool struck = false) const;
  void PaintCell(QPainter& painter, const QRectF& room, const QString& text, Alignment alignment,
                 bool bold) const;
  void PaintBack(QPainter& painter, double y, std::size_t row) const;
  QRectF Band(double y, double height) const { return {left_, y, width_, height}; }

  const PrintDocument::Table& table_;
  double left_;
  double width_;
  QPaintDevice* device_;
  double points_;  // size of the type
  double padding_ = 0;
  Texts captions_;
  std::vector<Texts> rows_;
  std::vector<double> widths_;
  double caption_height_ = 0;
  std::vector<double> row_heights_;
  mutable QHash<QString, double> plain_advances_, bold_advances_;  // at the size of the text
};

}  // namespace tarvoni::qt
