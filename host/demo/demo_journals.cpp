#include <array>
#include <string>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr Month kFirstJournal{2023, 10};
constexpr int kDay = 800;  // hundredths of an hour
constexpr int kMonth = 17'300;

// A month in which one worker has a line of every kind: each way to work out a rate, part days, a percentage.
constexpr Month kFullMonth{2024, 3};
struct FullLine {
  int type;
  int day;
  int quantity;  // hundredths
  int percentage;
};
constexpr auto kFullLines = std::to_array<FullLine>({{kOvertime, 7, 450, 0},
                                                     {kTravelKilometres, 8, 6'400, 0},
                                                     {kPieceBonus, 15, 12'000, 50},
                                                     {kPublicHoliday, 29, kDay, 0},
                                                     {kSickness, 18, kDay, 0},
                                                     {kSickness, 19, 550, 0}});

// A journal for each worker and month: what is paid beside the work on orders.
class JournalWriter {
 public:
  explicit JournalWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  void Write() {
    for (const Month& month : MonthsBetween(kFirstJournal, MonthOf(kToday)))
      for (const Worker& worker : enterprise_.workers) WriteJournal(worker, month);
    WriteFullMonth();
    heads_.Finish();
    lines_.Finish();
    positions_.Finish();
  }

 private:
  void WriteJournal(const Worker& worker, const Month& month) {
    heads_.Add(++last_head_, worker.id, month.year, month.month, std::to_string(month.year));
    if (&worker == &enterprise_.workers.front() && month == kFullMonth) full_head_ = last_head_;
    Random& random = enterprise_.random;
    const int holidays = random.Chance(50) ? random.Between(1, 3) : 0;
    for (int i = 0; i < holidays; ++i) WriteLine(worker, month, kHoliday, 4 + i, kDay);
    if (month.month == 12) WriteLine(worker, month, kPublicHoliday, 25, kDay);
    if (month.month == 1) WriteLine(worker, month, kPublicHoliday, 1, kDay);
    const int day = random.Between(2, 26);
    if (random.Chance(15)) WriteLine(worker, month, kSickness, day, kDay);
    if (random.Chance(30)) WriteLine(worker, month, kExtraWorkShare, 28, random.Between(2, 12) * 100);
    if (random.Chance(40)) WriteLine(worker, month, kSeniority, 1, kMonth);
    if (random.Chance(20)) WriteLine(worker, month, kOvertime, day, random.Between(1, 6) * 50);
  }

  // Behind all others and without a draw, so that nothing else of the demo depends on it.
  void WriteFullMonth() {
    const Worker& worker = enterprise_.workers.front();
    Client& client = enterprise_.clients[static_cast<std::size_t>(worker.client)];
    const WorkType& type = enterprise_.CodesOf(client).WorkTypeOf(kAbsence);
    const CostCentre& centre = client.Centre(CentreType::kAdministration);
    const int work_order = client.WorkOrdersFor(kFullMonth.year, type.product, centre).front()->id;
    for (const FullLine& line : kFullLines) {
      const int id = AddLine(full_head_, kFullMonth, line.type, line.day, line.quantity, line.percentage);
      positions_.Add(++enterprise_.last.position, "B", id, work_order, centre.id, type.id,
                     type.methods.front());
    }
  }

  // `quantity` in hundredths.
  void WriteLine(const Worker& worker, const Month& month, int type_number, int day, int quantity) {
    WritePosition(worker, month, AddLine(last_head_, month, type_number, day, quantity, 0));
  }

  // Gives the line's id; a percentage of 0 is none.
  int AddLine(int head, const Month& month, int type_number, int day, int quantity, int percentage) {
    const WageType& type = enterprise_.WageTypeOf(type_number);
    lines_.Add(++last_line_, head, type.id, day, Decimal(quantity, 2), OrNull(percentage), month.First(),
               AddMonths(month, type.payment_shift).First());
    return last_line_;
  }

  // The pair of a line: overhead, and now and then a district without a work order.
  void WritePosition(const Worker& worker, const Month& month, int line) {
    Client& client = enterprise_.clients[static_cast<std::size_t>(worker.client)];
    const CodeSet& codes = enterprise_.CodesOf(client);
    const WorkType& type = codes.WorkTypeOf(kAbsence);
    Random& random = enterprise_.random;
    const bool overhead = random.Chance(80);
    const CostCentre& centre =
        overhead ? client.Centre(CentreType::kAdministration) : random.Pick(client.districts).centre;
    const int work_order = overhead ? client.WorkOrdersFor(month.year, type.product, centre).front()->id : 0;
    positions_.Add(++enterprise_.last.position, "B", line, OrNull(work_order), centre.id, type.id,
                   random.Pick(type.methods));
  }

  Enterprise& enterprise_;
  int last_head_ = 0;
  int last_line_ = 0;
  int full_head_ = 0;
  RowWriter heads_{enterprise_.connection, "STUNDENBUCH_HEADER", "ID, ID_PERSONAL, JAHR, MONAT, FWJ",
                   RowWriter::Keys::kGiven};
  RowWriter lines_{
      enterprise_.connection, "STUNDENBUCH",
      "ID, ID_STUNDENBUCH, ID_LOHNARTEN, TAG, STUNDEN, PROZENTSATZ, VERLOHNUNG, AUSZAHLUNGSMONAT",
      RowWriter::Keys::kGiven};
  RowWriter positions_{
      enterprise_.connection, "ARBEITSAUFTRAG",
      "ID, QUELLE, ID_STUNDENBUCH, ARBEITSAUFTRAG_KOPF_ID, KOSTENSTELLE_ID, LEISTUNGSART_ID, "
      "VERFAHREN_ID",
      RowWriter::Keys::kGiven};
};

}  // namespace

void BuildJournals(Enterprise& enterprise) {
  JournalWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
