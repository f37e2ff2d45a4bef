#include "suite/message_texts.h"

#include <algorithm>
#include <array>
#include <functional>

namespace tarvoni::suite {
namespace {

constexpr auto kTexts = std::to_array<MessageText>({
    // Titles of the work-order Screen; the order's name follows in parentheses.
    {54, "Planung", "Plan"},
    {56, "Arbeitsauftrag", "Work order"},
    {178, "Holzart", "Species"},
    {199, "Dieses Zeichen passt hier nicht: Das Feld verlangt eine Zahl, die nicht zu groß ist.",
     "This character does not fit here: the field takes a number that is not too large."},
    // 247, 859, the number in quotes, 215, 248: the question before an entry is deleted.
    {215, "wirklich", "really"},
    {220, "Diese Bezeichnung ist bereits vergeben. Bitte wählen Sie eine andere.",
     "This name is already in use. Please choose another one."},
    // Mostly followed by the field's caption in brackets.
    {223, "Die Eingabe fehlt oder ist ungültig.", "The entry is missing or not valid."},
    {232, "Es gibt keinen Beleg mit dieser Nummer.", "There is no voucher with this number."},
    {247, "Soll die", "Should"},
    {248, "gelöscht werden?", "be deleted?"},
    // Headings of the logs of an order in EST piecework.
    {558, "Menge", "Quantity"},
    {594, "Festmeter", "Cubic metres"},
    {663, "Stück", "Pieces"},
    {664, "Durchmesser", "Diameter"},
    {682, "Bloch-Nr.", "Log no."},
    {684, "Sorte", "Grade"},
    {686, "Stärkeklasse", "Size class"},
    {751, "Einheit", "Unit"},
    // A noun for sentences, and the prompt for the name of a plan.
    {859, "Nummer", "Number"},
    {1126, "Spaltanteil %", "Split part %"},
    {1129, "Merkmal", "Mark"},
    {1145, "Raummeter", "Stacked metres"},
    // 1713 and 1181: a stores document that is to be deleted with its positions.
    {1181, "Sollen auch diese Positionen gelöscht werden?", "Should these positions be deleted too?"},
    // 1427, a field's caption or a noun, and 1214 or 1428.
    {1214, "ist nicht vorhanden.", "does not exist."},
    {1427, "Die Angabe", "The entry"},
    {1428, "ist bereits vorhanden.", "already exists."},
    {1429, "Soll dieser Eintrag wirklich gelöscht werden?", "Should this entry really be deleted?"},
    // Also a column's name within a statement, so without a closing bracket.
    {1430, "Zuschlag %", "Surcharge %"},
    {1713, "Zu diesem Lagerbeleg gibt es Positionen.", "This stores document has positions."},
    {1742, "Auftrag und Kosten", "Order and costs"},
    // In the place of a location's path.
    {3442, "Waldort ohne Bezeichnung", "Location without a name"},
    {4443, "Dieser Auftrag ist abgeschlossen. Soll er wieder geöffnet werden?",
     "This order is closed. Should it be opened again?"},
    // 859, the number in quotes, this, and the lists in quotes.
    {4446, "kann nicht storniert werden, weil noch Holzlisten zugeordnet sind:",
     "cannot be cancelled because timber lists are still assigned to it:"},
    {4452,
     "Davon wurde bereits auf Kostenstellen ausgebucht. Der Eintrag kann weder geändert noch gelöscht "
     "werden.",
     "Some of it has already been withdrawn onto cost centres. The entry can be neither changed nor "
     "deleted."},
    {4455, "Die Summe der Positionen ist größer als der Rechnungsbetrag.",
     "The sum of the positions is larger than the invoice amount."},
    // The caption of the quantity while no wage type gives its unit.
    {4680, "Stunden", "Hours"},
    {4687, "Bitte geben Sie Menge, Kosten, Erlös, Stunden, Maschinenstunden oder Fläche ein.",
     "Please enter a quantity, cost, revenue, hours, machine hours or an area."},
    {4688, "Soll dieser Eintrag wirklich storniert werden?", "Should this entry really be cancelled?"},
    {4689, "Status", "Status"},
    {4744, "Die Kosten stimmen nicht mit dem Rechnungsbetrag überein. Soll trotzdem gespeichert werden?",
     "The cost differs from the invoice amount. Should it be saved all the same?"},
    {4756, "Stornodatum", "Date of cancellation"},
    {4941, "Soll dieser Arbeitsauftrag wirklich storniert werden?",
     "Should this wage order really be cancelled?"},
    {5370, "Der laufende Monat ist bereits abgeschlossen. Derzeit kann nicht storniert werden.",
     "The current month is already closed. Nothing can be cancelled at present."},
    {5371, "Diese PA-Gruppe hat bereits Aufträge und kann nicht gelöscht werden.",
     "This product-order group already has orders and cannot be deleted."},
    {5463, "Zeitlohn", "Time wage"},
    {5599, "Plannummer", "Plan number"},
    {5623, "Sonstiger Stücklohn", "Other piecework"},
    {5730, "Bezeichnung der neuen PA-Gruppe", "Name of the new product-order group"},
    {5732, "Soll diese PA-Gruppe wirklich gelöscht werden?",
     "Should this product-order group really be deleted?"},
    {5733, "Diese Auftragsnummer ist bereits vergeben. Bitte wählen Sie eine andere.",
     "This order number is already in use. Please choose another one."},
    {5840,
     "Der Naturalvollzug der stornierten Position passt nicht zur neuen und wird nicht übernommen. Bitte "
     "erfassen Sie ihn neu.",
     "The natural execution of the cancelled position does not fit the new one and is not carried over. "
     "Please enter it again."},
});
static_assert(std::ranges::adjacent_find(kTexts, std::ranges::greater_equal(), &MessageText::number) ==
              kTexts.end());

}  // namespace

std::span<const MessageText> MessageTexts() {
  return kTexts;
}

}  // namespace tarvoni::suite
