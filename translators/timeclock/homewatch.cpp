// Homewatch: the caregivers' payroll export in three forms: the comma report a line per
// caregiver, the 139-byte records a line per pay code, and the 121-byte records that carry
// the earning code itself.
#include "pipeline/column_map.hpp"
#include "pipeline/time_import.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr PayColumn kHomewatchPay[] = {
    {.column = Field(4), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(5), .kind = Figure::Hours, .category = Cat::OT},
    {.column = Field(6), .kind = Figure::Hours, .category = Cat::Hol},
    {.column = Field(7), .kind = Figure::Dollars, .category = Cat::e15},  // mileage
    {.column = Field(8), .kind = Figure::Dollars, .category = Cat::e16},  // expenses
    {.column = Field(9), .kind = Figure::Hours, .category = Cat::e17},    // travel time
};

constexpr ColumnMap kHomewatchMap{
    .translator = "Homewatch",
    .fields = 9,
    .text_fields = (1U << 1) | (1U << 3),
    .is_record = BeginsWithDigit,
    .employee = Field(1),
    .name = Field(2),
    .department = Field(3),
    .pay = kHomewatchPay,
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
};

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

constexpr ColumnMap kHomewatch2Map{
    .translator = "Homewatch2",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .code_rule = CodeRule::Lookup,
    .code = kHomewatch2Code,
    .code_hours = Slice(52, 8, 2),
    .code_dollars = Slice(60, 8, 2),
    .codes = kHomewatch2Codes,
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
    .extra = Homewatch2_TravelRate,
};

constexpr ColumnMap kHomewatch3Map{
    .translator = "Homewatch3",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(41, 6),
    .dore = Slice(40, 1),
    .code_hours = Slice(47, 8, 2),
    .code_dollars = Slice(55, 10, 2),
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
};

}  // namespace

extern const Translator kHomewatchTranslator = MapTranslator<kHomewatchMap>(MapInput::Lines);
extern const Translator kHomewatch2Translator = MapTranslator<kHomewatch2Map>(MapInput::Lines);
extern const Translator kHomewatch3Translator = MapTranslator<kHomewatch3Map>(MapInput::Lines);

}  // namespace corvane
