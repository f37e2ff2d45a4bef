#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>

#include "host/demo/names.h"
#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/wage_scales.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kFirstWorker = 1001;   // PERSONAL.ID_PERSONAL
constexpr int kNumberOffset = 9000;  // from the id to the personnel number
constexpr int kFirstGang = 1001;     // RELTABLE.ID
constexpr int kMostGangs = 240;      // of a client: their codes have three digits
constexpr int kWorkersPerTeam = 3;
constexpr int kOrdersPerTeam = 25;  // in the year that has just begun
constexpr DateTime kEntry{2022, 1, 1};

// What a worker is paid by, day by day.
struct Attributes {
  std::vector<DatedRate> wage_group, pay_group, stage, personal_factor;
};

class WorkerWriter {
 public:
  explicit WorkerWriter(Enterprise& enterprise) : enterprise_(enterprise), random_(enterprise.random) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      WriteTeams(client);
      WriteForester(client);
    }
    persons_.Finish();
    gangs_.Finish();
    rates_.Finish();
    texts_.Finish();
  }

 private:
  void WriteTeams(Client& client) {
    const int teams = (client.orders_a_year[1] * enterprise_.scale + kOrdersPerTeam - 1) / kOrdersPerTeam;
    const int gangs = std::min(teams, kMostGangs);
    for (int i = 0; i < teams; ++i) {
      Team team{next_gang_ + i % gangs, {}};
      const std::string leader = WriteWorkers(client, team);
      if (i < gangs)
        gangs_.Add(team.gang, kGangList, team.gang - kFirstGang + 1,
                   fmt::format("{:03}", team.gang - kFirstGang + 1), fmt::format("Rotte {}", leader), false);
      client.teams.push_back(std::move(team));
    }
    next_gang_ += gangs;
  }

  // The name of the first of them.
  std::string WriteWorkers(const Client& client, Team& team) {
    std::string leader;
    for (int i = 0; i < kWorkersPerTeam; ++i) {
      const std::string surname(random_.Pick(kSurnames));
      if (leader.empty()) leader = surname;
      team.workers.push_back(static_cast<int>(enterprise_.workers.size()));
      WriteWorker(client, surname);
    }
    return leader;
  }

  void WriteWorker(const Client& client, const std::string& surname) {
    const Attributes attributes = DrawAttributes();
    const bool woman = random_.Chance(10);
    WritePerson(client, surname, std::string(woman ? random_.Pick(kWomen) : random_.Pick(kMen)), woman,
                attributes);
    for (const auto& [column, values] : {std::pair{"PERSONAL.ENTGELDGRUPPE", &attributes.pay_group},
                                         {"PERSONAL.ENTWSTUFFE", &attributes.stage},
                                         {"PERSONAL.DLS", &attributes.personal_factor}}) {
      for (const DatedRate& value : *values) rates_.Add(column, last_id_, value.from, Decimal(value.rate, 4));
    }
    for (const DatedRate& group : attributes.wage_group)
      texts_.Add("PERSONAL.LOHNGRUPPE", last_id_, group.from, WageGroupName(static_cast<int>(group.rate)));
    enterprise_.workers.push_back(
        {last_id_, client.id - 1, attributes.wage_group, attributes.personal_factor});
  }

  void WritePerson(const Client& client, const std::string& surname, const std::string& first_name,
                   bool woman, const Attributes& attributes) {
    ++last_id_;
    persons_.Add(last_id_, last_id_ + kNumberOffset, surname + ' ' + first_name, woman ? "Frau" : "Herr",
                 first_name, surname, false, client.id, true, false,
                 WageGroupName(static_cast<int>(attributes.wage_group.back().rate)),
                 Decimal(attributes.pay_group.back().rate, 4), Decimal(attributes.stage.back().rate, 4),
                 Decimal(attributes.personal_factor.back().rate, 4));
  }

  // Head of a client's districts: a person, but no worker.
  void WriteForester(const Client& client) {
    ++last_id_;
    const std::string surname(random_.Pick(kSurnames));
    const std::string first_name(random_.Pick(kMen));
    persons_.Add(last_id_, last_id_ + kNumberOffset, surname + ' ' + first_name, "Ing.", first_name, surname,
                 false, client.id, false, false, Null{}, Null{}, Null{}, Null{});
  }

  Attributes DrawAttributes() {
    Attributes drawn;
    const int group = random_.Between(0, kWageGroups - 2);
    const int stage = random_.Between(1, kStages - 1);
    drawn.wage_group = {{kEntry, group}};
    if (random_.Chance(20)) drawn.wage_group.push_back({{2024, 2, 1}, group + 1});
    drawn.pay_group = {{kEntry, std::int64_t{random_.Between(kFirstPayGroup, kLastPayGroup)} * 10'000}};
    drawn.stage = {{kEntry, std::int64_t{stage} * 10'000}};
    if (random_.Chance(40))
      drawn.stage.push_back(
          {{2023 + random_.Between(0, 1), random_.Between(1, 4), 1}, std::int64_t{stage + 1} * 10'000});
    drawn.personal_factor = {{kEntry, std::int64_t{random_.Between(88, 112)} * 100}};
    if (random_.Chance(25))
      drawn.personal_factor.push_back({{2024, 1, 15}, std::int64_t{random_.Between(90, 118)} * 100});
    return drawn;
  }

  Enterprise& enterprise_;
  Random& random_;
  int last_id_ = kFirstWorker - 1;
  int next_gang_ = kFirstGang;
  RowWriter persons_{enterprise_.connection, "PERSONAL",
                     "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, ANREDE, VORNAME, NAME, MANDANTEN, ID_MANDANTEN, "
                     "ANGEMELDET, DISABLE, LOHNGRUPPE, ENTGELDGRUPPE, ENTWSTUFFE, DLS",
                     RowWriter::Keys::kGiven};
  RowWriter gangs_{enterprise_.connection, "RELTABLE", "ID, RELTABLE_ID, NUMBER, KURZNAME, LANGNAME, DISABLE",
                   RowWriter::Keys::kGiven};
  RowWriter rates_{enterprise_.connection, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, RATE"};
  RowWriter texts_{enterprise_.connection, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, [TEXT]"};
};

}  // namespace

void BuildWorkers(Enterprise& enterprise) {
  WorkerWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
