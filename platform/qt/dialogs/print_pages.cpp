#include "platform/qt/dialogs/print_pages.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>
#include <optional>

#include "platform/qt/dialogs/paper_type.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

constexpr double kMarginMillimetres = 15;
constexpr double kIssuerPoints = 9.5, kPageLinePoints = 7.5;
constexpr double kSignatureRoom = 3;  // lines to write on
constexpr std::size_t kFactsOfRunningHead = 2;

using RowKind = PrintDocument::RowKind;

}  // namespace

PrintPages::PrintPages(const PrintDocument& document, const QRectF& page, QPaintDevice* device)
    : document_(document), page_(page), device_(device), text_line_(LineHeight(device, kTextPoints)) {
  for (const PrintDocument::Table& table : document.tables)
    tables_.emplace_back(table, page.left(), page.width(), device);
  PlaceFacts();
  BreakPages();
}

// --- what stands where ---

// Two facts stand beside each other, unless one takes more than half the width.
void PrintPages::PlaceFacts() {
  const QFontMetricsF metrics(PaperFont(device_, kTextPoints), device_);
  int line = -1;
  bool right = true;
  for (std::size_t i = 0; i < document_.facts.size(); ++i) {
    const auto& [label, text] = document_.facts[i];
    const bool wide = metrics.horizontalAdvance(ToQt(label + text)) > page_.width() * 0.42;
    right = !right && !wide;
    if (!right) ++line;
    facts_.push_back({i, line, right});
    if (wide) right = true;
  }
}

void PrintPages::BreakPages() {
  bottom_ = page_.bottom() - 2 * LineHeight(device_, kPageLinePoints);
  pages_.assign(1, {});
  y_ = page_.top() + TopHeight();
  for (std::size_t table = 0; table < tables_.size(); ++table) PlaceTable(table);
  if (tables_.empty() || tables_.back().RowCount() == 0) PlaceFoot();
}

void PrintPages::Turn() {
  pages_.emplace_back();
  y_ = page_.top() + RunningHeadHeight();
}

void PrintPages::Put(Piece::Kind kind, double height, std::size_t table, std::size_t row) {
  pages_.back().push_back({kind, y_, table, row});
  y_ += height;
}

void PrintPages::PlaceTable(std::size_t table) {
  const PrintedTable& shown = tables_[table];
  const double head = shown.HeadingHeight() + shown.CaptionHeight();
  if (table > 0) y_ += text_line_;
  const double first = shown.RowCount() > 0 ? RoomNeeded(table, 0) : 0;
  if (!Fits(head + first) && !pages_.back().empty()) Turn();
  Put(Piece::Kind::kHeading, shown.HeadingHeight(), table);
  Put(Piece::Kind::kCaptions, shown.CaptionHeight(), table);
  bool first_of_page = true;
  std::optional<std::size_t> group;  // the heading of the rows
  for (std::size_t row = 0; row < shown.RowCount(); ++row) {
    const RowKind kind = shown.KindOf(row);
    if (kind == RowKind::kGroup) group.reset();
    if (!Fits(RoomNeeded(table, row)) && !first_of_page) {
      Turn();
      Put(Piece::Kind::kCaptions, shown.CaptionHeight(), table);
      if (group) Put(Piece::Kind::kRow, shown.RowHeight(*group), table, *group);
    }
    Put(Piece::Kind::kRow, shown.RowHeight(row), table, row);
    if (kind == RowKind::kGroup) group = row;
    if (kind == RowKind::kSum || kind == RowKind::kTotal) group.reset();
    first_of_page = false;
  }
  if (table + 1 == tables_.size() && shown.RowCount() > 0) PlaceFoot();
}

// The height of a row with what has to stand on the same page: sums behind it, rows below their heading, and the foot
// behind the last.
double PrintPages::RoomNeeded(std::size_t table, std::size_t row) const {
  const PrintedTable& shown = tables_[table];
  double height = shown.RowHeight(row);
  const bool last_table = table + 1 == tables_.size();
  for (std::size_t next = row + 1; next < shown.RowCount(); ++next) {
    const bool follows = shown.KindOf(next - 1) == RowKind::kGroup || shown.KindOf(next) == RowKind::kSum ||
                         shown.KindOf(next) == RowKind::kTotal;
    if (!follows) return height;
    height += shown.RowHeight(next);
  }
  const double page = bottom_ - page_.top() - RunningHeadHeight() - shown.CaptionHeight();
  return last_table && height + FootHeight() < page ? height + FootHeight() : height;
}

void PrintPages::PlaceFoot() {
  if (document_.remarks.empty() && document_.signatures.empty()) return;
  if (!Fits(FootHeight()) && !pages_.back().empty()) Turn();
  Put(Piece::Kind::kFoot, FootHeight());
}

double PrintPages::TopHeight() const {
  const double issuer = document_.issuer.empty() ? 0 : LineHeight(device_, kIssuerPoints, true);
  const int lines = facts_.empty() ? 0 : facts_.back().line + 1;
  return issuer + LineHeight(device_, kTitlePoints, true) + (lines + 1) * text_line_;
}

double PrintPages::RunningHeadHeight() const {
  return 1.8 * LineHeight(device_, kPageLinePoints);
}

double PrintPages::FootHeight() const {
  const auto remarks = static_cast<double>(document_.remarks.size());
  const double signatures = document_.signatures.empty() ? 0 : kSignatureRoom + 1.5;
  return remarks + signatures > 0 ? (0.5 + remarks + signatures) * text_line_ : 0;
}

// --- painting ---

void PrintPages::Paint(QPainter& painter, int page) const {
  page == 0 ? PaintTop(painter) : PaintRunningHead(painter);
  for (const Piece& piece : pages_.at(static_cast<std::size_t>(page))) {
    switch (piece.kind) {
      case Piece::Kind::kHeading:
        tables_[piece.table].PaintHeading(painter, piece.y);
        break;
      case Piece::Kind::kCaptions:
        tables_[piece.table].PaintCaptions(painter, piece.y);
        break;
      case Piece::Kind::kRow:
        tables_[piece.table].PaintRow(painter, piece.y, piece.row);
        break;
      case Piece::Kind::kFoot:
        PaintFoot(painter, piece.y);
        break;
    }
  }
  PaintPageLine(painter, page);
}

void PrintPages::Line(QPainter& painter, double y, const QString& text, int flags) const {
  const double height = QFontMetricsF(painter.font(), device_).height() * 1.25;
  painter.drawText(QRectF(page_.left(), y, page_.width(), height), flags | Qt::AlignVCenter, text);
}

void PrintPages::PaintTop(QPainter& painter) const {
  double y = page_.top();
  if (!document_.issuer.empty()) {
    painter.setFont(PaperFont(device_, kIssuerPoints, true));
    painter.setPen(kAccent);
    Line(painter, y, ToQt(document_.issuer), Qt::AlignLeft);
    y += LineHeight(device_, kIssuerPoints, true);
  }
  painter.setFont(PaperFont(device_, kTitlePoints, true));
  painter.setPen(kInk);
  Line(painter, y, ToQt(document_.title), Qt::AlignLeft);
  y += LineHeight(device_, kTitlePoints, true);
  painter.setPen(QPen(kAccent, Millimetres(device_, 0.4)));
  painter.drawLine(QPointF(page_.left(), y), QPointF(page_.right(), y));
  PaintFacts(painter, y + text_line_ / 4);
}

void PrintPages::PaintFacts(QPainter& painter, double y) const {
  painter.setFont(PaperFont(device_, kTextPoints));
  const QFontMetricsF metrics(painter.font(), device_);
  double labels[2] = {0, 0};
  for (const FactCell& cell : facts_) {
    double& widest = labels[cell.right ? 1 : 0];
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(document_.facts[cell.fact].label + "  ")));
  }
  for (const FactCell& cell : facts_) {
    const auto& [label, text] = document_.facts[cell.fact];
    const double x = page_.left() + (cell.right ? page_.width() / 2 : 0);
    const QRectF room(x, y + cell.line * text_line_, page_.right() - x, text_line_);
    painter.setPen(kQuietInk);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, ToQt(label));
    painter.setPen(kInk);
    painter.drawText(room.adjusted(labels[cell.right ? 1 : 0], 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     ToQt(text));
  }
}

void PrintPages::PaintRunningHead(QPainter& painter) const {
  painter.setFont(PaperFont(device_, kPageLinePoints));
  painter.setPen(kQuietInk);
  QString text = ToQt(document_.title);
  for (std::size_t i = 0; i < std::min(kFactsOfRunningHead, document_.facts.size()); ++i) {
    text += QString::fromUtf8("  ·  ") + ToQt(document_.facts[i].text);
  }
  const QFontMetricsF metrics(painter.font(), device_);
  const QString issuer = ToQt(document_.issuer);
  const double room = page_.width() - metrics.horizontalAdvance(issuer + "    ");
  Line(painter, page_.top(), metrics.elidedText(text, Qt::ElideRight, room), Qt::AlignLeft);
  Line(painter, page_.top(), issuer, Qt::AlignRight);
}

void PrintPages::PaintFoot(QPainter& painter, double y) const {
  painter.setFont(PaperFont(device_, kTextPoints));
  painter.setPen(kInk);
  y += text_line_ / 2;
  for (const std::string& remark : document_.remarks) {
    Line(painter, y, ToQt(remark), Qt::AlignLeft);
    y += text_line_;
  }
  PaintSignatures(painter, y + kSignatureRoom * text_line_);
}

void PrintPages::PaintSignatures(QPainter& painter, double y) const {
  if (document_.signatures.empty()) return;
  painter.setFont(PaperFont(device_, kPageLinePoints));
  const auto places = static_cast<double>(document_.signatures.size());
  const double gap = Millimetres(device_, 12);
  const double width = (page_.width() - (places - 1) * gap) / places;
  double x = page_.left();
  for (const std::string& who : document_.signatures) {
    painter.setPen(QPen(kInk, Millimetres(device_, 0.2)));
    painter.drawLine(QPointF(x, y), QPointF(x + width, y));
    painter.setPen(kQuietInk);
    painter.drawText(QRectF(x, y, width, text_line_), Qt::AlignLeft | Qt::AlignVCenter, ToQt(who));
    x += width + gap;
  }
}

void PrintPages::PaintPageLine(QPainter& painter, int page) const {
  painter.setFont(PaperFont(device_, kPageLinePoints));
  const double y = page_.bottom() - LineHeight(device_, kPageLinePoints);
  painter.setPen(QPen(kHairline, Millimetres(device_, 0.15)));
  painter.drawLine(QPointF(page_.left(), y), QPointF(page_.right(), y));
  painter.setPen(kQuietInk);
  Line(painter, y, ToQt(PrintedOn()), Qt::AlignLeft);
  Line(painter, y, "Seite " + QString::number(page + 1) + " von " + QString::number(Count()), Qt::AlignRight);
}

// --- devices ---

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

QImage FirstPage(const PrintDocument& document) {
  constexpr int kDotsPerInch = 144;
  constexpr double kInch = 25.4;
  const double dots = kDotsPerInch / kInch;
  QSizeF paper = QPageSize::definitionSize(QPageSize::A4);
  if (document.landscape) paper.transpose();
  QImage image((paper * dots).toSize(), QImage::Format_RGB32);
  image.setDotsPerMeterX(static_cast<int>(dots * 1000));
  image.setDotsPerMeterY(static_cast<int>(dots * 1000));
  image.fill(Qt::white);
  QPainter painter(&image);
  const double margin = kMarginMillimetres * dots;
  PrintPages(document, QRectF(image.rect()).adjusted(margin, margin, -margin, -margin), &image)
      .Paint(painter, 0);
  return image;
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
