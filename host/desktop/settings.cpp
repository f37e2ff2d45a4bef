#include "host/desktop/settings.h"

#include <QSettings>

#include "platform/qt/public/text.h"
#include "src/context/data/password.h"

namespace tarvoni::host {
namespace {

constexpr const char* kRecent = "datenbanken";
constexpr qsizetype kRecentCount = 10;

QSettings Store() {
  return QSettings("Tarvoni", "Lohn");
}

}  // namespace

Settings Settings::Load() {
  const QSettings store = Store();
  const Settings standard;
  return {.locale = store.value("sprache", standard.locale).toString(),
          .date_format = store.value("datumsformat", standard.date_format).toString(),
          .currency = store.value("waehrung", standard.currency).toString(),
          .work_directory = store.value("arbeitsordner").toString()};
}

void Settings::Save() const {
  QSettings store = Store();
  store.setValue("sprache", locale);
  store.setValue("datumsformat", date_format);
  store.setValue("waehrung", currency);
  store.setValue("arbeitsordner", work_directory);
}

void Settings::Fill(TvnVar_Dll& record) const {
  record.strSqlDateFormat = qt::FromQt(date_format);
  record.strLocalCurrency = qt::FromQt(currency);
  record.strWorkDirectory = qt::FromQt(work_directory);
}

ServerSettings ServerSettings::Load() {
  const QSettings store = Store();
  const ServerSettings standard;
  const auto text_or = [&store](const char* key, const QString& otherwise) {
    const QString text = store.value(key).toString();
    return text.isEmpty() ? otherwise : text;
  };
  return {.server = store.value("server/name").toString(),
          .database = store.value("server/datenbank").toString(),
          .user = store.value("server/benutzer").toString(),
          .driver = text_or("server/treiber", standard.driver),
          .port = text_or("server/port", standard.port)};
}

void ServerSettings::Save() const {
  QSettings store = Store();
  store.setValue("server/name", server);
  store.setValue("server/datenbank", database);
  store.setValue("server/benutzer", user);
  store.setValue("server/treiber", driver);
  store.setValue("server/port", port);
}

QStringList RecentDatabases() {
  QStringList recent = Store().value(kRecent).toStringList();
  recent.removeIf([](const QString& database) { return HoldsPassword(qt::FromQt(database)); });
  return recent;
}

void RememberDatabase(const QString& database) {
  if (HoldsPassword(qt::FromQt(database))) return;
  QStringList recent = RecentDatabases();
  recent.removeAll(database);
  recent.prepend(database);
  Store().setValue(kRecent, QStringList(recent.mid(0, kRecentCount)));
}

void ForgetDatabase(const QString& database) {
  QStringList recent = RecentDatabases();
  recent.removeAll(database);
  Store().setValue(kRecent, recent);
}

}  // namespace tarvoni::host
