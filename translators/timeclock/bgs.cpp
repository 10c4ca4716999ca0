// BGS: a comma export a line per employee, whose six hour columns are the company's numbered
// pay designations 1 to 6.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

// Regular, Overtime, Double Time, Vacation, Sick and Holiday, as the export orders them.
constexpr PayColumn kBGSDesignations[] = {
    Designation(Field(4), 1), Designation(Field(5), 2), Designation(Field(6), 3),
    Designation(Field(7), 4), Designation(Field(8), 5), Designation(Field(9), 6),
};

constexpr ColumnMap kBGSMap = [] {
  ColumnMap m;
  m.translator = "BGS";
  m.fields = 9;
  m.text_fields = TextFields({1});
  m.is_record = BeginsWithDigit;
  m.translate_last_line = true;
  m.employee = Field(1);
  m.name = Field(2);
  m.first_name = Field(3);
  m.pay = kBGSDesignations;
  return m;
}();

}  // namespace

extern const Translator kBGSTranslator = MapTranslator<kBGSMap>(MapInput::Lines);

}  // namespace corvane
