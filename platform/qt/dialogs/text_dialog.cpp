#include "platform/qt/dialogs/text_dialog.h"

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/qt/dialogs/dialog_parts.h"
#include "platform/qt/dialogs/modal.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {
namespace {

class TextDialog : public QDialog {
 public:
  TextDialog(QWidget* parent, const TextRequest& request)
      : QDialog(parent),
        request_(request),
        windows_lines_(request.text.find("\r\n") != std::string::npos),
        text_(new QPlainTextEdit(ToQt(request.text), this)),
        length_(new QLabel(this)) {
    setWindowTitle(ToQt(request.caption));
    text_->setObjectName("text");
    text_->setAccessibleName(ToQt(request.caption));
    text_->setReadOnly(request.read_only);
    text_->setTabChangesFocus(true);
    text_->moveCursor(QTextCursor::End);
    length_->setObjectName("length");
    const DialogButtons buttons = MakeButtons(*this, "Ü&bernehmen");
    buttons.line->insertWidget(0, length_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addLayout(buttons.line);
    if (request.read_only) {
      buttons.ok->hide();
      buttons.cancel->setText("S&chließen");
      buttons.cancel->setDefault(true);
    } else {
      ConnectEditing();
    }
    ResizeWithin(*this, {CharactersWide(*this, 80), LinesHigh(*this, 18)});
  }

  // Behind the text that is there.
  void Type(const QString& typed) { text_->insertPlainText(typed); }

  // As it came if nothing was changed.
  std::string Text() const {
    if (!text_->document()->isModified()) return request_.text;
    return FromQt(Typed());
  }

 private:
  void ConnectEditing() {
    connect(text_->document(), &QTextDocument::contentsChange, this,
            [this](int at, int, int added) { inserted_end_ = at + added, inserted_ = added; });
    connect(text_, &QPlainTextEdit::textChanged, this, [this] { LimitLength(); });
    for (const char* keys : {"Ctrl+Return", "Ctrl+Enter"}) {
      connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, [this] { accept(); });
    }
    ShowLength();
  }

  QString Typed() const {
    QString text = text_->toPlainText();
    if (windows_lines_) text.replace("\n", "\r\n");
    return text;
  }

  // How many characters at the end of what was just inserted do not fit.
  int Excess() const {
    const QString text = text_->toPlainText();
    const int end = std::min(inserted_end_, static_cast<int>(text.size()));
    qsizetype over = Typed().size() - request_.max_length;
    int excess = 0;
    for (; over > 0 && excess < std::min(inserted_, end); ++excess) {
      over -= windows_lines_ && text[end - excess - 1] == '\n' ? 2 : 1;
    }
    const bool splits = excess > 0 && excess < inserted_ && text[end - excess].isLowSurrogate();
    return splits ? excess + 1 : excess;
  }

  // A text that came too long may only get shorter.
  void LimitLength() {
    const int excess = request_.max_length > 0 ? Excess() : 0;
    if (excess > 0) {
      QTextCursor cursor(text_->document());
      cursor.setPosition(inserted_end_);
      cursor.setPosition(inserted_end_ - excess, QTextCursor::KeepAnchor);
      cursor.removeSelectedText();
    }
    ShowLength();
  }

  void ShowLength() {
    if (request_.max_length <= 0) return;
    length_->setText(QString::number(Typed().size()) + " von " + QString::number(request_.max_length) +
                     " Zeichen");
  }

  const TextRequest& request_;
  bool windows_lines_;
  QPlainTextEdit* text_;
  QLabel* length_;
  int inserted_ = 0;  // characters, of the last change
  int inserted_end_ = 0;
};

}  // namespace

std::optional<std::string> ShowTextEditor(QWidget* parent, const TextRequest& request, const QString& typed) {
  Modal dialog(new TextDialog(parent, request));
  if (!request.read_only) dialog->Type(typed);
  if (!dialog.Run() || request.read_only) return std::nullopt;
  return dialog->Text();
}

}  // namespace tarvoni::qt
