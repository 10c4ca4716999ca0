// Gradience: a comma line per employee and pay code, the code being the payroll's own earning
// code with its E or D.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr ColumnMap kGradienceMap{
    .translator = "Gradience",
    .fields = 6,
    .text_fields = (1U << 1) | (1U << 3) | (1U << 4),  // number, E or D and code as written
    .is_record = BeginsWithDigit,
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(4),
    .dore = Field(3),
    .code_hours = Field(5),
    .code_dollars = Field(6),
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
};

}  // namespace

extern const Translator kGradienceTranslator = MapTranslator<kGradienceMap>(MapInput::Lines);

}  // namespace corvane
