#include "src/vouchers/f_belege_new_sql.h"

#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"

namespace tarvoni::voucher_sql {
namespace {

SqlText Vouchers(const SqlText& of_rows, std::string_view local_currency) {
  return Compose(R"(
SELECT (CASE WHEN ISNULL(BELEGE.STORNO,0)=0 THEN ' ' ELSE 'S' END), BUCHUNGSDAT,NUMMER, RECHNUMER,RECHDATUM,
  ISNULL(RECHBERTRAG,0) AS RECHBERTRAG,(CASE WHEN RECHEURO=1 THEN 'EUR' ELSE '{}' END),
  (SELECT NUMBER FROM HH_KAPITEL WHERE ID = KAPITEL_ID) AS KAPITEL,
  (SELECT NUMBER FROM HH_TITEL WHERE ID = TITEL_ID) AS TITEL, HULNR,TAGANORD,
  (SELECT NUMBER FROM ZUHLUNGSART WHERE ID = ZAHLUNGSART) AS ZAHLUNGSART_NUMBER,
  (SELECT NUMBER FROM ZUHLUNGSGRUND WHERE ID = ZAHLUNGSGRUND) AS ZAHLUNGSGRUND_NUMBER,
  (SELECT KURZBEZEICHNUNG FROM PERSONAL WHERE ID_PERSONAL = ZAHLUNGSEMF) AS PERSONAL,
  (SELECT NAME FROM HH_KAPITEL WHERE ID = KAPITEL_ID) AS KAPITEL_LANG,
  (SELECT NAME FROM HH_TITEL WHERE ID = TITEL_ID) AS TITEL_LANG,
  (SELECT NAME FROM ZUHLUNGSART WHERE ID = ZAHLUNGSART) AS ZAHLUNGSART_NAME,
  (SELECT NAME FROM ZUHLUNGSGRUND WHERE ID = ZAHLUNGSGRUND) AS ZAHLUNGSGRUND_NAME, *
FROM BELEGE
WHERE ID IN ( SELECT ARBEITSAUFTRAG.BELEGE_ID
              FROM ARBEITSAUFTRAG_KOPF
              INNER JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
              WHERE {})
ORDER BY 1,2,3,4)",
                 Quoted(local_currency), of_rows);
}

// What is no number is 0.
SqlText Amount(std::string_view typed) {
  return IsNumeric(typed, CurrentLocale()) ? Number(typed) : SqlText("0");
}

}  // namespace

SqlText VouchersOfClient(std::int32_t client, std::string_view local_currency) {
  return Vouchers(Compose("ARBEITSAUFTRAG_KOPF.PERSONAL_ID = {}", Id(client)), local_currency);
}

SqlText VouchersOfPosition(std::int32_t position, std::string_view local_currency) {
  return Vouchers(Compose("ARBEITSAUFTRAG.ID = {}", Id(position)), local_currency);
}

SqlText CodesOf(std::string_view table, std::int32_t client) {
  return Compose(R"(
SELECT NUMBER, NAME
FROM {}
WHERE (DISABLE = 0 OR DISABLE IS NULL) and TABLE_NAME IN (SELECT {} FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 Name(table), Name(table), Id(client));
}

SqlText UpdateVoucher(std::int32_t voucher, const Header& header, std::string_view sql_date_format) {
  return Compose(R"(
UPDATE BELEGE
SET NUMMER = {},BUCHUNGSDAT = {},KAPITEL_ID = {},TITEL_ID = {},HULNR = {},TAGANORD = {},
  RECHNUMER = {},RECHDATUM = {},RECHBERTRAG = {},RECHEURO = {},
  ZAHLUNGSART = {},ZAHLUNGSGRUND = {},ZAHLUNGSEMF = {}
WHERE ID = {})",
                 TextOrNull(header.number), DateOrNull(header.booked, sql_date_format),
                 IdOrNull(header.chapter), IdOrNull(header.title), TextOrNull(header.hul),
                 DateOrNull(header.ordered, sql_date_format), TextOrNull(header.invoice),
                 DateOrNull(header.invoiced, sql_date_format), Amount(header.amount), Flag(header.euro),
                 IdOrNull(header.payment_kind), IdOrNull(header.payment_reason), IdOrNull(header.payee),
                 Id(voucher));
}

SqlText InsertVoucher(const Header& header, std::string_view sql_date_format) {
  return Compose(R"(
INSERT INTO BELEGE (NUMMER,BUCHUNGSDAT,KAPITEL_ID,TITEL_ID,HULNR,TAGANORD,RECHNUMER,RECHDATUM,RECHBERTRAG,RECHEURO,
  ZAHLUNGSART,ZAHLUNGSGRUND,ZAHLUNGSEMF)
VALUES ({},{},{},{},{},{},{},{},{},{},{},{},{}))",
                 TextOrNull(header.number), DateOrNull(header.booked, sql_date_format),
                 IdOrNull(header.chapter), IdOrNull(header.title), TextOrNull(header.hul),
                 DateOrNull(header.ordered, sql_date_format), TextOrNull(header.invoice),
                 DateOrNull(header.invoiced, sql_date_format), Amount(header.amount), Flag(header.euro),
                 IdOrNull(header.payment_kind), IdOrNull(header.payment_reason), IdOrNull(header.payee));
}

SqlText LastVoucher() {
  return "SELECT ISNULL(MAX(ID),0) FROM BELEGE";
}

SqlText VoucherWithNumber(std::string_view number, std::int32_t other_than) {
  return Compose("SELECT ID FROM BELEGE WHERE NUMMER = '{}' AND ID <> {}", Quoted(number), Id(other_than));
}

SqlText DeleteVoucher(std::int32_t voucher) {
  return Compose("DELETE FROM BELEGE WHERE ID = {}", Id(voucher));
}

SqlText TakeBackRow(std::int32_t position) {
  return Compose(R"(
DELETE FROM NATURALVOLLZUG_KLR WHERE ID_ARBEITSAUFTRAG = {}
DELETE FROM ARBEITSAUFTRAG WHERE ID = {})",
                 Id(position), Id(position));
}

SqlText VoucherInForce(std::int32_t voucher) {
  return Compose("SELECT ID FROM BELEGE WHERE ID = {} AND ISNULL(STORNO,0) = 0", Id(voucher));
}

SqlText CancelVoucher(std::int32_t voucher) {
  return Compose("UPDATE BELEGE SET STORNO = 1 WHERE ID = {}", Id(voucher));
}

SqlText CancelRowsOf(std::int32_t voucher, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE BELEGE_ID = {}",
                 DateOrNull(day, sql_date_format), Id(voucher));
}

SqlText CancelRow(std::int32_t position, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE ID = {}", DateOrNull(day, sql_date_format),
                 Id(position));
}

SqlText RowsInForce(std::int32_t voucher) {
  return Compose(R"(
SELECT ID
FROM ARBEITSAUFTRAG
WHERE ARBEITSAUFTRAG.STORNODATUM IS NULL AND BELEGE_ID = {})",
                 Id(voucher));
}

SqlText TimberListsOf(std::int32_t position) {
  return Compose("SELECT DISTINCT LISTE FROM LOGS WHERE AA_ID={}", Id(position));
}

SqlText OrdersOf(std::int32_t position) {
  return Compose("SELECT ORDERS FROM ARBEITSAUFTRAG WHERE ID = {}", Id(position));
}

}  // namespace tarvoni::voucher_sql
