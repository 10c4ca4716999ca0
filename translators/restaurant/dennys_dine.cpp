// "Denny's DINE" and "Denny's DINE - Relco": the restaurant's labour export, read under a
// frame that passes every error over and goes on with the next step. A record's fields are
// read in one step, so a record cut off by the end of the file keeps, past the cut, the
// fields of the record before, and is translated all the same. The eight per-employee fields
// are emptied at the end of a run.
#include <array>
#include <cstdint>
#include <span>

#include "pipeline/column_map.hpp"
#include "pipeline/readers.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

using enum Figure;

// Denny's DINE: number, name, then the six figures.
constexpr std::array<PayColumn, 6> kDennysDINEPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::OT},
    {Field(5), Hours, Cat::Dbl},
    {Field(6), Dollars, Cat::Tips},
    {Field(7), Hours, Cat::Hol},
    {Field(8), Dollars, Cat::Sales},
}};
constexpr ColumnMap kDennysDINE{
    .translator = "DennysDINE",
    .fields = 8,
    .text_fields = TextFields({2}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kDennysDINEPay,
};
// The per-employee fields of Denny's DINE: all eight.
constexpr std::array<int, 8> kDennysDINEHeld{1, 2, 3, 4, 5, 6, 7, 8};

// Relco: number, name, the day worked (yyyymmdd), the rate, then the same six figures.
constexpr int kRelcoDate = 3;
constexpr std::array<PayColumn, 6> kRelcoPay{{
    {Field(5), Hours, Cat::Reg},
    {Field(6), Hours, Cat::OT},
    {Field(7), Hours, Cat::Dbl},
    {Field(8), Dollars, Cat::Tips},
    {Field(9), Hours, Cat::Hol},
    {Field(10), Dollars, Cat::Sales},
}};
bool DennysDINErelco_Date(frmTimeImport& F);
constexpr ColumnMap kDennysDINErelco{
    .translator = "DennysDINErelco",
    .fields = 10,
    .text_fields = TextFields({2, kRelcoDate}),
    .employee = Field(1),
    .name = Field(2),
    .payrate = Field(4),
    .pay = kRelcoPay,
    .extra = DennysDINErelco_Date,
};
// The per-employee fields of Relco: number, name and the six figures; the date and the rate
// belong to the day.
constexpr std::array<int, 8> kRelcoHeld{1, 2, 5, 6, 7, 8, 9, 10};

template <const ColumnMap& M>
std::span<Value> HeldFields(frmTimeImport& F) {
  return F.Fields<column_map::Fields<M>>().f;
}

// One record's fields in one step: an error stops the step where it stands, and the fields
// not reached keep what they held. The record always reaches the translator.
template <const ColumnMap& M>
bool DennysRead(frmTimeImport& F) {
  std::span<Value> fields = HeldFields<M>(F);
  InputFile& file = F.File(1);
  std::string text;
  ResumeNext([&] {
    for (int i = 1; i <= M.fields; ++i) {
      Value& into = fields[static_cast<std::size_t>(i)];
      if (((M.text_fields >> i) & 1U) != 0) {
        file.Input(text);
        into = Value(text);
      } else {
        file.Input(into);
      }
    }
  });
  return true;
}

// A record with a blank employee number reaches the translator and writes nothing.
template <const ColumnMap& M>
void DennysTranslate(frmTimeImport& F) {
  column_map::Translate(F, M, HeldFields<M>(F));
}

template <const ColumnMap& M, const std::array<int, 8>& Held>
void DennysClearData(frmTimeImport& F) {
  std::span<Value> fields = HeldFields<M>(F);
  for (int i : Held) fields[static_cast<std::size_t>(i)] = Value();
}

// Every line of a Relco record carries its day in fields 10 to 12 of the import line.
bool DennysDINErelco_Date(frmTimeImport& F) {
  const std::string date = Trim(HeldFields<kDennysDINErelco>(F)[kRelcoDate]);
  ImportRecord& r = F.ImportRec;
  r.CorvaneYear = Left(date, 4);
  r.CorvaneMonth = Mid(date, 5, 2);
  r.CorvaneDay = Right(date, 2);
  return true;
}

}  // namespace

extern const Translator kDennysDINETranslator{
    .name = "DennysDINE",
    .heading_lines = kDennysDINE.heading_lines,
    .read = DennysRead<kDennysDINE>,
    .translate = DennysTranslate<kDennysDINE>,
    .clear_data = DennysClearData<kDennysDINE, kDennysDINEHeld>,
};

extern const Translator kDennysDINErelcoTranslator{
    .name = "DennysDINErelco",
    .read = DennysRead<kDennysDINErelco>,
    .translate = DennysTranslate<kDennysDINErelco>,
    .clear_data = DennysClearData<kDennysDINErelco, kRelcoHeld>,
};

}  // namespace corvane
