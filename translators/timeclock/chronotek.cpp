// "ChronoTek": a heading line, then comma lines of one employee each with the period's
// regular and overtime hours.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kChronoTekPay[] = {
    {Field(5), Figure::Hours, Cat::Reg},
    {Field(6), Figure::Hours, Cat::OT},
};

constexpr ColumnMap kChronoTek{
    .translator = "ChronoTek",
    .fields = 7,
    .text_fields = TextFields({1, 2, 3, 4}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kChronoTekPay,
};

}  // namespace

extern const Translator kChronoTekTranslator = MapTranslator<kChronoTek>(MapInput::CommaFields);

}  // namespace corvane
