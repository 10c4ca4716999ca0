// "Time-in-a-Box": a comma export of one line per employee and hours type, a heading record
// first. The hours type picks the category.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// the clock's hours types, compared as exact text
constexpr PayCode kTimeInABoxCodes[] = {
    {"REGHR", Cat::Reg},  {"OTHR", Cat::OT},     {"VACHR", Cat::Dbl},
    {"SICHR", Cat::Tips}, {"HOLHR", Cat::Sales}, {"PERHR", Cat::Misc},
};

constexpr ColumnMap kTimeInABox{
    .translator = "TimeInABox",
    .fields = 4,
    .text_fields = TextFields({1, 2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .codes = kTimeInABoxCodes,
};

}  // namespace

extern const Translator kTimeInABoxTranslator = MapTranslator<kTimeInABox>(MapInput::CommaFields);

}  // namespace corvane
