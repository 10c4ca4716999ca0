// "NovaTime": a comma export of one line per employee and pay code, a heading record first.
// The pay code picks the category; the salary code pays the amount column, the others the
// hours column.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// the clock's pay codes, compared as exact text
constexpr PayCode kNovaTimeCodes[] = {
    {"Reg", Cat::Reg},
    {"OT", Cat::OT},
    {"PTO", Cat::Dbl},
    {"VAC", Cat::Hol},
    {"Swng", Cat::Tips},
    {"Sick", Cat::Sales},
    {"Sal", Cat::Misc, Figure::Dollars},
};

constexpr ColumnMap kNovaTime{
    .translator = "NovaTime",
    .fields = 5,
    .text_fields = TextFields({1, 2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .codes = kNovaTimeCodes,
    .dollars_picture = ".00",
};

}  // namespace

extern const Translator kNovaTimeTranslator = MapTranslator<kNovaTime>(MapInput::CommaFields);

}  // namespace corvane
