// Gradience: a comma line per employee and pay code, the code being the payroll's own earning
// code with its E or D.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr ColumnMap kGradienceMap = [] {
  ColumnMap m;
  m.translator = "Gradience";
  m.fields = 6;
  m.text_fields = TextFields({1, 3, 4});  // number, E or D and code as written
  m.is_record = BeginsWithDigit;
  m.translate_last_line = true;
  m.employee = Field(1);
  m.name = Field(2);
  m.code_rule = CodeRule::FromRecord;
  m.dore = Field(3);
  m.code = Field(4);
  m.code_hours = Field(5);
  m.code_dollars = Field(6);
  m.hours_picture = "#0.00";
  m.dollars_picture = "#0.00";
  return m;
}();

}  // namespace

extern const Translator kGradienceTranslator = MapTranslator<kGradienceMap>(MapInput::Lines);

}  // namespace corvane
