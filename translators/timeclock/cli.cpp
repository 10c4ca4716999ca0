// "CLI": a comma export of the period's totals, one employee a record, a heading record
// first: hours of work and of paid leave, and a bonus in dollars.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kCLIPay[] = {
    {Field(3), Figure::Hours, Cat::Reg},     // Reg
    {Field(4), Figure::Hours, Cat::OT},      // OT
    {Field(5), Figure::Hours, Cat::Dbl},     // Vac
    {Field(6), Figure::Dollars, Cat::Tips},  // Bon
    {Field(7), Figure::Hours, Cat::Hol},     // Hol
    {Field(8), Figure::Hours, Cat::Disb},    // Bereav
};

constexpr ColumnMap kCLI{
    .translator = "CLI",
    .fields = 8,
    .text_fields = TextFields({1, 2}),
    .employee = Field(1),
    .name = Field(2),
    .pay = kCLIPay,
    .dollars_picture = ".00",
};

}  // namespace

extern const Translator kCLITranslator = MapTranslator<kCLI>(MapInput::CommaFields);

}  // namespace corvane
