// BGS: a comma export a line per employee, whose six hour columns are the company's numbered
// pay designations 1 to 6.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

// Regular, Overtime, Double Time, Vacation, Sick and Holiday, as the export orders them.
constexpr PayColumn kBGSDesignations[] = {
    {.column = Field(4), .position = 1}, {.column = Field(5), .position = 2},
    {.column = Field(6), .position = 3}, {.column = Field(7), .position = 4},
    {.column = Field(8), .position = 5}, {.column = Field(9), .position = 6},
};

constexpr ColumnMap kBGSMap{
    .translator = "BGS",
    .fields = 9,
    .text_fields = 1U << 1,
    .is_record = BeginsWithDigit,
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kBGSDesignations,
};

}  // namespace

extern const Translator kBGSTranslator = MapTranslator<kBGSMap>(MapInput::Lines);

}  // namespace corvane
