// "Aspect": a comma export of the period's totals, one employee a record, a heading record
// first: regular and overtime hours, and the tips the employee declared, in dollars.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kAspectPay[] = {
    {Field(3), Figure::Hours, Cat::Reg},
    {Field(4), Figure::Hours, Cat::OT},
    {Field(5), Figure::Dollars, Cat::Tips},
};

constexpr ColumnMap kASP{
    .translator = "ASP",
    .fields = 5,
    .text_fields = TextFields({1, 2}),
    .employee = Field(1),
    .name = Field(2),
    .pay = kAspectPay,
    .dollars_picture = ".00",
};

}  // namespace

extern const Translator kASPTranslator = MapTranslator<kASP>(MapInput::CommaFields);

}  // namespace corvane
