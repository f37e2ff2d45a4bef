#pragma once

#include <cstdint>
#include <string>

#include "host/demo/enterprise.h"
#include "host/demo/row_writer.h"
#include "host/demo/timber_codes.h"

namespace tarvoni::demo {

// Who took a timber list; zeros for a free one.
struct ListOwner {
  int wage_order = 0, work_order = 0, position = 0;
};

struct TimberList {
  const Client& client;
  const District& district;
  int service = 0;  // RELTABLE.ID
  int year = 0;
  int logs = 0;
  bool locked = false;
  ListOwner owner;
};

struct WrittenList {
  int id = 0;
  std::string name;
  std::int64_t volume = 0;  // in hundredths of a cubic metre
};

// Volume of round pieces in hundredths of a cubic metre, rounded as foresters do.
std::int64_t Volume(int diameter_cm, int length_cm, int pieces);

// Writes measured timber lists with their logs.
class TimberWriter {
 public:
  explicit TimberWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  WrittenList Write(const TimberList& list);
  void Finish();

 private:
  struct Log;
  Log DrawLog(const SpeciesRow& main_species);
  std::int64_t WriteLog(const TimberList& list, const SpeciesRow& main_species, const std::string& name,
                        int number);
  void WriteSurcharge(const std::string& name);

  Enterprise& enterprise_;
  RowWriter heads_{
      enterprise_.connection, "LISTENKOPF",
      "ID, LISTE, MENGE, GESPERRT, ID_ARA_KOPF, ID_ARBEITSAUFTRAG_KOPF, ZUSCHLAG_A, A_FICHTE, A_TANNE, "
      "A_KIEFER, A_BUCHE, A_EICHE, M_FICHTE, M_TANNE, M_KIEFER, M_BUCHE, M_EICHE",
      RowWriter::Keys::kGiven};
  RowWriter logs_{
      enterprise_.connection, "LOGS",
      "LISTE, BLNR, HA, HS, STKL, STK, LAENGE, DURCH, KUBATUR, KUBRM, MENGE, ID_MASSEINHEIT, SPALT, "
      "ZUGANG, RELTABLE2, RELTABLE3, EST, MEFVERF, RUCKE, AA_ID, ARBEITSAUFTRAG_KOPF_ID, MANDANTEN_ID, "
      "STORNO"};
  RowWriter surcharges_{enterprise_.connection, "SONDERZ", "LISTE, MERKM, VALUE1"};
};

}  // namespace tarvoni::demo
