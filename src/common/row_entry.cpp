#include "src/common/row_entry.h"

#include <utility>

#include "src/common/messages.h"

namespace tarvoni {

RowEntry::RowEntry(Screen& screen, RowList& list, std::int32_t& current_id, Buttons buttons, Steps steps)
    : screen_(screen), list_(list), current_id_(current_id), buttons_(buttons), steps_(std::move(steps)) {
  buttons_.create.Click = [this] { StartNew(); };
  buttons_.edit.Click = [this] { StartEditing(); };
  buttons_.cancel.Click = [this] { Cancel(); };
  buttons_.cancel.SetCausesValidation(false);
}

void RowEntry::Begin() {
  if (list_.Empty()) {
    buttons_.create.Press();
  } else {
    steps_.set_view(true);
  }
}

void RowEntry::StartNew() {
  if (steps_.create) current_id_ = screen_.Committed(steps_.create);
  buttons_.create.SetTag("YES");
  steps_.set_view(false);
  SafeSetFocus(steps_.fill());
}

void RowEntry::StartEditing() {
  if (steps_.may_edit && !steps_.may_edit()) return;
  buttons_.create.SetTag("NO");
  steps_.set_view(false);
  SafeSetFocus(steps_.first());
}

bool RowEntry::Save() {
  const auto id = screen_.Committed(steps_.save);
  if (!id) return false;
  current_id_ = *id;
  buttons_.create.SetTag("NO");
  buttons_.cancel.Press();
  return true;
}

void RowEntry::Cancel() {
  if (IsNew() && steps_.discard) screen_.Committed(steps_.discard);
  buttons_.create.SetTag("NO");
  steps_.reload();
  steps_.set_view(true);
  SafeSetFocus(list_.ItsGrid());
  if (buttons_.close_when_empty && list_.Empty()) buttons_.close_when_empty->Press();
}

void RowEntry::Delete(const std::function<SqlText(std::int32_t id)>& statement) {
  if (!screen_.Ask(screen_.Message(message::kDeleteEntry))) return;
  const std::int32_t id = list_.CurrentId();
  if (id == 0) return;
  const std::int32_t neighbour = list_.Neighbour();
  screen_.DeleteRow(statement(id), [&] {
    current_id_ = neighbour;
    steps_.reload();
  });
}

}  // namespace tarvoni
