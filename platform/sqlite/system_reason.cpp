#include "platform/sqlite/public/system_reason.h"

#include <cerrno>
#include <system_error>

namespace tarvoni::sqlite {

std::string SystemReason(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR:
      return "den Ordner gibt es nicht";
    case EACCES:
    case EPERM:
    case EROFS:
      return "der Ordner oder die Datei ist schreibgeschützt";
    case EISDIR:
      return "das ist ein Ordner";
    case ENOSPC:
    case EDQUOT:
      return "auf dem Datenträger ist kein Platz mehr";
    case EIO:
      return "der Datenträger meldet einen Fehler";
    case ENAMETOOLONG:
      return "der Name ist zu lang";
    case ELOOP:
      return "der Name verweist auf sich selbst";
    default:
      return "das System meldet „" + std::generic_category().message(number) + "“";
  }
}

}  // namespace tarvoni::sqlite
