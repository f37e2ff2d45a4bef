#include "platform/qt/dialogs/message_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <vector>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/services/toolkit.h"

namespace tarvoni::qt {
namespace {

std::vector<int> AnswersOf(int style) {
  switch (BoxButtons(style)) {
    case kBoxOkCancel:
      return {kAnswerOk, kAnswerCancel};
    case kBoxYesNoCancel:
      return {kAnswerYes, kAnswerNo, kAnswerCancel};
    case kBoxYesNo:
      return {kAnswerYes, kAnswerNo};
    default:
      return {kAnswerOk};
  }
}

QMessageBox::Icon IconOf(int style) {
  switch (BoxIcon(style)) {
    case kBoxStop:
      return QMessageBox::Critical;
    case kBoxQuestion:
      return QMessageBox::Question;
    case kBoxWarning:
      return QMessageBox::Warning;
    case kBoxInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

struct AnswerButton {
  int answer;
  const char* caption;
  const char* name;
};
constexpr std::array kAnswerButtons = {
    AnswerButton{kAnswerOk, "&OK", "ok"}, AnswerButton{kAnswerCancel, "Abbre&chen", "cancel"},
    AnswerButton{kAnswerYes, "&Ja", "yes"}, AnswerButton{kAnswerNo, "&Nein", "no"}};

// Escape and the window's button cancel, answer a plain question with "Nein", and take note of all else.
class Message : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

  void AddAnswer(int answer) {
    const auto* shown = std::ranges::find(kAnswerButtons, answer, &AnswerButton::answer);
    QPushButton* button = addButton(shown->caption, answer == kAnswerCancel ? RejectRole : AcceptRole);
    button->setObjectName(shown->name);
    button->setProperty("answer", answer);
    buttons_.push_back(button);
    const bool gives_up = answer == kAnswerCancel || (answer == kAnswerNo && !escapeButton());
    if (gives_up) setEscapeButton(button);
  }
  void MakeDefault(std::size_t number) { setDefaultButton(buttons_.at(number)); }
  // The title tells what is asked about; the window's own buttons stand beside it.
  void ShowWholeTitle() {
    constexpr int kBesideTitle = 24, kLongest = 90;  // characters
    const int title = fontMetrics().horizontalAdvance(windowTitle()) + CharactersWide(*this, kBesideTitle);
    auto* const text = findChild<QLabel*>("qt_msgbox_label");
    if (text && title > text->sizeHint().width())
      text->setMinimumWidth(std::min(title, CharactersWide(*this, kLongest)));
  }

 private:
  std::vector<QPushButton*> buttons_;
};

class Input : public QDialog {
 public:
  Input(QWidget* parent, const std::string& prompt, const std::string& title, const std::string& initial)
      : QDialog(parent), text_(new QLineEdit(ToQt(initial), this)) {
    setWindowTitle(ToQt(title));
    auto* label = new QLabel(ToQt(prompt), this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(text_);
    label->setWordWrap(true);
    text_->setObjectName("text");
    text_->setAccessibleName(ToQt(prompt));
    text_->setMinimumWidth(CharactersWide(*this, 50));
    text_->selectAll();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(text_);
    layout->addLayout(MakeButtons(*this, "&OK").line);
  }
  std::string Text() const { return FromQt(text_->text()); }

 private:
  QLineEdit* text_;
};

}  // namespace

int ShowMessageBox(QWidget* parent, const std::string& prompt, int style, const std::string& title) {
  const std::vector<int> answers = AnswersOf(style);
  Modal box(new Message(IconOf(style), ToQt(title), {}, QMessageBox::NoButton, parent));
  box->setTextFormat(Qt::PlainText);
  box->setText(ToQt(prompt));
  box->ShowWholeTitle();
  for (const int answer : answers) box->AddAnswer(answer);
  const bool second = (style & kBoxSecondIsDefault) != 0 && answers.size() > 1;
  box->MakeDefault(second ? 1 : 0);
  box->exec();
  const QAbstractButton* clicked = box.Alive() ? box->clickedButton() : nullptr;
  return clicked ? clicked->property("answer").toInt() : answers.back();
}

std::string ShowInputBox(QWidget* parent, const std::string& prompt, const std::string& title,
                         const std::string& initial) {
  Modal input(new Input(parent, prompt, title, initial));
  return input.Run() ? input->Text() : std::string();
}

}  // namespace tarvoni::qt
