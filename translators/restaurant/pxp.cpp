// "PXP-Golden Corral": fixed records of 215 bytes, CR LF included, one employee each. Figures
// are digits with two implied decimals.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

const PayColumn kPXPPay[] = {
    {.column = Slice(44, 7, 2), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Slice(51, 7, 2), .kind = Figure::Hours, .category = Cat::OT},
    {.column = Slice(58, 7, 2), .kind = Figure::Hours, .category = Cat::Dbl},     // vacation
    {.column = Slice(79, 8, 2), .kind = Figure::Dollars, .category = Cat::Tips},  // tips
    {.column = Slice(65, 7, 2), .kind = Figure::Hours, .category = Cat::Sales},   // sick
    {.column = Slice(72, 7, 2), .kind = Figure::Hours, .category = Cat::Hol},     // holiday
    {.column = Slice(87, 8, 2), .kind = Figure::Dollars, .category = Cat::Misc},  // misc earning
    {.column = Slice(95, 8, 2), .kind = Figure::Dollars, .category = Cat::Disb},  // misc deduction
};

constexpr ColumnMap kPXP{
    .translator = "PXP",
    .employee = Slice(1, 9),
    .name = Slice(10, 30),
    .pay = kPXPPay,
    .hours_picture = "0.00",
    .dollars_picture = "0.00",
};

}  // namespace

extern const Translator kPXPTranslator = MapTranslator<kPXP>(MapInput::Lines);

}  // namespace corvane
