// ADI: the line export, whose hour columns are the company's numbered pay designations, and
// the fixed records of version 9.4.1, which carry their own earning code.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

// Fields 3 to 12 hold the hours of pay designations 1 to 10.
constexpr PayColumn kADIDesignations[] = {
    Designation(Field(3), 1),   Designation(Field(4), 2),  Designation(Field(5), 3),
    Designation(Field(6), 4),   Designation(Field(7), 5),  Designation(Field(8), 6),
    Designation(Field(9), 7),   Designation(Field(10), 8), Designation(Field(11), 9),
    Designation(Field(12), 10),
};

constexpr ColumnMap kADIMap = [] {
  ColumnMap m;
  m.translator = "ADI";
  m.fields = 12;
  m.text_fields = TextFields({1});  // the employee number keeps its leading zeros
  m.is_record = BeginsWithDigit;
  // the export has no closing line: its last line is an employee's
  m.translate_last_line = true;
  m.employee = Field(1);
  m.name = Field(2);
  m.pay = kADIDesignations;
  return m;
}();

// 129 bytes, line end included; the figures carry their decimal point.
constexpr ColumnMap kADI941Map = [] {
  ColumnMap m;
  m.translator = "ADI941";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 25);
  m.code_rule = CodeRule::FromRecord;
  m.dore = Slice(47, 1);
  m.code = Slice(48, 4);
  m.code_hours = Slice(52, 7);
  m.code_dollars = Slice(59, 9);
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  return m;
}();

}  // namespace

extern const Translator kADITranslator = MapTranslator<kADIMap>(MapInput::Lines);
extern const Translator kADI941Translator = MapTranslator<kADI941Map>(MapInput::Lines);

}  // namespace corvane
