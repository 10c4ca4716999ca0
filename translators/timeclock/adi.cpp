// ADI: the line export, whose hour columns are the company's numbered pay designations, and
// the fixed records of version 9.4.1, which carry their own earning code.
#include "pipeline/column_map.hpp"
#include "translators/timeclock/line_records.hpp"

namespace corvane {

namespace {

// Fields 3 to 12 hold the hours of pay designations 1 to 10, each paid by the earning code
// the company's table gives its number.
constexpr PayColumn kADIDesignations[] = {
    {.column = Field(3), .position = 1},   {.column = Field(4), .position = 2},
    {.column = Field(5), .position = 3},   {.column = Field(6), .position = 4},
    {.column = Field(7), .position = 5},   {.column = Field(8), .position = 6},
    {.column = Field(9), .position = 7},   {.column = Field(10), .position = 8},
    {.column = Field(11), .position = 9},  {.column = Field(12), .position = 10},
};

constexpr ColumnMap kADIMap{
    .translator = "ADI",
    .fields = 12,
    .text_fields = 1U << 1,  // the employee number keeps its leading zeros
    .is_record = BeginsWithDigit,
    // the export has no closing line: its last line is an employee's
    .translate_last_line = true,
    .employee = Field(1),
    .name = Field(2),
    .pay = kADIDesignations,
};

// 129 bytes, line end included; the figures carry their decimal point.
constexpr ColumnMap kADI941Map{
    .translator = "ADI941",
    .employee = Slice(1, 9),
    .name = Slice(10, 25),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(48, 4),
    .dore = Slice(47, 1),
    .code_hours = Slice(52, 7),
    .code_dollars = Slice(59, 9),
    .hours_picture = "#0.00",
    .dollars_picture = "#0.00",
};

}  // namespace

extern const Translator kADITranslator = MapTranslator<kADIMap>(MapInput::Lines);
extern const Translator kADI941Translator = MapTranslator<kADI941Map>(MapInput::Lines);

}  // namespace corvane
