// The time clocks whose record is a plain map of columns: one descriptor a format says where
// the employee, the option-box fields and the figures stand and which category each figure
// is paid under, and one translator shape reads it. A format's code is only what a table
// cannot say, in its hooks.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/value.hpp"
#include "screen/screen.hpp"

namespace corvane {

class frmTimeImport;

// Where a value stands in a record: a comma field by its number, counted from 1, or a slice
// of the record's line, its first byte counted from 1. A slice with places >= 0 holds a number
// written without its point: "000850" with 2 places is 8.5.
struct Column {
  int field = 0;
  int start = 0;
  int width = 0;
  int places = -1;
  constexpr bool given() const { return field > 0 || width > 0; }
};
constexpr Column Field(int n) {
  return {n, 0, 0, -1};
}
constexpr Column Slice(int start, int width, int places = -1) {
  return {0, start, width, places};
}

// The fields of a map read as text, by their numbers: TextFields({1, 3}).
constexpr std::uint64_t TextFields(std::initializer_list<int> fields) {
  std::uint64_t bits = 0;
  for (int f : fields) bits |= std::uint64_t{1} << f;
  return bits;
}

enum class Figure : std::uint8_t { Hours, Dollars };

// A figure of the record, paid under a category's boxes; or, with a position (1 to 99), under
// the earning code the company's table gives that numbered pay designation, as hours or
// dollars as the table says.
struct PayColumn {
  Column column;
  Figure kind = Figure::Hours;
  Cat category = Cat::Reg;
  int position = 0;
  // Tipped staff (the map's `rate` below txtMinWage) are paid under `wait` instead.
  bool to_wait = false;
  Cat wait = Cat::WaitReg;
};

// A figure paid under a category's boxes.
constexpr PayColumn PaidAs(Column column, Cat category, Figure kind = Figure::Hours) {
  PayColumn pay;
  pay.column = column;
  pay.category = category;
  pay.kind = kind;
  return pay;
}

// Hours paid by the company's earning code for a numbered pay designation.
constexpr PayColumn Designation(Column column, int position) {
  PayColumn pay;
  pay.column = column;
  pay.position = position;
  return pay;
}

// A pay code of the record's code column, the category it is paid under and its figure.
struct PayCode {
  std::string_view code;
  Cat category;
  Figure kind = Figure::Hours;
};

// How a record with a code column goes out: once, with the figure of `code_hours` or of
// `code_dollars`.
enum class CodeRule : std::uint8_t {
  None,        // no code column: every figure of `pay` goes out under its own category
  Lookup,      // the code, trimmed and compared as exact text, picks a row of `codes`
  FromRecord,  // the code is the earning code itself; `dore` (or "E") gives the D-or-E
  Grid,        // the code is a numbered pay designation (1 to 99) paid through the company's table
};

struct ColumnMap {
  std::string_view translator{};  // the translator's name in the dispatch table
  // Comma fields a record (the comma shapes, or a whole line split at `separator`); 0 for a
  // record read only by slices.
  int fields = 0;
  // Fields read as text keep their characters (leading zeros, blanks); the others become
  // numbers where they look like one. Bit n is field n.
  std::uint64_t text_fields = 0;
  // Lines dropped before the first record (the heading-then-comma and whole-line shapes).
  int heading_lines = 0;
  // The whole-line shape: a line is split at this character into `fields` fields, double
  // quotes around a field removed.
  char separator = ',';

  // Whole lines and fixed records: which are employee records (headings, page breaks and
  // totals are not); nullptr takes every one. Only records that pass are counted.
  bool (*is_record)(std::string_view record) = nullptr;
  // The whole-line shape: the last line is translated too.
  bool translate_last_line = false;

  // Identity. Employee_no, trimmed; a record whose number is blank writes nothing. The comma
  // shapes pass it over uncounted; whole lines and fixed records count it unless is_record
  // keeps it out.
  Column employee{};
  // Employee_Name, trimmed; with first_name given it is "name, first" (a blank first name adds
  // nothing).
  Column name{};
  Column first_name{};
  // Fields under the option boxes: taken, trimmed, when the box is ticked, else "".
  Column department{};  // chkDept
  Column division{};    // chkDiv
  Column branch{};      // chkBr
  Column team{};        // chkTeam
  Column job{};         // chkJob
  Column payrate{};     // chkPayRate
  Column ssn{};         // chkSSN: picture "000000000" where numeric, all zeros blanked
  // Seq from the file; "1" without it.
  Column seq{};
  // The record's pay rate, tested against txtMinWage: a rate below it marks tipped staff, whose
  // figures go out under their columns' wait categories. A blank or non-numeric rate marks
  // nobody.
  Column rate{};

  // The figures, each under its category, in the order they go out.
  std::span<const PayColumn> pay{};

  // One write per record by the record's own code.
  CodeRule code_rule = CodeRule::None;
  Column code{};
  Column dore{};  // FromRecord: the D-or-E of the line
  Column code_hours{};
  Column code_dollars{};
  std::span<const PayCode> codes{};  // Lookup
  // A code the rule cannot place: Lookup's unknown code, FromRecord's blank code. Without a
  // hook the record is passed over silently.
  void (*unknown_code)(frmTimeImport& F, const Value& code) = nullptr;

  // Pictures of the figures as they go out; "" writes them as read.
  std::string_view hours_picture{};
  std::string_view dollars_picture{};

  // What a table cannot say: called after the identity is filled and before the figures go
  // out. It may change ImportRec; false passes the record over.
  bool (*extra)(frmTimeImport& F) = nullptr;
};

// The shape's steps, for a format's own hooks and tests.
namespace column_map {

// Reads one comma record of the map's fields into fields (entries 1 to map.fields); false
// passes the record over (its employee is blank).
bool ReadRecord(frmTimeImport& F, const ColumnMap& map, std::span<Value> fields);
// Translates the record: fields for the comma shapes, F.InRec for slices and split lines.
void Translate(frmTimeImport& F, const ColumnMap& map, std::span<Value> fields);
// The value of a column of the record just read, trimmed (a slice's implied places applied).
Value Get(const frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields,
          const Column& column);
// One line under the record's own earning code: the figure as hours or as dollars, the
// other left empty, and a blank D-or-E sent as "E".
void WriteOwnCode(frmTimeImport& F, const Value& code, const Value& dore, const Value& figure,
                  Figure kind);
// Whether the record's rate marks tipped staff: numeric and below txtMinWage.
bool Tipped(const frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields);

inline constexpr int kMaxFields = 63;

template <const ColumnMap& M>
struct Fields {
  Value f[kMaxFields + 1];
};

// Splits a whole line at the map's separator into fields 1 to map.fields, double quotes
// around a field removed; fields past the line's end are blank.
void SplitLine(const ColumnMap& map, std::string_view line, std::span<Value> fields);

template <const ColumnMap& M>
bool Read(frmTimeImport& F) {
  return ReadRecord(F, M, F.Fields<Fields<M>>().f);
}
template <const ColumnMap& M>
void TranslateComma(frmTimeImport& F) {
  Translate(F, M, F.Fields<Fields<M>>().f);
}
template <const ColumnMap& M>
void TranslateLine(frmTimeImport& F) {
  auto& f = F.Fields<Fields<M>>().f;
  if (M.fields > 0) SplitLine(M, F.InRec, f);
  Translate(F, M, f);
}

}  // namespace column_map

// How the branch hands a record to a map.
enum class MapInput : std::uint8_t {
  CommaFields,  // the comma shapes: the map's fields are read by comma-field reads
  Lines,        // whole lines and fixed records: the line or record in InRec
};

// The translator of a map.
template <const ColumnMap& M>
constexpr Translator MapTranslator(MapInput input) {
  static_assert(M.fields <= column_map::kMaxFields, "more fields than a map can hold");
  const bool comma = input == MapInput::CommaFields;
  return Translator{
      .name = M.translator,
      .heading_lines = M.heading_lines,
      .read = comma ? &column_map::Read<M> : nullptr,
      .translate = comma ? &column_map::TranslateComma<M> : &column_map::TranslateLine<M>,
      .translate_last_line = M.translate_last_line,
      .reader_counts = M.is_record == nullptr,
  };
}

}  // namespace corvane
