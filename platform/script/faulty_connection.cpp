#include "platform/script/faulty_connection.h"

#include "src/context/data/batch_words.h"

namespace tarvoni {

void WriteFault::Arm(int nth, int number) {
  nth_ = nth;
  number_ = number;
  seen_ = 0;
}

void WriteFault::Hear(std::string_view statement) {
  if (nth_ == 0 || !WritesTables(statement) || ++seen_ != nth_) return;
  const bool busy = number_ == kErrorBusy;
  throw DatabaseError(
      number_,
      busy ? "Ein anderes Programm hält die Datenbank gerade fest. Bitte gleich noch einmal versuchen."
           : "Das Skript lässt diese Anweisung scheitern.",
      0, 0, std::string(statement));
}

}  // namespace tarvoni
