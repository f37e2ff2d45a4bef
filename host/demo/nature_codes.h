#pragma once

#include <array>
#include <string_view>

#include "host/demo/enterprise.h"

namespace tarvoni::demo {

// The kinds of use, their ids counted from 1, with what each of them demands.
struct MarkRow {
  std::string_view code, name;
  bool stand_type, origin, pruning, fence, disabled;
};
inline constexpr auto kMarks = std::to_array<MarkRow>({
    {"AF", "Aufforstung", true, true, false, false, false},
    {"NB", "Nachbesserung", true, true, false, false, false},
    {"KP", "Kulturpflege", true, false, false, false, false},
    {"DP", "Dickungspflege", true, false, false, false, false},
    {"JD", "Jungdurchforstung", false, false, false, false, false},
    {"WA", "Wertastung", false, false, true, false, false},
    {"ZN", "Zaunneubau", false, false, false, true, false},
    {"ZI", "Zauninstandhaltung", false, false, false, true, false},
    {"VS", "Verbissschutz", false, false, false, false, false},
    {"SR", "Schlagräumung", false, false, false, false, false},
    {"EN", "Endnutzung", false, false, false, false, false},
    {"SH", "Schadholznutzung", false, false, false, false, false},
    {"VA", "Voranbau (alter Schlüssel)", true, true, false, false, true},
});

}  // namespace tarvoni::demo
