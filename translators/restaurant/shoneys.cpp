// "Shoneys": a comma line an employee and rate sequence, with regular hours and tips. The
// sequence goes to Seq, so that each of an employee's rates is paid on its own line.
#include "pipeline/column_map.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

// A line without a sequence is the employee's first rate.
bool Shoneys_FirstRate(frmTimeImport& F) {
  if (Trim(F.ImportRec.Seq).empty()) F.ImportRec.Seq = "1";
  return true;
}

const PayColumn kShoneysPay[] = {
    {.column = Field(5), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(6), .kind = Figure::Dollars, .category = Cat::Tips},
};

// 1 store, 2 employee number, 3 name, 4 rate sequence, 5 hours, 6 tips
constexpr ColumnMap kShoneys{
    .translator = "Shoneys",
    .fields = 6,
    .text_fields = TextFields({1, 2, 4}),
    .heading_lines = 1,
    .translate_last_line = true,
    .employee = Field(2),
    .name = Field(3),
    .seq = Field(4),
    .pay = kShoneysPay,
    .extra = Shoneys_FirstRate,
};

}  // namespace

extern const Translator kShoneysTranslator = MapTranslator<kShoneys>(MapInput::Lines);

}  // namespace corvane
