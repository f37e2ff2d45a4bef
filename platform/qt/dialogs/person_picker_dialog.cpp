#include "platform/qt/dialogs/person_picker_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <vector>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/pick_dialog.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

// All that the list knows of its current row, a line for each field; what a narrow column cuts off stands here in full.
class PersonCard : public QGroupBox {
 public:
  explicit PersonCard(PickDialog& dialog) : QGroupBox("Gewählte Person", &dialog), dialog_(dialog) {
    setObjectName("person");
    auto* grid = new QGridLayout(this);
    for (int i = 0; i < dialog_.Rows().ColumnCount(); ++i) {
      auto* caption = new QLabel(ToQt(dialog_.Rows().ColumnAt(i).caption) + ":", this);
      auto* text = new QLabel(this);
      text->setTextFormat(Qt::PlainText);
      text->setTextInteractionFlags(Qt::TextSelectableByMouse);
      text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
      grid->addWidget(caption, i, 0);
      grid->addWidget(text, i, 1);
      texts_.push_back(text);
    }
    grid->setColumnStretch(1, 1);
    const auto* chosen = dialog_.List().Table()->selectionModel();
    connect(chosen, &QItemSelectionModel::currentRowChanged, this, [this] { ShowPerson(); });
    connect(&dialog_.List().Model(), &QAbstractItemModel::modelReset, this, [this] { ShowPerson(); });
    ShowPerson();
  }

 private:
  void ShowPerson() {
    const int row = dialog_.List().CurrentRow();
    for (std::size_t i = 0; i < texts_.size(); ++i) {
      const std::string text = row < 0 ? "" : dialog_.Rows().TextAt(row, static_cast<int>(i));
      texts_[i]->setText(ToQt(text));
      texts_[i]->setToolTip(ToQt(text));
    }
  }

  PickDialog& dialog_;
  std::vector<QLabel*> texts_;
};

}  // namespace

PickResult ShowPersonPicker(QWidget* parent, const PickRequest& request, const Locale& locale) {
  constexpr PickDialog::Words kWords{
      .filter = "&Person:", .placeholder = "Name oder Nummer", .none = "Keine Person passt."};
  Modal dialog(new PickDialog(parent, request, locale, kWords));
  dialog->AddBelowList(new PersonCard(*dialog));
  return dialog.Run() ? dialog->Result() : PickResult{};
}

}  // namespace tarvoni::qt
