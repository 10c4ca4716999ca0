// "TMX": fixed records of 116 bytes, CR LF included, one employee each, figures written with
// their decimal point.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// a rate below the minimum wage marks tipped staff, paid under the waitstaff codes
const PayColumn kTMXPay[] = {
    {.column = Slice(41, 7),
     .kind = Figure::Hours,
     .category = Cat::Reg,
     .to_wait = true,
     .wait = Cat::e15},
    {.column = Slice(48, 7),
     .kind = Figure::Hours,
     .category = Cat::OT,
     .to_wait = true,
     .wait = Cat::e16},
    {.column = Slice(55, 9),
     .kind = Figure::Dollars,
     .category = Cat::Tips,
     .to_wait = true,
     .wait = Cat::e18},
};

constexpr ColumnMap kTMX{
    .translator = "TMX",
    .employee = Slice(1, 9),
    .name = Slice(10, 25),
    .rate = Slice(35, 6),
    .pay = kTMXPay,
};

}  // namespace

extern const Translator kTMXTranslator = MapTranslator<kTMX>(MapInput::Lines);

}  // namespace corvane
