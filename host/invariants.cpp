#include "host/invariants.h"

#include "suite/report_service.h"

namespace tarvoni::host {

std::span<const Invariant> Rules() {
  static const std::vector<Invariant> rules = {
      {"Zu jedem Lohnauftrag gehört genau eine Kostenposition mit der Quelle A.",
       R"(
SELECT K.ID AS ARA_KOPF, COUNT(P.ID) AS POSITIONEN
FROM ARA_KOPF K
LEFT JOIN ARBEITSAUFTRAG P ON P.ID_ARA_KOPF = K.ID AND P.QUELLE = 'A'
GROUP BY K.ID
HAVING COUNT(P.ID) <> 1
ORDER BY K.ID)"},
      {"Eine Kostenposition mit der Quelle A gehört zu einem Lohnauftrag.",
       R"(
SELECT ID AS ARBEITSAUFTRAG
FROM ARBEITSAUFTRAG
WHERE QUELLE = 'A'
  AND ID_ARA_KOPF IS NULL
ORDER BY ID)"},
      {"Zu jeder Zeile des Bruttolohnbuchs gehört genau eine Kostenposition mit der Quelle B.",
       R"(
SELECT S.ID AS STUNDENBUCH, COUNT(P.ID) AS POSITIONEN
FROM STUNDENBUCH S
LEFT JOIN ARBEITSAUFTRAG P ON P.ID_STUNDENBUCH = S.ID AND P.QUELLE = 'B'
GROUP BY S.ID
HAVING COUNT(P.ID) <> 1
ORDER BY S.ID)"},
      {"Eine Kostenposition mit der Quelle B gehört zu einer Zeile des Bruttolohnbuchs.",
       R"(
SELECT ID AS ARBEITSAUFTRAG
FROM ARBEITSAUFTRAG
WHERE QUELLE = 'B'
  AND ID_STUNDENBUCH IS NULL
ORDER BY ID)"},
      {"Eine Kostenposition mit der Quelle L gehört zu einer Ware des Lagers.",
       R"(
SELECT ID AS ARBEITSAUFTRAG
FROM ARBEITSAUFTRAG
WHERE QUELLE = 'L'
  AND ID_LAGER_POS IS NULL
ORDER BY ID)"},
      {"Jede Stundenzeile gehört zu einem Lohnauftrag und hat Arbeiter, Bearbeitungsmonat und "
       "Verlohnungstag.",
       R"(
SELECT ID AS ARA_STUNDEN
FROM ARA_STUNDEN
WHERE ID_ARA_KOPF IS NULL
  OR ID_PERSONAL IS NULL
  OR BEARBEITUNG IS NULL
  OR VERLOHNUNG IS NULL
ORDER BY ID)"},
      {"Der Verlohnungsmonat einer Stundenzeile liegt nicht nach ihrem Bearbeitungsmonat.",
       R"(
SELECT ID AS ARA_STUNDEN
FROM ARA_STUNDEN
WHERE YEAR(VERLOHNUNG)*100+MONTH(VERLOHNUNG) > YEAR(BEARBEITUNG)*100+MONTH(BEARBEITUNG)
ORDER BY ID)"},
      {"Jede Lohnzeile gehört zu einem Lohnauftrag.",
       "SELECT ID AS ARA_LOHN FROM ARA_LOHN WHERE ID_ARA_KOPF IS NULL ORDER BY ID"},
      {"Jede Zeile des Bruttolohnbuchs gehört zu einem Kopf.",
       "SELECT ID AS STUNDENBUCH FROM STUNDENBUCH WHERE ID_STUNDENBUCH IS NULL ORDER BY ID"},
      {"Ein Arbeiter hat für jeden Monat höchstens ein Bruttolohnbuch.",
       R"(
SELECT ID_PERSONAL AS PERSONAL, JAHR, MONAT
FROM STUNDENBUCH_HEADER
GROUP BY ID_PERSONAL, JAHR, MONAT
HAVING COUNT(*) > 1
ORDER BY ID_PERSONAL, JAHR, MONAT)"},
      {"Ein Lohnmonat steht nur einmal im Lohnabschluss, und es gibt ihn im Kalender.",
       R"(
SELECT JAHR, MONAT
FROM LOHNABSCHLUSS
GROUP BY JAHR, MONAT
HAVING COUNT(*) > 1 OR MONAT NOT BETWEEN 1 AND 12
ORDER BY JAHR, MONAT)"},
      {"Der Betrag eines Lohnauftrags mit Stunden ist die Summe dessen, was seine Stunden wert sind; wer sie mit "
       "„Stunden“ öffnet und schließt, lässt ihn neu rechnen.",
       suite::OrdersWithAnotherTotal()},
      {"Die Nummer eines Produktauftrags kommt je Mandant, Jahr und Revier nur einmal vor.",
       R"(
SELECT MIN(ID) AS ARBEITSAUFTRAG_KOPF, PERSONAL_ID, NAME_FWJ, NAME_REVIER, NAME_NUMMER
FROM ARBEITSAUFTRAG_KOPF
WHERE NAME_NUMMER IS NOT NULL
GROUP BY PERSONAL_ID, NAME_FWJ, NAME_REVIER, NAME_NUMMER
HAVING COUNT(*) > 1
ORDER BY 1)"},
      {"Ein Naturalvollzug gehört entweder zu einer Lohnzeile oder zu einer Kostenposition.",
       R"(
SELECT ID AS NATURALVOLLZUG_KLR
FROM NATURALVOLLZUG_KLR
WHERE (ID_ARA_LOHN IS NULL AND ID_ARBEITSAUFTRAG IS NULL)
  OR (ID_ARA_LOHN IS NOT NULL AND ID_ARBEITSAUFTRAG IS NOT NULL)
ORDER BY ID)"},
      {"Zu einer Lohnzeile oder Kostenposition gibt es höchstens einen Naturalvollzug.",
       R"(
SELECT MIN(ID) AS NATURALVOLLZUG_KLR, ID_ARA_LOHN, ID_ARBEITSAUFTRAG
FROM NATURALVOLLZUG_KLR
GROUP BY ID_ARA_LOHN, ID_ARBEITSAUFTRAG
HAVING COUNT(*) > 1
ORDER BY 1)"},
      {"Ein Waldort gehört zu einem Naturalvollzug und steht dort nur einmal.",
       R"(
SELECT MIN(ID) AS NATURALVOLLZUG_KLR_WALDORT, ID_NATURALVOLLZUG_KLR, ID_WALDORT
FROM NATURALVOLLZUG_KLR_WALDORT
GROUP BY ID_NATURALVOLLZUG_KLR, ID_WALDORT
HAVING COUNT(*) > 1
  OR ID_NATURALVOLLZUG_KLR IS NULL
  OR ID_WALDORT IS NULL
ORDER BY 1)"},
      {"Eine Kostenposition ohne Quelle gehört zu einem Auftrag.",
       R"(
SELECT ID AS ARBEITSAUFTRAG
FROM ARBEITSAUFTRAG
WHERE QUELLE IS NULL
  AND ARBEITSAUFTRAG_KOPF_ID IS NULL
ORDER BY ID)"},
      {"Jede Position eines Plans gehört zu einem Plan.",
       "SELECT ID AS ARBEITSAUFTRAG_PLANN FROM ARBEITSAUFTRAG_PLANN WHERE AA_PLANN_ID IS NULL ORDER BY ID"},
      {"Jede Ware des Lagers gehört zu einem Lagerbeleg.",
       "SELECT ID AS LAGER_POS FROM LAGER_POS WHERE LAGER_ID IS NULL ORDER BY ID"},
      {"Zu jedem Beleg gibt es wenigstens eine Kostenposition.",
       R"(
SELECT B.ID AS BELEGE
FROM BELEGE B
WHERE NOT EXISTS(SELECT P.ID FROM ARBEITSAUFTRAG P WHERE P.BELEGE_ID = B.ID)
ORDER BY B.ID)"},
      {"Auf einem stornierten Beleg sind alle Kostenpositionen storniert.",
       R"(
SELECT P.ID AS ARBEITSAUFTRAG, B.ID AS BELEGE
FROM BELEGE B
INNER JOIN ARBEITSAUFTRAG P ON P.BELEGE_ID = B.ID
WHERE B.STORNO = 1
  AND P.STORNODATUM IS NULL
ORDER BY P.ID)"},
      {"Aus dem Lager geht nicht mehr ab, als da ist.",
       R"(
SELECT W.ID AS LAGER_POS
FROM LAGER_POS W
INNER JOIN ARBEITSAUFTRAG P ON P.ID_LAGER_POS = W.ID
WHERE P.STORNODATUM IS NULL
GROUP BY W.ID, W.MENGE
HAVING SUM(P.LAGERMENGE) > ISNULL(W.MENGE, 0)
ORDER BY W.ID)"},
      {"Der Name einer Holzliste kommt nur einmal vor.",
       R"(
SELECT MIN(ID) AS LISTENKOPF, LISTE
FROM LISTENKOPF
GROUP BY LISTE
HAVING COUNT(*) > 1
ORDER BY LISTE)"},
      {"Jede Person gehört zu einem Mandanten oder ist selbst einer.",
       R"(
SELECT P.ID_PERSONAL AS PERSONAL
FROM PERSONAL P
INNER JOIN PERSONAL M ON M.ID_PERSONAL = P.ID_MANDANTEN
WHERE ISNULL(M.MANDANTEN, 0) = 0
ORDER BY 1)"},
      {"Ein Wert mit Datum gehört zu einer Person oder Lohnart.",
       R"(
SELECT D.ID AS ONETODATE, D.TABLE_COLUMN, D.TABLE_ID
FROM ONETODATE D
WHERE (D.TABLE_COLUMN LIKE 'PERSONAL.%' AND NOT EXISTS(SELECT P.ID_PERSONAL FROM PERSONAL P WHERE P.ID_PERSONAL = D.TABLE_ID))
  OR (D.TABLE_COLUMN LIKE 'LOHNARTEN.%' AND NOT EXISTS(SELECT L.ID FROM LOHNARTEN L WHERE L.ID = D.TABLE_ID))
ORDER BY D.ID)"},
      {"Die Zuordnungen der Leistungsarten verbinden, was es gibt.",
       R"(
SELECT V.RELATION, V.ID_MASTER, V.ID_SLAVE
FROM ONETOMANY V
LEFT JOIN LEISTUNGSART L ON L.ID = (CASE V.RELATION WHEN 'KOSTENART.LEISTUNGSART' THEN V.ID_SLAVE ELSE V.ID_MASTER END)
LEFT JOIN KOSTENART K ON K.ID = V.ID_MASTER
LEFT JOIN NUTZUNGSART N ON N.ID = V.ID_SLAVE
WHERE L.ID IS NULL
  OR (V.RELATION = 'KOSTENART.LEISTUNGSART' AND K.ID IS NULL)
  OR (V.RELATION = 'LEISTUNGSART.NUTZUNGSART' AND N.ID IS NULL)
ORDER BY 1, 2, 3)"},
  };
  return rules;
}

std::vector<Invariant> Invariants() {
  std::vector<Invariant> all(Rules().begin(), Rules().end());
  for (const Reference& reference : References()) all.push_back(InvariantOf(reference));
  return all;
}

}  // namespace tarvoni::host
