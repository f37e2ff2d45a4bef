#pragma once

#include "host/demo/enterprise.h"
#include "host/demo/row_writer.h"

namespace tarvoni::demo {

// Writes natural executions of wage lines and cost positions, each with its forest locations.
class NaturalWriter {
 public:
  explicit NaturalWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  // The owner is one of the two; the work type has marks. `location` is the owner's own, 0 for none.
  void WriteForLine(int line, const WorkType& type, const District& district, int location);
  void WriteForPosition(int position, const WorkType& type, const District& district, int location);
  void Finish();

 private:
  void Write(int line, int position, const WorkType& type, const District& district, int location);
  void WriteLocations(int id, const District& district, int location);

  Enterprise& enterprise_;
  RowWriter rows_{enterprise_.connection, "NATURALVOLLZUG_KLR",
                  "ID, ID_ARA_LOHN, ID_ARBEITSAUFTRAG, ID_VM, ID_BZT, ID_T_BUNDESLAND, LANDESSTELLE, "
                  "ID_T_BAUM_HERK_GEB, LFDNUMMER, ID_T_HERK_KATEGORIE, HERK, ASTH, ZAUNBAU",
                  RowWriter::Keys::kGiven};
  RowWriter locations_{enterprise_.connection, "NATURALVOLLZUG_KLR_WALDORT",
                       "ID_NATURALVOLLZUG_KLR, ID_WALDORT"};
};

}  // namespace tarvoni::demo
