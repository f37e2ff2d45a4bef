#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "include/tarvoni_lohn.h"
#include "src/context/data/database.h"

namespace tarvoni {

// What a script can only do through its host. Names and values as the script has them.
struct ScriptHooks {
  using Values = std::map<std::string, std::string>;
  using Caller = std::function<Values(const std::string& name, const Values& arguments, TvnVar_Dll& context)>;

  // Makes the demo enterprise in the open database; "" is the usual scale.
  std::function<void(Connection&, const std::string& scale)> demo;
  // Calls a method of c_Lohn, or a Screen's Run. Gives its results; an exception is its failure.
  Caller call;
  Caller run;
  // A text for each table of the database that is another one when a row is.
  std::function<Values(Connection&)> contents = {};
  // Makes the tables alone.
  std::function<void(Connection&)> schema = {};
  // A new database in memory with what the other holds; null where there is no such copy.
  std::function<std::shared_ptr<Connection>(Connection&)> copy = {};
  // Makes the nth commit of writes fail as it fails on a full disk. What it gives tells whether that happened, and
  // ends it with its own end. Null where the database has no such door.
  std::function<std::function<bool()>(Connection&, int nth)> fail_commit = {};
  // What fixtures have made in this run of the program, by file; kept for the next player.
  std::shared_ptr<std::map<std::string, std::shared_ptr<Connection>>> fixtures = {};
};

}  // namespace tarvoni
