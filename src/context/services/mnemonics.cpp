#include "src/context/services/mnemonics.h"

#include <algorithm>
#include <cctype>

#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

struct Marked {
  std::u32string plain;                     // the caption as it is read
  std::size_t mark = std::u32string::npos;  // of the letter behind the first `&`
};

Marked Read(const Captioned& control) {
  Marked read;
  const std::u32string caption = utf8::Decode(control.Caption());
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == U'&' && i + 1 < caption.size()) {
      if (caption[++i] != U'&' && read.mark == std::u32string::npos) read.mark = read.plain.size();
    }
    read.plain += caption[i];
  }
  return read;
}

bool IsLetter(char32_t c) {
  return c < 128 && std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool IsPressed(const Control& control) {
  return dynamic_cast<const Button*>(&control) || dynamic_cast<const CheckBox*>(&control) ||
         dynamic_cast<const OptionButton*>(&control);
}

// Where a letter stands in a caption: at the beginning of a word if it can.
std::size_t PlaceOf(char32_t letter, std::u32string_view caption) {
  std::size_t place = std::u32string_view::npos;
  for (std::size_t i = caption.size(); i-- > 0;) {
    if (utf8::Upper(caption[i]) != letter) continue;
    const bool begins = i == 0 || !IsLetter(caption[i - 1]);
    const bool held = place != std::u32string_view::npos && (place == 0 || !IsLetter(caption[place - 1]));
    if (begins || !held) place = i;
  }
  return place;
}

// The letter of a command's button; 0 for none.
char32_t LetterOf(Command command) {
  switch (command) {
    case Command::kNew:
      return U'N';
    case Command::kEdit:
      return U'B';
    case Command::kSave:
      return U'S';
    case Command::kCancel:
      return U'A';
    case Command::kDelete:
      return U'L';
    case Command::kClose:
      return U'C';
    case Command::kSaveAndNew:
    case Command::kNone:
      return 0;
  }
  return 0;
}

class Letters {
 public:
  explicit Letters(const Form& form) {
    for (const auto take :
         {&Letters::TakeCommand, &Letters::TakeOwn, &Letters::TakeFree, &Letters::TakeTab}) {
      for (const Control* control : form.Controls()) {
        const auto* const captioned = dynamic_cast<const Captioned*>(control);
        if (captioned && !letters_.contains(control)) (this->*take)(*captioned);
      }
    }
  }
  std::map<const Control*, char32_t> All() { return std::move(letters_); }

 private:
  bool Take(const Control& control, char32_t letter) {
    letter = utf8::Upper(letter);
    const bool taken =
        std::ranges::any_of(letters_, [&](const auto& other) { return other.second == letter; });
    if (taken || !IsLetter(letter)) return false;
    letters_[&control] = letter;
    return true;
  }

  void TakeCommand(const Captioned& control) {
    const auto* const button = dynamic_cast<const Button*>(&control);
    const char32_t letter = button ? LetterOf(button->Does()) : 0;
    if (PlaceOf(letter, Read(control).plain) != std::u32string::npos) Take(control, letter);
  }

  void TakeOwn(const Captioned& control) {
    const Marked caption = Read(control);
    if (caption.mark < caption.plain.size()) Take(control, caption.plain[caption.mark]);
  }

  void TakeFree(const Captioned& control) {
    if (IsPressed(control)) TakeFirst(control);
  }

  void TakeTab(const Captioned& control) {
    if (dynamic_cast<const TabPage*>(&control)) TakeFirst(control);
  }

  void TakeFirst(const Captioned& control) {
    const std::u32string caption = Read(control).plain;
    for (const bool beginnings : {true, false}) {
      for (std::size_t i = 0; i < caption.size(); ++i) {
        const bool begins = i == 0 || !IsLetter(caption[i - 1]);
        if (begins == beginnings && Take(control, caption[i])) return;
      }
    }
  }

  std::map<const Control*, char32_t> letters_;
};

}  // namespace

std::map<const Control*, char32_t> MnemonicsOf(const Form& form) {
  return Letters(form).All();
}

std::string CaptionWithMnemonic(const Captioned& control) {
  const auto letters = MnemonicsOf(control.OwnerForm());
  const auto letter = letters.find(&control);
  const Marked caption = Read(control);
  std::size_t mark = caption.mark;
  if (letter == letters.end()) {
    mark = std::u32string::npos;
  } else if (mark >= caption.plain.size() || utf8::Upper(caption.plain[mark]) != letter->second) {
    mark = PlaceOf(letter->second, caption.plain);
  }
  std::string shown;
  for (std::size_t i = 0; i < caption.plain.size(); ++i) {
    if (i == mark || caption.plain[i] == U'&') shown += '&';
    utf8::Append(shown, caption.plain[i]);
  }
  return shown;
}

}  // namespace tarvoni
