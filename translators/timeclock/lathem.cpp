// Lathem PayClock: the comma payroll reports of the older and the v6 software (a column per
// pay type, ended by a totals line), the Pro report a line per pay type number, and the tab
// export "Lathern" whose lines carry the earning code.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

constexpr PayColumn kLathemPay[] = {
    {.column = Field(3), .category = Cat::Reg},
    {.column = Field(4), .category = Cat::OT},
    {.column = Field(5), .category = Cat::Dbl},   // sick
    {.column = Field(6), .category = Cat::Hol},
    {.column = Field(7), .category = Cat::Tips},  // vacation
};

constexpr ColumnMap kLathemMap{
    .translator = "Lathem",
    .fields = 7,
    .text_fields = 1U << 1,
    .is_record = BeginsWithDigit,
    .employee = Field(1),
    .name = Field(2),
    .pay = kLathemPay,
    .hours_picture = "#0.00",
};

constexpr PayColumn kLathem6Pay[] = {
    {.column = Field(4), .category = Cat::Reg},
    {.column = Field(5), .category = Cat::OT},
    {.column = Field(6), .category = Cat::Dbl},    // sick
    {.column = Field(7), .category = Cat::Hol},
    {.column = Field(8), .category = Cat::Tips},   // vacation
    {.column = Field(9), .category = Cat::Sales},  // bereavement
};

constexpr ColumnMap kLathem6Map{
    .translator = "Lathem6",
    .fields = 9,
    .text_fields = 1U << 1,
    .is_record = BeginsWithDigit,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kLathem6Pay,
    .hours_picture = "#0.00",
};

// The Pro software numbers its pay types 1 to 6.
constexpr PayCode kLathemPayClockProCodes[] = {
    {"1", Cat::Reg}, {"2", Cat::OT},    {"3", Cat::Dbl},
    {"4", Cat::Tips}, {"5", Cat::Sales}, {"6", Cat::Hol},
};

constexpr ColumnMap kLathemPayClockProMap{
    .translator = "LathemPayClockPro",
    .is_record = BeginsWithDigit,
    .employee = Slice(1, 10),
    .name = Slice(12, 30),
    .code_rule = CodeRule::Lookup,
    .code = Slice(43, 4),
    .code_hours = Slice(48, 9),
    .codes = kLathemPayClockProCodes,
    .hours_picture = "#0.00",
};

constexpr ColumnMap kLathernMap{
    .translator = "Lathern",
    .fields = 5,
    .text_fields = (1U << 1) | (1U << 3),
    .separator = '\t',
    .is_record = BeginsWithDigit,
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
};

}  // namespace

extern const Translator kLathemTranslator = MapTranslator<kLathemMap>(MapInput::Lines);
extern const Translator kLathem6Translator = MapTranslator<kLathem6Map>(MapInput::Lines);
extern const Translator kLathemPayClockProTranslator =
    MapTranslator<kLathemPayClockProMap>(MapInput::Lines);
extern const Translator kLathernTranslator = MapTranslator<kLathernMap>(MapInput::Lines);

}  // namespace corvane
