// Lathem PayClock: the comma payroll reports of the older and the v6 software (a column per
// pay type, ended by a totals line), the Pro report a line per pay type number, and the tab
// export "Lathern" whose lines carry the earning code.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr PayColumn kLathemPay[] = {
    PaidAs(Field(3), Cat::Reg), PaidAs(Field(4), Cat::OT),   PaidAs(Field(5), Cat::Dbl),  // sick
    PaidAs(Field(6), Cat::Hol), PaidAs(Field(7), Cat::Tips),  // vacation
};

constexpr ColumnMap kLathemMap = [] {
  ColumnMap m;
  m.translator = "Lathem";
  m.fields = 7;
  m.text_fields = TextFields({1});
  m.is_record = BeginsWithDigit;
  m.employee = Field(1);
  m.name = Field(2);
  m.pay = kLathemPay;
  m.hours_picture = "#0.00";
  return m;
}();

constexpr PayColumn kLathem6Pay[] = {
    PaidAs(Field(4), Cat::Reg),   PaidAs(Field(5), Cat::OT),   PaidAs(Field(6), Cat::Dbl),  // sick
    PaidAs(Field(7), Cat::Hol),   PaidAs(Field(8), Cat::Tips),  // vacation
    PaidAs(Field(9), Cat::Sales),                               // bereavement
};

constexpr ColumnMap kLathem6Map = [] {
  ColumnMap m;
  m.translator = "Lathem6";
  m.fields = 9;
  m.text_fields = TextFields({1});
  m.is_record = BeginsWithDigit;
  m.employee = Field(1);
  m.name = Field(2);
  m.first_name = Field(3);
  m.pay = kLathem6Pay;
  m.hours_picture = "#0.00";
  return m;
}();

// The Pro software numbers its pay types 1 to 6.
constexpr PayCode kLathemPayClockProCodes[] = {
    {"1", Cat::Reg, Figure::Hours},   {"2", Cat::OT, Figure::Hours},
    {"3", Cat::Dbl, Figure::Hours},   {"4", Cat::Tips, Figure::Hours},
    {"5", Cat::Sales, Figure::Hours}, {"6", Cat::Hol, Figure::Hours},
};

constexpr ColumnMap kLathemPayClockProMap = [] {
  ColumnMap m;
  m.translator = "LathemPayClockPro";
  m.is_record = BeginsWithDigit;
  m.employee = Slice(1, 10);
  m.name = Slice(12, 30);
  m.code_rule = CodeRule::Lookup;
  m.code = Slice(43, 4);
  m.code_hours = Slice(48, 9);
  m.codes = kLathemPayClockProCodes;
  m.hours_picture = "#0.00";
  return m;
}();

constexpr ColumnMap kLathernMap = [] {
  ColumnMap m;
  m.translator = "Lathern";
  m.fields = 5;
  m.text_fields = TextFields({1, 3});
  m.separator = '\t';
  m.is_record = BeginsWithDigit;
  m.translate_last_line = true;
  m.employee = Field(1);
  m.name = Field(2);
  m.code_rule = CodeRule::FromRecord;
  m.code = Field(3);
  m.code_hours = Field(4);
  m.code_dollars = Field(5);
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  return m;
}();

}  // namespace

extern const Translator kLathemTranslator = MapTranslator<kLathemMap>(MapInput::Lines);
extern const Translator kLathem6Translator = MapTranslator<kLathem6Map>(MapInput::Lines);
extern const Translator kLathemPayClockProTranslator =
    MapTranslator<kLathemPayClockProMap>(MapInput::Lines);
extern const Translator kLathernTranslator = MapTranslator<kLathernMap>(MapInput::Lines);

}  // namespace corvane
