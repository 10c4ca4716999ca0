// "TimeTrax": the payroll export, a comma line an employee with the hours of the product's
// pay categories Regular, Overtime 1.5 and Overtime 2. One heading line; the last line is an
// employee like the others.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

const PayColumn kTimeTraxPay[] = {
    {.column = Field(4), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(5), .kind = Figure::Hours, .category = Cat::OT},
    {.column = Field(6), .kind = Figure::Hours, .category = Cat::Dbl},
};

// 1 employee ID, 2 last name, 3 first name, 4 regular, 5 overtime 1.5, 6 overtime 2
constexpr ColumnMap kTimeTrax{
    .translator = "TimeTrax",
    .fields = 6,
    .text_fields = TextFields({1, 2, 3}),
    .heading_lines = 1,
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kTimeTraxPay,
};

}  // namespace

extern const Translator kTimeTraxTranslator = MapTranslator<kTimeTrax>(MapInput::Lines);

}  // namespace corvane
