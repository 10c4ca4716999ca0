// "SAILOR Poll": the store's poll file, its lines told apart by their first field: "H" the
// head, "E" an employee, "T" the trailer. Only "E" lines are translated and counted.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

bool Sailor_IsEmployee(std::string_view line) {
  return line.starts_with("E,");
}

extern const ColumnMap kSAILORPoll;

// The tip credit is the employer's to claim: tipped staff's lines carry the rate they are
// paid at, and everybody else's rate is the payroll's own.
bool Sailor_TippedRate(frmTimeImport& F) {
  auto& f = F.Fields<column_map::Fields<kSAILORPoll>>().f;
  F.ImportRec.payrate = "";
  if (column_map::Tipped(F, kSAILORPoll, f)) {
    F.ImportRec.payrate = column_map::Get(F, kSAILORPoll, f, kSAILORPoll.rate);
  }
  return true;
}

const PayColumn kSAILORPollPay[] = {
    {.column = Field(7), .kind = Figure::Hours, .category = Cat::Reg},
    {.column = Field(8), .kind = Figure::Hours, .category = Cat::OT},
    {.column = Field(9), .kind = Figure::Dollars, .category = Cat::Tips},
};

// 1 "E", 2 store, 3 employee number, 4 name, 5 job, 6 rate, 7 regular, 8 overtime, 9 tips
constexpr ColumnMap kSAILORPoll{
    .translator = "SAILORPoll",
    .fields = 9,
    .text_fields = TextFields({1, 2, 3, 4, 5, 6}),
    .is_record = Sailor_IsEmployee,
    .employee = Field(3),
    .name = Field(4),
    .job = Field(5),
    .rate = Field(6),
    .pay = kSAILORPollPay,
    .extra = Sailor_TippedRate,
};

}  // namespace

extern const Translator kSAILORPollTranslator = MapTranslator<kSAILORPoll>(MapInput::Lines);

}  // namespace corvane
