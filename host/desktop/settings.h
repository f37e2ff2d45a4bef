#pragma once

#include <QString>
#include <QStringList>

#include "include/tarvoni_lohn.h"
#include "src/context/values/locale.h"

namespace tarvoni::host {

// What the user of the desktop sets once; kept with his other settings.
struct Settings {
  QString locale = "de";  // of numbers, or "en"
  QString date_format = "yyyymmdd";
  QString currency = "ATS";
  QString work_directory;

  static Settings Load();
  void Save() const;

  // The Screens speak German whatever the numbers look like.
  Locale FieldLocale() const { return {Language::kGerman, locale == "en" ? '.' : ','}; }
  void Fill(TvnVar_Dll& record) const;
};

// The server asked for last, whether it answered or not; without the password.
struct ServerSettings {
  QString server;
  QString database;
  QString user;
  QString driver = "FreeTDS";
  QString port = "1433";

  static ServerSettings Load();
  void Save() const;
};

// The databases opened last, the latest first, at most ten. None with a password.
QStringList RecentDatabases();
void RememberDatabase(const QString& database);
void ForgetDatabase(const QString& database);

}  // namespace tarvoni::host
