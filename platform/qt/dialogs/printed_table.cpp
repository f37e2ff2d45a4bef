#include "platform/qt/dialogs/printed_table.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/qt/dialogs/paper_type.h"
#include "platform/qt/public/text.h"
#include "src/context/services/environment.h"

namespace tarvoni::qt {
namespace {

using RowKind = PrintDocument::RowKind;

constexpr double kHeadingPoints = 10;
constexpr double kPadding = 0.9;       // millimetres beside a cell
constexpr double kAboveGroup = 0.5;    // lines
constexpr double kSmallestStep = 0.5;  // points

double Sum(const std::vector<double>& numbers) {
  return std::accumulate(numbers.begin(), numbers.end(), 0.0);
}

int TextFlags(Alignment alignment) {
  const int across = alignment == Alignment::kRight    ? Qt::AlignRight
                     : alignment == Alignment::kCenter ? Qt::AlignHCenter
                                                       : Qt::AlignLeft;
  return across | Qt::AlignVCenter | Qt::TextWordWrap;
}

}  // namespace

PrintedTable::PrintedTable(const PrintDocument::Table& table, double left, double width, QPaintDevice* device)
    : table_(table), left_(left), width_(width), device_(device), points_(kTextPoints) {
  padding_ = Millimetres(device_, kPadding);
  ReadTexts();
  FitColumns();
  caption_height_ = HeightOf(captions_, true);
  for (std::size_t row = 0; row < RowCount(); ++row) {
    const double above = KindOf(row) == RowKind::kGroup ? kAboveGroup * LineHeight(device_, points_) : 0;
    const bool spans = KindOf(row) == RowKind::kGroup;
    row_heights_.push_back(above +
                           (spans ? LineHeight(device_, points_, true) : HeightOf(rows_[row], IsBold(row))));
  }
}

void PrintedTable::ReadTexts() {
  for (const PrintDocument::Column& column : table_.columns) captions_.push_back(ToQt(column.caption));
  for (const PrintDocument::Row& row : table_.rows) {
    Texts& texts = rows_.emplace_back();
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      texts.push_back(ToQt(CellText(table_, row, i, CurrentLocale())));
    }
  }
}

// --- widths and heights ---

// Texts repeat down a column, and measuring one takes longer than all else.
double PrintedTable::Advance(const QString& text, bool bold) const {
  auto& known = bold ? bold_advances_ : plain_advances_;
  const auto found = known.constFind(text);
  if (found != known.cend()) return *found * points_ / kTextPoints;
  const QFontMetricsF metrics(PaperFont(device_, kTextPoints, bold), device_);
  return known.insert(text, metrics.horizontalAdvance(text)).value() * points_ / kTextPoints;
}

// Captions in one line, or a word of theirs below the other.
std::vector<double> PrintedTable::NaturalWidths(bool whole_captions) const {
  std::vector<double> widths;
  for (const QString& caption : captions_)
    widths.push_back(whole_captions ? Advance(caption, true) : LongestWord(caption, true));
  for (std::size_t row = 0; row < RowCount(); ++row) {
    if (KindOf(row) == RowKind::kGroup) continue;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (!rows_[row][i].isEmpty()) widths[i] = std::max(widths[i], Advance(rows_[row][i], IsBold(row)));
    }
  }
  for (double& width : widths) width += 2 * padding_;
  return widths;
}

double PrintedTable::LongestWord(const QString& text, bool bold) const {
  double longest = 0;
  for (const QString& word : QString(text).replace('\n', ' ').split(' '))
    longest = std::max(longest, Advance(word, bold));
  return longest;
}

// Such that no word is broken.
std::vector<double> PrintedTable::WordWidths() const {
  std::vector<double> widths;
  for (const QString& caption : captions_) widths.push_back(LongestWord(caption, true));
  for (std::size_t row = 0; row < RowCount(); ++row) {
    if (KindOf(row) == RowKind::kGroup) continue;
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], LongestWord(rows_[row][i], IsBold(row)));
  }
  for (double& width : widths) width += 2 * padding_;
  return widths;
}

void PrintedTable::FitColumns() {
  widths_ = NaturalWidths(true);
  if (Sum(widths_) > width_) widths_ = NaturalWidths(false);
  while (Sum(widths_) > width_ && points_ > kSmallestPoints) {
    points_ -= kSmallestStep;
    widths_ = NaturalWidths(false);
  }
  if (Sum(widths_) <= width_) return StretchTexts();
  Narrow(WordWidths());
  Narrow(std::vector<double>(widths_.size()));
  BreakWords(captions_, true);
  for (std::size_t row = 0; row < RowCount(); ++row) {
    if (KindOf(row) != RowKind::kGroup) BreakWords(rows_[row], IsBold(row));
  }
}

// What is too wide gives up width where columns are wider than an even share, but not below what each needs.
void PrintedTable::Narrow(const std::vector<double>& least) {
  for (double over = Sum(widths_) - width_; over > 0; over = Sum(widths_) - width_) {
    double widest = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      if (widths_[i] > least[i]) widest = std::max(widest, widths_[i]);
    }
    if (widest == 0) return;
    const double limit = widest - std::max(over / static_cast<double>(widths_.size()), 1.0);
    for (std::size_t i = 0; i < widths_.size(); ++i)
      widths_[i] = std::min(widths_[i], std::max(limit, least[i]));
  }
}

// Lets a line end within a word that is wider than its column.
void PrintedTable::BreakWords(Texts& cells, bool bold) const {
  constexpr QChar kMayBreak(0x200B);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (LongestWord(cells[i], bold) <= widths_[i] - 2 * padding_) continue;
    for (qsizetype at = cells[i].size() - 1; at > 0; --at) {
      if (!cells[i][at].isLowSurrogate()) cells[i].insert(at, kMayBreak);
    }
  }
}

// The width that is left goes to the columns with texts, to wide ones most, or to all where there are none.
void PrintedTable::StretchTexts() {
  const auto is_text = [&](const PrintDocument::Column& column) {
    return column.alignment == Alignment::kLeft;
  };
  const bool any_text = std::ranges::any_of(table_.columns, is_text);
  double texts = 0;
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    if (!any_text || is_text(table_.columns[i])) texts += widths_[i];
  }
  const double factor = 1 + (width_ - Sum(widths_)) / texts;
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    if (!any_text || is_text(table_.columns[i])) widths_[i] *= factor;
  }
}

double PrintedTable::HeightOf(const Texts& cells, bool bold) const {
  const QFontMetricsF metrics(PaperFont(device_, points_, bold), device_);
  const double line = LineHeight(device_, points_, bold);
  double height = line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const double room = widths_[i] - 2 * padding_;
    if (cells[i].isEmpty() || (Advance(cells[i], bold) <= room && !cells[i].contains('\n'))) continue;
    const QRectF bounds = metrics.boundingRect(QRectF(0, 0, room, 1e6), Qt::TextWordWrap, cells[i]);
    height = std::max(height, bounds.height() + line - metrics.height());
  }
  return height;
}

double PrintedTable::HeadingHeight() const {
  return table_.heading.empty() ? 0 : 1.3 * LineHeight(device_, kHeadingPoints, true);
}

// --- painting ---

void PrintedTable::PaintHeading(QPainter& painter, double y) const {
  if (table_.heading.empty()) return;
  painter.setFont(PaperFont(device_, kHeadingPoints, true));
  painter.setPen(kAccent);
  painter.drawText(Band(y, HeadingHeight()), Qt::AlignLeft | Qt::AlignVCenter, ToQt(table_.heading));
}

void PrintedTable::PaintCaptions(QPainter& painter, double y) const {
  painter.fillRect(Band(y, caption_height_), kShade);
  painter.setPen(kInk);
  PaintCells(painter, y, caption_height_, captions_, true);
  painter.setPen(QPen(kAccent, Millimetres(device_, 0.3)));
  painter.drawLine(QPointF(left_, y + caption_height_), QPointF(left_ + width_, y + caption_height_));
}

void PrintedTable::PaintRow(QPainter& painter, double y, std::size_t row) const {
  const double height = row_heights_[row];
  if (KindOf(row) == RowKind::kGroup) {
    painter.setFont(PaperFont(device_, points_, true));
    painter.setPen(kAccent);
    const QRectF room = Band(y, height).adjusted(padding_, 0, -padding_, 0);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignBottom, rows_[row][0]);
    return;
  }
  PaintBack(painter, y, row);
  painter.setPen(kInk);
  PaintCells(painter, y, height, rows_[row], IsBold(row), table_.rows[row].struck);
}

// The lines around a row: a hairline below each, a line above sums, a shade behind the total.
void PrintedTable::PaintBack(QPainter& painter, double y, std::size_t row) const {
  const double bottom = y + row_heights_[row];
  if (KindOf(row) == RowKind::kTotal) painter.fillRect(Band(y, row_heights_[row]), kShade);
  const bool sums = IsBold(row);
  painter.setPen(QPen(sums ? kInk : kHairline, Millimetres(device_, sums ? 0.25 : 0.1)));
  if (sums) painter.drawLine(QPointF(left_, y), QPointF(left_ + width_, y));
  if (KindOf(row) != RowKind::kSum) painter.drawLine(QPointF(left_, bottom), QPointF(left_ + width_, bottom));
}

void PrintedTable::PaintCells(QPainter& painter, double y, double height, const Texts& cells, bool bold,
                              bool struck) const {
  QFont font = PaperFont(device_, points_, bold);
  font.setStrikeOut(struck);
  painter.setFont(font);
  double x = left_;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const QRectF room(x + padding_, y, widths_[i] - 2 * padding_, height);
    if (!cells[i].isEmpty()) PaintCell(painter, room, cells[i], table_.columns[i].alignment, bold);
    x += widths_[i];
  }
}

void PrintedTable::PaintCell(QPainter& painter, const QRectF& room, const QString& text, Alignment alignment,
                             bool bold) const {
  const double advance = Advance(text, bold);
  if (advance > room.width() || text.contains('\n'))
    return painter.drawText(room, TextFlags(alignment), text);
  // One line is placed by hand, which is much quicker.
  const double free = room.width() - advance;
  const double before = alignment == Alignment::kRight    ? free
                        : alignment == Alignment::kCenter ? free / 2
                                                          : 0;
  const QFontMetricsF metrics(painter.font(), device_);
  const double baseline = room.top() + (room.height() + metrics.ascent() - metrics.descent()) / 2;
  painter.drawText(QPointF(room.left() + before, baseline), text);
}

}  // namespace tarvoni::qt
