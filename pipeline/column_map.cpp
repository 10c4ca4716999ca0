// The one translator shape of the plain column maps.
#include "pipeline/column_map.hpp"

#include <cmath>
#include <cstddef>
#include <string>

#include "pipeline/coded_columns.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane::column_map {

namespace {

bool IsText(const ColumnMap& map, int field) {
  return field < 64 && ((map.text_fields >> field) & 1U) != 0;
}

// The blanks around a slice or a text field are never part of its value.
std::string_view TrimView(std::string_view t) {
  while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
  while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
  return t;
}

// A number written without its point: the digits over 10 to the power of places. Text that
// is no number stays as it is, and fails the figure test.
Value ImpliedPlaces(std::string_view digits, int places) {
  if (!IsNumeric(digits)) return Value(digits);
  const double whole = Value(digits).ToNumber();
  return Value(whole / std::pow(10.0, places));
}

// "$" taken out of a dollars figure; a figure read as a number has none.
Value WithoutDollar(Value figure) {
  if (figure.IsText() && figure.text().find('$') != std::string::npos) {
    return Value(Replace(figure, "$", ""));
  }
  return figure;
}

// The option-box fields: the file's value when the box is ticked, else "".
void OptionField(frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields,
                 const Column& column, Ctl box, Value& into) {
  into = "";
  if (column.given() && F.S.Checked(box)) into = Get(F, map, fields, column);
}

// Step 1 and 2 of the common shape: the defaults, then the identity from the record.
void FillIdentity(frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields) {
  ImportRecord& r = F.ImportRec;
  r.WorkersComp = r.RateNumber = r.Shift = "";
  r.DorE = "E";
  r.Employee_no = Get(F, map, fields, map.employee);
  r.Employee_Name = "";
  if (map.name.given()) {
    std::string name = Get(F, map, fields, map.name).str();
    if (map.first_name.given()) {
      const std::string first = Get(F, map, fields, map.first_name).str();
      if (!first.empty()) name += ", " + first;
    }
    r.Employee_Name = std::move(name);
  }
  OptionField(F, map, fields, map.department, chkDept, r.Department);
  OptionField(F, map, fields, map.division, chkDiv, r.Division);
  OptionField(F, map, fields, map.branch, chkBr, r.Branch);
  OptionField(F, map, fields, map.team, chkTeam, r.Team);
  OptionField(F, map, fields, map.job, chkJob, r.Job);
  OptionField(F, map, fields, map.payrate, chkPayRate, r.payrate);
  r.SSN = "";
  if (map.ssn.given() && F.S.Checked(chkSSN)) {
    const Value number = Get(F, map, fields, map.ssn);
    r.SSN = number.IsNumeric() ? Trim(Format(number, "000000000")) : number.str();
    if (r.SSN == "000000000") r.SSN = "";
  }
  r.Seq = "1";
  if (map.seq.given()) r.Seq = Get(F, map, fields, map.seq);
}

// The figure as it goes out: "$" removed from dollars, the map's picture applied.
Value Figured(const ColumnMap& map, Value figure, Figure kind) {
  if (kind == Figure::Dollars) figure = WithoutDollar(std::move(figure));
  const std::string_view picture = kind == Figure::Hours ? map.hours_picture : map.dollars_picture;
  if (!picture.empty()) return Value(Format(figure, picture));
  return figure;
}

void WriteFigure(frmTimeImport& F, const ColumnMap& map, const Value& figure, Figure kind,
                 Cat category) {
  if (kind == Figure::Hours) {
    F.WriteHours(category, Figured(map, figure, kind));
  } else {
    F.WriteDollars(category, Figured(map, figure, kind).str());
  }
}

// A numbered pay designation through the company's table; one that has no code goes out as
// "?" and is named in the message at the end of the run.
void WriteGrid(frmTimeImport& F, int position, const Value& figure) {
  if (position < 1 || position > 99) return;
  if (WriteCodedColumn(F, position, figure)) {
    F.ColumnValues[static_cast<std::size_t>(position)] = "X";
  }
}

// The record's own figure for a one-write code: hours when the hours column holds some, else
// dollars.
bool CodeFigure(frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields,
                Value& figure, Figure& kind) {
  if (map.code_hours.given()) {
    figure = Get(F, map, fields, map.code_hours);
    kind = Figure::Hours;
    if (NumericAbove0(figure)) return true;
  }
  if (map.code_dollars.given()) {
    figure = WithoutDollar(Get(F, map, fields, map.code_dollars));
    kind = Figure::Dollars;
    if (NumericAbove0(figure)) return true;
  }
  return false;
}

void WriteByCode(frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields) {
  const Value code = Get(F, map, fields, map.code);
  Value figure;
  Figure kind = Figure::Hours;
  switch (map.code_rule) {
    case CodeRule::None:
      return;
    case CodeRule::Lookup:
      for (const PayCode& row : map.codes) {
        if (code.str() != row.code) continue;
        // the row says whether the code pays hours or dollars
        const Column& column = row.kind == Figure::Hours ? map.code_hours : map.code_dollars;
        figure = Get(F, map, fields, column.given() ? column : map.code_hours);
        if (row.kind == Figure::Dollars) figure = WithoutDollar(std::move(figure));
        if (NumericAbove0(figure)) WriteFigure(F, map, figure, row.kind, row.category);
        return;
      }
      if (map.unknown_code) map.unknown_code(F, code);
      return;
    case CodeRule::FromRecord: {
      if (code.str().empty()) {
        if (map.unknown_code) map.unknown_code(F, code);
        return;
      }
      if (!CodeFigure(F, map, fields, figure, kind)) return;
      const Value dore = map.dore.given() ? Get(F, map, fields, map.dore) : Value("E");
      WriteOwnCode(F, code, dore, Figured(map, figure, kind), kind);
      return;
    }
    case CodeRule::Grid: {
      if (!CodeFigure(F, map, fields, figure, kind)) return;
      if (!code.IsNumeric()) {
        if (map.unknown_code) map.unknown_code(F, code);
        return;
      }
      WriteGrid(F, static_cast<int>(code.ToNumber()), figure);
      return;
    }
  }
}

}  // namespace

void WriteOwnCode(frmTimeImport& F, const Value& code, const Value& dore, const Value& figure,
                  Figure kind) {
  ImportRecord& r = F.ImportRec;
  r.Hours = kind == Figure::Hours ? figure : Value("");
  r.Amount = kind == Figure::Dollars ? figure.str() : "";
  r.Earning_Code = code;
  r.DorE = dore.str().empty() ? Value("E") : dore;
  F.WriteOutputRec();
}

Value Get(const frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields,
          const Column& column) {
  if (column.field > 0) {
    if (static_cast<std::size_t>(column.field) >= fields.size() || column.field > map.fields) {
      return Value("");
    }
    const Value& v = fields[static_cast<std::size_t>(column.field)];
    if (!v.IsText()) return v;
    return Value(TrimView(v.text()));
  }
  if (column.width <= 0 || column.start < 1) return Value("");
  const std::string_view rec = F.InRec;
  const std::size_t from = static_cast<std::size_t>(column.start - 1);
  if (from >= rec.size()) return Value("");
  const std::string_view slice = TrimView(rec.substr(from, static_cast<std::size_t>(column.width)));
  if (column.places >= 0) return ImpliedPlaces(slice, column.places);
  return Value(slice);
}

bool Tipped(const frmTimeImport& F, const ColumnMap& map, std::span<const Value> fields) {
  if (!map.rate.given()) return false;
  const Value rate = Get(F, map, fields, map.rate);
  return rate.IsNumeric() && Below(rate, Value(F.S[txtMinWage].text));
}

bool ReadRecord(frmTimeImport& F, const ColumnMap& map, std::span<Value> fields) {
  InputFile& file = F.File(1);
  std::string text;
  for (int i = 1; i <= map.fields; ++i) {
    Value& into = fields[static_cast<std::size_t>(i)];
    if (IsText(map, i)) {
      file.Input(text);
      into = Value(text);
    } else {
      file.Input(into);
    }
  }
  return !Get(F, map, fields, map.employee).str().empty();
}

void SplitLine(const ColumnMap& map, std::string_view line, std::span<Value> fields) {
  std::size_t pos = 0;
  for (int i = 1; i <= map.fields; ++i) {
    Value& into = fields[static_cast<std::size_t>(i)];
    if (pos > line.size()) {
      into = Value("");
      continue;
    }
    std::size_t end = line.find(map.separator, pos);
    if (end == std::string_view::npos) end = line.size();
    std::string_view field = TrimView(line.substr(pos, end - pos));
    if (field.size() >= 2 && field.front() == '"' && field.back() == '"') {
      field = field.substr(1, field.size() - 2);
    }
    into = IsText(map, i) ? Value(field) : FieldValue(field, false);
    pos = end + 1;
  }
}

void Translate(frmTimeImport& F, const ColumnMap& map, std::span<Value> fields) {
  if (map.is_record) {
    if (!map.is_record(F.InRec)) return;
    ++F.TCcount;
  }
  FillIdentity(F, map, fields);
  if (F.ImportRec.Employee_no.str().empty()) return;
  if (map.extra && !map.extra(F)) return;

  const bool tipped = Tipped(F, map, fields);
  for (const PayColumn& pay : map.pay) {
    Value figure = Get(F, map, fields, pay.column);
    if (pay.kind == Figure::Dollars) figure = WithoutDollar(std::move(figure));
    if (!NumericAbove0(figure)) continue;
    if (pay.position > 0) {
      WriteGrid(F, pay.position, figure);
    } else {
      WriteFigure(F, map, figure, pay.kind, tipped && pay.to_wait ? pay.wait : pay.category);
    }
  }
  WriteByCode(F, map, fields);
}

}  // namespace corvane::column_map
