// "TruQC": the timesheet totals exported as comma text, one employee a record, a heading
// record first: regular and overtime hours.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kTruQCPay[] = {
    {Field(3), Figure::Hours, Cat::Reg},
    {Field(4), Figure::Hours, Cat::OT},
};

constexpr ColumnMap kTruQC{
    .translator = "TruQC",
    .fields = 4,
    .text_fields = TextFields({1, 2}),
    .employee = Field(1),
    .name = Field(2),
    .pay = kTruQCPay,
};

}  // namespace

extern const Translator kTruQCTranslator = MapTranslator<kTruQC>(MapInput::CommaFields);

}  // namespace corvane
