#pragma once

// What the emitted statements ask of the database that runs them, beyond SQLite's own functions.
//
// An exact value (decimal or money) is an INTEGER in units of its last place, or, beyond 64 bits, a BLOB of
// 16 bytes (two's complement, most significant byte first). A REAL where an exact value or a whole number is
// due is an overflow of SQLite's integer arithmetic: error 8115. NULL in gives NULL out everywhere unless
// told. `kind` is the number of a TypeKind. Every function is deterministic but those marked (*).
//
//   ts_int_range(x, kind)            x, or 8115 when a whole-number result does not fit its type
//   ts_int_sum(kind, a, b, …)        whole numbers added from left to right, each result tested like that
//   ts_int_product(kind, a, b, …)
//   ts_int_cast(x, kind)             a whole number as another type: 220 for tinyint and smallint, 8115 for int;
//                                    as a bit 0 or 1
//   ts_int_from_text(t, kind)        '' is 0; 245 for no number, 8114 where a bigint is due; too large: 248 int, 244
//                                    smallint and tinyint, 8115 bigint; a bit also takes 'true' and 'false'
//   ts_int_from_exact(x, scale, kind, round)   cuts, or rounds half away from zero when round is 1; 8115
//   ts_int_from_float(x, kind)       cuts; 232 when too large
//   ts_int_div(a, b), ts_int_mod(a, b), ts_float_div(a, b)   8134 for b = 0
//
//   ts_exact_from_text(t, precision, scale)    rounds half away from zero; 8114 for no number, 8115 when too large
//   ts_money_from_text(t)            also with a currency sign and group commas; 235 for no amount
//   ts_exact_from_float(x, precision, scale)
//   ts_exact_rescale(x, from, to, precision)   rounds half away from zero; 8115 beyond `precision` digits
//   ts_exact_add(a, b, …)            of one scale
//   ts_exact_neg(a), ts_exact_abs(a)
//   ts_exact_mul(a, b, drop)         product with its last `drop` places rounded away
//   ts_exact_div(a, b, shift)        a times ten to the power of shift (which may be negative), by b, cut; 8134
//   ts_exact_money(x)                x, or 8115 beyond 64 bits
//   ts_exact_cmp(a, scale_a, b, scale_b)       -1, 0, 1
//   ts_exact_key(x)                  a BLOB that sorts and groups as x does
//   ts_exact_sum(x), ts_exact_min(x), ts_exact_max(x)   aggregates over wide values; the sum of nothing is NULL
//   ts_round(x, scale, places, precision)      half away from zero, same scale, places may be negative; scale 0 for
//                                    whole numbers; 8115 beyond `precision` digits
//   ts_round_float(x, places)
//
//   ts_float_from_text(t)            '' is 0; 8114
//   ts_float_from_exact(x, scale)
//   ts_float_range(x)                x, or 8115 for an infinite one
//   ts_real(x)                       the nearest number of 24 bits
//
//   ts_text_from_exact(x, scale)     all places: '12.50'
//   ts_text_from_money(x)            two places, rounded: '12.50'
//   ts_text_from_float(x)            at most six significant digits, as a server's implicit conversion gives
//   ts_text_from_date(d)             'Feb 29 2024  1:45PM'
//   ts_text_cast(t, length, fixed)   cut to length; padded with blanks when fixed is 1
//   ts_int_text_cast(x, length, fixed)         '*' when the digits do not fit
//   ts_number_text_cast(t, length, fixed)      8115 when the digits do not fit
//   ts_text_store(t, length, fixed)  blanks beyond length are cut; 8152 for anything else there; padded when fixed
//   ts_left(t, n), ts_right(t, n), ts_len(t), ts_rtrim(t), ts_ltrim(t), ts_upper(t), ts_lower(t)   in characters;
//                                    ts_len leaves trailing blanks out; ts_upper keeps 'ß'
//   ts_isnumeric(t)                  0 or 1, also for NULL (0)
//   ts_like(t, pattern)              %, _, [a-z], [^a-z]; without regard to case and to trailing blanks of t
//   ts_like_unicode(t, pattern)      the same, but every blank counts
//
//   ts_date_from_text(t) (*)         by the connection's DATEFORMAT; '' is 1 January 1900; 241 no date, 242 no such
//                                    day
//   ts_date_from_days(x)             REAL days since 1 January 1900
//   ts_date_add(d, x, …)             REAL days; 517 outside of the calendar
//   ts_date_minutes(d)               to the nearest minute; 242 outside of the years from 1900 to 2079
//
//   ts_part(n, x, …) (*)             the value of the statement's nth part (Sql::parts) with these arguments; the one
//                                    function that gets NULLs too
//   ts_raise(number) (*)             ends the statement with that error
//   ts_next_identity(table) (*)      the table's next identity value, never given again
//   ts_ident_current(table) (*)      the last one given; the seed before the first; NULL for a table without one
//
// The collation TSQL compares text without regard to case (umlauts too) and trailing blanks, orders umlauts
// beside their letter, and holds for every text column.
namespace tarvoni::tsql {

inline constexpr const char* kCollation = "TSQL";
// Table of the file in which identity columns are kept: table_name, column_name, seed, step, last (NULL at
// first).
inline constexpr const char* kIdentityTable = "tarvoni_identity";
// Table of the file with one row: mark, which tells the file and its copies from all others.
inline constexpr const char* kMarkTable = "tarvoni_mark";

}  // namespace tarvoni::tsql
