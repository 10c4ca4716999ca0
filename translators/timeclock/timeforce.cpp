// "Timeforce DCOG": the client's Timeforce export template, comma text with one employee a
// record and a heading record first: the rate, then the hours of each of its eleven pay codes.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayColumn kTimeforcePay[] = {
    {Field(5), Figure::Hours, Cat::Reg},    // Worked
    {Field(6), Figure::Hours, Cat::OT},     // OT
    {Field(7), Figure::Hours, Cat::Dbl},    // S/F
    {Field(8), Figure::Hours, Cat::Tips},   // S/EE
    {Field(9), Figure::Hours, Cat::Sales},  // Float
    {Field(10), Figure::Hours, Cat::Hol},   // HOL
    {Field(11), Figure::Hours, Cat::Misc},  // PTO
    {Field(12), Figure::Hours, Cat::Disb},  // Funeral
    {Field(13), Figure::Hours, Cat::Abs},   // FHolW
    {Field(14), Figure::Hours, Cat::AdjH},  // PHolW
    {Field(15), Figure::Hours, Cat::AdjD},  // Vac
};

// the rate keeps its characters, so that 12.50 goes out as the clock wrote it
constexpr ColumnMap kTimeforceDCOG{
    .translator = "TimeforceDCOG",
    .fields = 15,
    .text_fields = TextFields({1, 2, 3, 4}),
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .payrate = Field(4),
    .pay = kTimeforcePay,
};

}  // namespace

extern const Translator kTimeforceDCOGTranslator =
    MapTranslator<kTimeforceDCOG>(MapInput::CommaFields);

}  // namespace corvane
