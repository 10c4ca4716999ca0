// "IHOP8": a comma line an employee, with the rate, hours of the product's pay codes and the
// declared tips. One heading line; the last line is the store's totals and is not translated.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// a rate below the minimum wage marks tipped staff, whose overtime is the product's code 13
const PayColumn kIHOP8Pay[] = {
    {.column = Field(4), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(5),
     .kind = Figure::Hours,
     .category = Cat::OT,
     .to_wait = true,
     .wait = Cat::WaitOT},
    {.column = Field(6), .kind = Figure::Hours, .category = Cat::Dbl},
    {.column = Field(7), .kind = Figure::Dollars, .category = Cat::Tips},
};

// 1 employee number, 2 name, 3 rate, 4 regular, 5 overtime, 6 meeting hours, 7 tips
constexpr ColumnMap kIHOP8{
    .translator = "IHOP8",
    .fields = 7,
    .text_fields = TextFields({1, 2}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .rate = Field(3),
    .pay = kIHOP8Pay,
};

}  // namespace

extern const Translator kIHOP8Translator = MapTranslator<kIHOP8>(MapInput::Lines);

}  // namespace corvane
