// Homewatch: the caregivers' payroll export in three forms: the comma report a line per
// caregiver, the 139-byte records a line per pay code, and the 121-byte records that carry
// the earning code itself.
#include "pipeline/column_map.hpp"
#include "pipeline/time_import.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr PayColumn kHomewatchPay[] = {
    PaidAs(Field(4), Cat::Reg),
    PaidAs(Field(5), Cat::OT),
    PaidAs(Field(6), Cat::Hol),
    PaidAs(Field(7), Cat::e15, Figure::Dollars),  // mileage reimbursed
    PaidAs(Field(8), Cat::e16, Figure::Dollars),  // expenses reimbursed
    PaidAs(Field(9), Cat::e17),                   // travel time
};

constexpr ColumnMap kHomewatchMap = [] {
  ColumnMap m;
  m.translator = "Homewatch";
  m.fields = 9;
  m.text_fields = TextFields({1, 3});
  m.is_record = BeginsWithDigit;
  m.employee = Field(1);
  m.name = Field(2);
  m.department = Field(3);
  m.pay = kHomewatchPay;
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  return m;
}();

constexpr PayCode kHomewatch2Codes[] = {
    {"REG", Cat::Reg, Figure::Hours},
    {"HOL", Cat::Hol, Figure::Hours},
    {"MILE", Cat::e15, Figure::Dollars},
    {"TR", Cat::e16, Figure::Hours},
};

constexpr Column kHomewatch2Code = Slice(48, 4);

// Travel between clients is paid at the minimum wage: its line carries the MinWage box as
// its rate. Other lines carry none.
bool Homewatch2_TravelRate(frmTimeImport& F) {
  const Value code = column_map::Get(F, ColumnMap{}, {}, kHomewatch2Code);
  if (code.str() == "TR") F.ImportRec.payrate = Value(F.S[txtMinWage].text);
  return true;
}

constexpr ColumnMap kHomewatch2Map = [] {
  ColumnMap m;
  m.translator = "Homewatch2";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 30);
  m.code_rule = CodeRule::Lookup;
  m.code = kHomewatch2Code;
  m.code_hours = Slice(52, 8, 2);
  m.code_dollars = Slice(60, 8, 2);
  m.codes = kHomewatch2Codes;
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  m.extra = Homewatch2_TravelRate;
  return m;
}();

constexpr ColumnMap kHomewatch3Map = [] {
  ColumnMap m;
  m.translator = "Homewatch3";
  m.employee = Slice(1, 9);
  m.name = Slice(10, 30);
  m.code_rule = CodeRule::FromRecord;
  m.dore = Slice(40, 1);
  m.code = Slice(41, 6);
  m.code_hours = Slice(47, 8, 2);
  m.code_dollars = Slice(55, 10, 2);
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  return m;
}();

}  // namespace

extern const Translator kHomewatchTranslator = MapTranslator<kHomewatchMap>(MapInput::Lines);
extern const Translator kHomewatch2Translator = MapTranslator<kHomewatch2Map>(MapInput::Lines);
extern const Translator kHomewatch3Translator = MapTranslator<kHomewatch3Map>(MapInput::Lines);

}  // namespace corvane
