#include "platform/qt/dialogs/print_pages.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>
#include <numeric>

#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"
#include "src/context/values/field_text.h"

namespace tarvoni::qt {
namespace {

constexpr double kTablePoints = 9, kSmallestPoints = 6.5, kTitlePoints = 14, kHeadPoints = 10;
constexpr double kMarginMillimetres = 15;
constexpr double kLeading = 1.25;  // line height to font height

int TextFlags(Alignment alignment) {
  const int across = alignment == Alignment::kRight    ? Qt::AlignRight
                     : alignment == Alignment::kCenter ? Qt::AlignHCenter
                                                       : Qt::AlignLeft;
  return across | Qt::AlignTop | Qt::TextWordWrap;
}

double Sum(const std::vector<double>& numbers) {
  return std::accumulate(numbers.begin(), numbers.end(), 0.0);
}

}  // namespace

PrintPages::PrintPages(const PrintDocument& document, const QRectF& page, QPaintDevice* device)
    : document_(document), page_(page), device_(device), points_(kTablePoints) {
  FitColumns();
  BreakPages();
}

QFont PrintPages::Font(double points, bool bold) const {
  QFont font("DejaVu Sans");
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(points);
  font.setBold(bold);
  return {font, device_};
}

double PrintPages::LineHeight(const QFont& font) const {
  return QFontMetricsF(font, device_).height() * kLeading;
}

std::vector<std::string> PrintPages::Captions() const {
  std::vector<std::string> captions;
  for (const PrintDocument::Column& column : document_.columns) captions.push_back(column.caption);
  return captions;
}

std::vector<double> PrintPages::NaturalWidths() const {
  const QFontMetricsF bold(Font(points_, true), device_), plain(Font(points_), device_);
  std::vector<double> widths;
  for (const PrintDocument::Column& column : document_.columns) {
    widths.push_back(bold.horizontalAdvance(ToQt(column.caption)));
  }
  for (const auto& row : document_.rows) {
    for (std::size_t i = 0; i < std::min(row.size(), widths.size()); ++i) {
      widths[i] = std::max(widths[i], plain.horizontalAdvance(ToQt(row[i])));
    }
  }
  for (double& width : widths) width += 2 * padding_;
  return widths;
}

void PrintPages::FitColumns() {
  for (;; points_ -= 0.5) {
    padding_ = QFontMetricsF(Font(points_), device_).averageCharWidth() * 0.8;
    const std::vector<double> natural = NaturalWidths();
    if (Sum(natural) > page_.width() && points_ > kSmallestPoints) continue;
    return ShareWidth(natural);
  }
}

// What is too wide gives up width where columns are wider than an even share.
void PrintPages::ShareWidth(const std::vector<double>& natural) {
  widths_ = natural;
  double limit = page_.width();
  for (int round = 0; round < 20 && Sum(widths_) > page_.width(); ++round) {
    const double over = Sum(widths_) - page_.width();
    const double widest = *std::ranges::max_element(widths_);
    limit = widest - std::max(over / static_cast<double>(widths_.size()), 1.0);
    for (double& width : widths_) width = std::min(width, limit);
  }
}

double PrintPages::RowHeight(const std::vector<std::string>& cells) const {
  const QFontMetricsF metrics(Font(points_), device_);
  double height = metrics.height();
  for (std::size_t i = 0; i < std::min(cells.size(), widths_.size()); ++i) {
    const double width = widths_[i] - 2 * padding_;
    const QString text = ToQt(cells[i]);
    if (metrics.horizontalAdvance(text) <= width && !text.contains('\n')) continue;
    height =
        std::max(height, metrics.boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, text).height());
  }
  return height + metrics.height() * (kLeading - 1);
}

double PrintPages::CaptionHeight() const {
  const QFontMetricsF metrics(Font(points_, true), device_);
  double height = metrics.height();
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    const QRectF room(0, 0, widths_[i] - 2 * padding_, 1e6);
    const QString caption = ToQt(document_.columns[i].caption);
    height = std::max(height, metrics.boundingRect(room, Qt::TextWordWrap, caption).height());
  }
  return height + metrics.height() * (kLeading - 1);
}

double PrintPages::TopHeight() const {
  const auto lines = static_cast<double>(document_.head.size());
  return LineHeight(Font(kTitlePoints, true)) + (lines + 0.5) * LineHeight(Font(kHeadPoints));
}

void PrintPages::BreakPages() {
  const double last_line = 2 * LineHeight(Font(points_));
  const double foot = static_cast<double>(document_.foot.size() + 1) * LineHeight(Font(kTablePoints, true));
  const double bottom = page_.height() - last_line;
  pages_.assign(1, {});
  double y = TopHeight() + CaptionHeight();
  const auto turn = [&](std::size_t row) {
    pages_.back().end = row;
    pages_.push_back({row, row});
    y = CaptionHeight();
  };
  for (std::size_t row = 0; row < document_.rows.size(); ++row) {
    const double height = RowHeight(document_.rows[row]);
    if (y + height > bottom && row > pages_.back().first) turn(row);
    y += height;
  }
  const std::size_t rows = document_.rows.size();
  // The foot never stands on a page alone.
  if (y + foot > bottom && rows > pages_.back().first + 1) turn(rows - 1);
  pages_.back().end = rows;
}

double PrintPages::PaintTop(QPainter& painter) const {
  double y = page_.top();
  const auto line = [&](const QFont& font, const std::string& text) {
    painter.setFont(font);
    painter.drawText(QRectF(page_.left(), y, page_.width(), LineHeight(font)),
                     Qt::AlignLeft | Qt::AlignVCenter, ToQt(text));
    y += LineHeight(font);
  };
  line(Font(kTitlePoints, true), document_.title);
  for (const std::string& text : document_.head) line(Font(kHeadPoints), text);
  return page_.top() + TopHeight();
}

double PrintPages::PaintRow(QPainter& painter, double y, const std::vector<std::string>& cells) const {
  double x = page_.left();
  for (std::size_t i = 0; i < std::min(cells.size(), widths_.size()); ++i) {
    const QRectF room(x + padding_, y, widths_[i] - 2 * padding_, page_.height());
    painter.drawText(room, TextFlags(document_.columns[i].alignment), ToQt(cells[i]));
    x += widths_[i];
  }
  return y + RowHeight(cells);
}

double PrintPages::PaintCaptions(QPainter& painter, double y) const {
  painter.setFont(Font(points_, true));
  PaintRow(painter, y, Captions());
  y += CaptionHeight();
  painter.drawLine(QPointF(page_.left(), y), QPointF(page_.left() + Sum(widths_), y));
  return y + LineHeight(Font(points_)) - QFontMetricsF(Font(points_), device_).height();
}

void PrintPages::PaintFoot(QPainter& painter, double y) const {
  const QFont font = Font(kTablePoints, true);
  if (document_.foot.empty()) return;
  painter.drawLine(QPointF(page_.left(), y), QPointF(page_.left() + Sum(widths_), y));
  y += LineHeight(font) / 4;
  painter.setFont(font);
  for (const std::string& text : document_.foot) {
    painter.drawText(QRectF(page_.left(), y, page_.width(), LineHeight(font)),
                     Qt::AlignLeft | Qt::AlignVCenter, ToQt(text));
    y += LineHeight(font);
  }
}

void PrintPages::PaintPageLine(QPainter& painter, int page) const {
  const QFont font = Font(kSmallestPoints + 1);
  const QRectF line(page_.left(), page_.bottom() - LineHeight(font), page_.width(), LineHeight(font));
  painter.setFont(font);
  const DateTime now = Clock::Today();
  const DateTime day{.year = now.year, .month = now.month, .day = now.day};
  painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom,
                   "Stand " + ToQt(FieldText(day, "", Locale::German())));
  painter.drawText(line, Qt::AlignRight | Qt::AlignBottom,
                   "Seite " + QString::number(page + 1) + " von " + QString::number(Count()));
}

void PrintPages::Paint(QPainter& painter, int page) const {
  const Page& shown = pages_.at(static_cast<std::size_t>(page));
  painter.setPen(QPen(Qt::black, LineHeight(Font(points_)) / 30));
  double y = PaintCaptions(painter, page == 0 ? PaintTop(painter) : page_.top());
  painter.setFont(Font(points_));
  for (std::size_t row = shown.first; row < shown.end; ++row) y = PaintRow(painter, y, document_.rows[row]);
  if (page + 1 == Count()) PaintFoot(painter, y);
  PaintPageLine(painter, page);
}

void SetUpPage(QPagedPaintDevice& device, const PrintDocument& document) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(document.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  constexpr double kMargin = kMarginMillimetres;
  device.setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Millimeter);
}

void PrintTo(QPagedPaintDevice& device, const PrintDocument& document) {
  QPainter painter(&device);
  const QRectF page(0, 0, device.width(), device.height());
  const PrintPages pages(document, page, &device);
  for (int i = 0; i < pages.Count(); ++i) {
    if (i > 0) device.newPage();
    pages.Paint(painter, i);
  }
}

bool WritePdf(const PrintDocument& document, const QString& file) {
  QSaveFile saved(file);
  if (!saved.open(QIODevice::WriteOnly)) return false;
  {
    QPdfWriter writer(&saved);
    writer.setTitle(ToQt(document.title));
    writer.setCreator("Tarvoni Lohn");
    SetUpPage(writer, document);
    PrintTo(writer, document);
  }
  return saved.commit();
}

}  // namespace tarvoni::qt
