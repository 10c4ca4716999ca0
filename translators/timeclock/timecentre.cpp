// "TimeCentre": a comma export of one line per employee and earning code, a heading record
// first. The file names the payroll's own earning code; the department, team and job go out
// when their boxes are ticked.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr ColumnMap kTimeCentre{
    .translator = "TimeCentre",
    .fields = 8,
    .text_fields = TextFields({1, 2, 3, 4, 5, 6}),
    .employee = Field(1),
    .name = Field(2),
    .department = Field(3),
    .team = Field(4),
    .job = Field(5),
    .code_rule = CodeRule::FromRecord,
    .code = Field(6),
    .code_hours = Field(7),
    .code_dollars = Field(8),
    .dollars_picture = ".00",
};

}  // namespace

extern const Translator kTimeCentreTranslator = MapTranslator<kTimeCentre>(MapInput::CommaFields);

}  // namespace corvane
