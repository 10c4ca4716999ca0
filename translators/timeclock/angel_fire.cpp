// "Angel Fire": a heading line, then comma lines of one employee and pay type each. Only the
// regular pay type is paid through the screen; the other types are passed over.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

constexpr PayCode kAngelFireCodes[] = {
    {"REG", Cat::Reg},
};

constexpr ColumnMap kAngelFire{
    .translator = "AngelFire",
    .fields = 4,
    .text_fields = TextFields({1, 2, 3}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .codes = kAngelFireCodes,
};

}  // namespace

extern const Translator kAngelFireTranslator = MapTranslator<kAngelFire>(MapInput::CommaFields);

}  // namespace corvane
