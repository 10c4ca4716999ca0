// "Access": a comma file of 21 fields a record, read in four reads of 6, 6, 6 and 3 fields.
// The first record is the heading. Dollar fields may carry "$".
#include <array>
#include <string>
#include <string_view>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

struct AccessFields {
  std::array<Value, 22> Access_F;  // fields 1 to 21
};

bool AccessRead(frmTimeImport& F) {
  AccessFields& in = F.Fields<AccessFields>();
  InputFile& file = F.File(1);
  for (int i = 1; i <= 21; ++i) file.Input(in.Access_F[i]);
  // A record without an employee number is passed over and not counted; a number always
  // prints something.
  const Value& number = in.Access_F[3];
  return number.IsNumber() || !TrimView(number.text()).empty();
}

// field = Replace(field, "$", ""), which leaves text: a short text loses its "$" in place.
void DropDollarSigns(Value& field) {
  if (field.IsText() && field.text().size() <= 32) {
    const std::string& text = field.text();
    if (text.find('$') == std::string::npos) return;
    char kept[32];
    std::size_t n = 0;
    for (const char c : text) {
      if (c != '$') kept[n++] = c;
    }
    field.SetText(std::string_view(kept, n));
    return;
  }
  field = Replace(field, "$", "");
}

void Access(frmTimeImport& F) {
  auto& f = F.Fields<AccessFields>().Access_F;
  ImportRecord& r = F.ImportRec;
  for (Value* cleared : {&r.payrate, &r.Job, &r.Division, &r.Department, &r.Branch, &r.Shift,
                         &r.Team, &r.Employee_Name}) {
    cleared->SetText("");
  }
  r.SSN.clear();
  r.DorE.SetText("E");
  r.Seq.SetText("1");
  char room[kPrintedNumberRoom];
  r.Employee_no.SetText(TrimView(PrintedView(f[3], room)));

  for (int n : {4, 10, 13, 14, 15}) DropDollarSigns(f[n]);

  auto hours = [&](int n, Cat category) {
    if (NumericAbove0(f[n])) F.WriteHours(category, f[n]);
  };
  // Every dollar field has lost its "$" above: its printed form is the amount.
  auto dollars = [&](int n, Cat category) {
    if (NumericAbove0(f[n])) F.WriteDollars(category, f[n]);
  };

  hours(6, Cat::Reg);
  hours(7, Cat::OT);
  dollars(4, Cat::Dbl);
  hours(8, Cat::Tips);
  hours(9, Cat::Hol);
  dollars(10, Cat::Sales);
  dollars(13, Cat::Misc);
  dollars(14, Cat::Disb);
  // the Misc pair serves field 15 as well: the format's own layout
  dollars(15, Cat::Misc);
}

}  // namespace

extern const Translator kAccessTranslator{
    .name = "Access",
    .read = AccessRead,
    .translate = Access,
};

}  // namespace corvane
