// "AccroPrint v2.0": the pay period's totals exported as comma text, one employee a record, a
// heading record first. Every figure is decimal hours under the clock's own column names.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kAccroPrintPay[] = {
    {Field(4), Figure::Hours, Cat::Reg},    // Reg
    {Field(5), Figure::Hours, Cat::OT},     // OT1
    {Field(6), Figure::Hours, Cat::Dbl},    // OT2
    {Field(7), Figure::Hours, Cat::Tips},   // Vac
    {Field(8), Figure::Hours, Cat::Sales},  // Sick
    {Field(9), Figure::Hours, Cat::Hol},    // Hol
    {Field(10), Figure::Hours, Cat::Misc},  // Othr
};

// employee id and the two name fields keep their characters: "00412" is the clock's own id
constexpr ColumnMap kAccroPrintV20{
    .translator = "AccroPrintV20",
    .fields = 10,
    .text_fields = TextFields({1, 2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kAccroPrintPay,
};

}  // namespace

extern const Translator kAccroPrintV20Translator =
    MapTranslator<kAccroPrintV20>(MapInput::CommaFields);

}  // namespace corvane
