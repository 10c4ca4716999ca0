// "Time Guardian": a comma export of the period's totals, one employee a record, a heading
// record first. The hours columns are the clock's pay codes 0, 4, 6 and 8 by their number and
// name.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kTimeGuardianPay[] = {
    {Field(4), Figure::Hours, Cat::Reg},   // 0Reg
    {Field(5), Figure::Hours, Cat::OT},    // 4Hol
    {Field(6), Figure::Hours, Cat::Dbl},   // 6Per
    {Field(7), Figure::Hours, Cat::Tips},  // 8OT
};

constexpr ColumnMap kTimeGuardian{
    .translator = "TimeGuardian",
    .fields = 7,
    .text_fields = TextFields({1, 2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .department = Field(3),
    .pay = kTimeGuardianPay,
};

}  // namespace

extern const Translator kTimeGuardianTranslator =
    MapTranslator<kTimeGuardian>(MapInput::CommaFields);

}  // namespace corvane
