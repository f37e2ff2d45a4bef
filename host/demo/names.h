#pragma once

#include <array>
#include <string_view>

// Invented people; the names are common ones.
namespace tarvoni::demo {

inline constexpr std::array<std::string_view, 48> kSurnames = {
    "Achleitner", "Aigner",      "Bachler",    "Baumgartner",   "Brandstätter", "Dorfer",       "Ebner",
    "Eder",       "Feichtinger", "Fuchsegger", "Gruber",        "Haslinger",    "Hinterholzer", "Höller",
    "Huemer",     "Jungwirth",   "Kainz",      "Kerschbaumer",  "Köberl",       "Krenn",        "Lechner",
    "Leitner",    "Loidl",       "Maierhofer", "Mitterer",      "Moser",        "Neuhauser",    "Oberleitner",
    "Öllinger",   "Pichler",     "Plank",      "Pötscher",      "Rainer",       "Reiter",       "Riegler",
    "Rohrauer",   "Schachner",   "Schaffer",   "Scheiblauer",   "Stadler",      "Steinböck",    "Streicher",
    "Thaller",    "Unterberger", "Wagner",     "Weißensteiner", "Wimmer",       "Zauner"};

inline constexpr std::array<std::string_view, 28> kMen = {
    "Alois",   "Andreas", "Anton",  "Bernhard", "Christian", "Erwin",  "Ferdinand",
    "Florian", "Franz",   "Georg",  "Gerhard",  "Günther",   "Hannes", "Helmut",
    "Hubert",  "Jakob",   "Johann", "Josef",    "Jürgen",    "Karl",   "Leopold",
    "Lukas",   "Manfred", "Martin", "Matthias", "Michael",   "Stefan", "Thomas"};

inline constexpr std::array<std::string_view, 10> kWomen = {
    "Anna", "Barbara", "Eva", "Gerlinde", "Johanna", "Kathrin", "Maria", "Monika", "Renate", "Theresia"};

}  // namespace tarvoni::demo
