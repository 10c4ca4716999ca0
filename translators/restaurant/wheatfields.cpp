// "Wheatfields": a tab-separated line an employee, with the rate, regular and overtime hours
// and tips. One heading line; the last line is the totals and is not translated.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// a rate below the minimum wage marks tipped staff, whose overtime is waitstaff overtime
const PayColumn kWheatfieldsPay[] = {
    {.column = Field(4), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(5),
     .kind = Figure::Hours,
     .category = Cat::OT,
     .to_wait = true,
     .wait = Cat::WaitOT},
    {.column = Field(6), .kind = Figure::Dollars, .category = Cat::Tips},
};

// 1 employee number, 2 name, 3 rate, 4 regular, 5 overtime, 6 tips
constexpr ColumnMap kWheatfields{
    .translator = "Wheatfields",
    .fields = 6,
    .text_fields = TextFields({1, 2}),
    .heading_lines = 1,
    .separator = '\t',
    .employee = Field(1),
    .name = Field(2),
    .rate = Field(3),
    .pay = kWheatfieldsPay,
};

}  // namespace

extern const Translator kWheatfieldsTranslator = MapTranslator<kWheatfields>(MapInput::Lines);

}  // namespace corvane
