#include "platform/qt/layout_builder.h"

#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <vector>

#include "platform/qt/form_window.h"
#include "platform/qt/piece_builder.h"

namespace tarvoni::qt {
namespace {

using layout::Kind;

// Scrolls only where the screen is too small for the whole.
class Scroll : public QScrollArea {
 public:
  explicit Scroll(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
  }
  // A scaled screen may round the window down to a point less.
  QSize sizeHint() const override { return widget()->sizeHint() + QSize(1, 1); }
  QSize minimumSizeHint() const override {
    return widget()->minimumSizeHint().boundedTo(screen()->availableGeometry().size() / 2);
  }
};

}  // namespace

void BuildLayout(const layout::Node& root, FormWindow& window, QWidget* content) {
  std::vector<layout::Node> body =
      root.kind == Kind::kStack ? root.children : std::vector<layout::Node>{root};
  std::erase_if(
      body, [](const layout::Node& node) { return node.kind == Kind::kHidden || node.kind == Kind::kNone; });
  std::vector<layout::Node> foot;
  if (!body.empty() && body.back().kind == Kind::kBar) {
    foot.push_back(body.back());
    body.pop_back();
  }
  PieceBuilder builder(window);
  auto* const whole = new QVBoxLayout(content);
  auto* const scroll = new Scroll(content);
  auto* const inner = new QWidget(scroll);
  const Piece stack = builder.Stack(body, inner);
  stack.layout->setContentsMargins({});
  inner->setLayout(stack.layout);
  scroll->setWidget(inner);
  whole->addWidget(scroll, 1);
  for (const layout::Node& bar : foot) whole->addLayout(builder.Bar(bar, content).layout);
}

}  // namespace tarvoni::qt
