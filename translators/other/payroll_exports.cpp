// The comma exports of payroll, accounting and staffing systems: "Ampay", "PRC", "Sage (Mas90)",
// "Darwin", "dataSIGN", "eWorks", "Generations (xRef)", "OmniChrome", "QuickBooks" and
// "Temp Wizard". Each is a plain map of its columns; code stands only where a table cannot say
// it: Ampay's one box over three fields and its file names, and Sage's code table, grid and
// exception file. The layouts are told in docs/formats/.
#include <cstddef>
#include <cstdint>
#include <string>

#include "pipeline/coded_columns.hpp"
#include "pipeline/column_map.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

using column_map::Fields;

constexpr PayColumn Hours(int field, Cat category) {
  return PaidAs(Field(field), category);
}
constexpr PayColumn Dollars(int field, Cat category) {
  return PaidAs(Field(field), category, Figure::Dollars);
}

// ---------------------------------------------------------------------------------------------
// "Ampay": one employee a record, 22 fields. The client code of field 2 names the run's files.

bool AmpayDivisionBranch(frmTimeImport& F);

constexpr PayColumn kAmpayPay[] = {
    Hours(7, Cat::Reg),    Hours(8, Cat::OT),     Hours(9, Cat::e15),    Hours(10, Cat::e16),
    Hours(11, Cat::e17),   Hours(12, Cat::e18),   Hours(13, Cat::e19),   Hours(14, Cat::e20),
    Hours(15, Cat::e21),   Hours(16, Cat::e22),   Hours(17, Cat::e23),   Hours(18, Cat::e24),
    Dollars(19, Cat::e25), Dollars(20, Cat::e29), Dollars(21, Cat::e30), Dollars(22, Cat::e31),
};

constexpr ColumnMap kAmpay{
    .translator = "Ampay",
    .fields = 22,
    .text_fields = TextFields({2}),
    .employee = Field(1),
    .name = Field(3),
    .department = Field(4),
    .pay = kAmpayPay,
    .extra = AmpayDivisionBranch,
};

// The one box "Dept/Div/Br" takes the file's department, division and branch together.
bool AmpayDivisionBranch(frmTimeImport& F) {
  auto& f = F.Fields<Fields<kAmpay>>().f;
  ImportRecord& r = F.ImportRec;
  r.Division = r.Branch = "";
  if (F.S.Checked(chkDept)) {
    r.Division = column_map::Get(F, kAmpay, f, Field(5));
    r.Branch = column_map::Get(F, kAmpay, f, Field(6));
  }
  return true;
}

// The heading record, then the first data record, whose client code names the import and
// audit files over any name the run had; that record is then translated like the others.
void AmpayHeading(frmTimeImport& F) {
  auto& f = F.Fields<Fields<kAmpay>>().f;
  column_map::ReadRecord(F, kAmpay, f);
  const bool take = column_map::ReadRecord(F, kAmpay, f);
  const std::string client = Right(f[2], 2);
  F.AuditFile = JoinPath(F.Output_Path.str(), "Corvane_Audit_" + client + ".txt");
  F.OUTFile = JoinPath(F.Output_Path.str(), client + "_ta.txt");
  F.CreateOutputFiles();
  if (!take) return;
  column_map::Translate(F, kAmpay, f);
  ++F.TCcount;
}

// ---------------------------------------------------------------------------------------------
// "PRC": one pay line a record, the earning code and its D-or-E given by the file.

constexpr ColumnMap kPRC{
    .translator = "PRC",
    .fields = 6,
    .text_fields = TextFields({3, 4}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(4),
    .dore = Field(3),
    .code_hours = Field(5),
    .code_dollars = Field(6),
};

// ---------------------------------------------------------------------------------------------
// "Sage (Mas90)": one pay line a record under a Mas90 earnings code.

bool SAGEMAS90(frmTimeImport& F);

constexpr ColumnMap kSage{
    .translator = "SAGEMAS90",
    .fields = 6,
    .text_fields = TextFields({3}),
    .employee = Field(1),
    .name = Field(2),
    .payrate = Field(5),
    .extra = SAGEMAS90,
};

// The earnings codes the screen shows, each under its box.
struct SageCode {
  std::string_view code;
  Cat category;
};
constexpr SageCode kSageCodes[] = {
    {"01", Cat::Reg},   {"BR", Cat::OT},    {"BS", Cat::Dbl},   {"PI", Cat::Tips},
    {"CL", Cat::Sales}, {"EB", Cat::Hol},   {"FC", Cat::Misc},  {"FM", Cat::Disb},
    {"ID", Cat::e15},   {"JU", Cat::e16},   {"ML", Cat::e17},   {"OT", Cat::e18},
    {"P", Cat::e19},    {"QA", Cat::e20},   {"RH", Cat::e21},   {"RR", Cat::e22},
    {"SB", Cat::e23},   {"SV", Cat::e24},   {"TM", Cat::e25},   {"TW", Cat::e26},
    {"TX", Cat::e27},   {"OCTO", Cat::e29}, {"FMLA", Cat::e30}, {"BERE", Cat::e31},
    {"MILI", Cat::e32},
};

// A code of digits alone is a numbered pay designation of the company's table.
int SageDesignation(std::string_view code) {
  if (code.empty() || code.size() > 2) return 0;
  int n = 0;
  for (char c : code) {
    if (c < '0' || c > '9') return 0;
    n = n * 10 + (c - '0');
  }
  return n;
}

// The identity is filled; the record goes out once, as hours when it has some, else as
// dollars, under its code's box, or through the company's table, or into the exception file.
// It writes the record itself, so the shape is left nothing to write.
bool SAGEMAS90(frmTimeImport& F) {
  auto& f = F.Fields<Fields<kSage>>().f;
  ImportRecord& r = F.ImportRec;
  const Value hours = column_map::Get(F, kSage, f, Field(4));
  const Value dollars = Value(Replace(column_map::Get(F, kSage, f, Field(6)), "$", ""));
  const bool by_hours = NumericAbove0(hours);
  if (!by_hours && !NumericAbove0(dollars)) return false;
  const std::string code = column_map::Get(F, kSage, f, Field(3)).str();

  for (const SageCode& known : kSageCodes) {
    if (code != known.code) continue;
    if (by_hours) {
      F.WriteHours(known.category, hours);
    } else {
      F.WriteDollars(known.category, dollars.str());
    }
    return false;
  }
  if (const int position = SageDesignation(code); position >= 1) {
    // a designation the table does not know goes out as "?"
    r.Earning_Code = "?";
    r.DorE = "E";
    if (WriteCodedColumn(F, position, by_hours ? hours : dollars)) {
      F.ColumnValues[static_cast<std::size_t>(position)] = "X";
    }
    return false;
  }
  // the exception line tells the hours the record carried
  r.Hours = by_hours ? hours : Value("");
  F.WriteExceptionRec(Value(code));
  return false;
}

// ---------------------------------------------------------------------------------------------
// "Darwin": one pay line a record under Darwin's own pay code.

constexpr PayCode kDarwinCodes[] = {
    {"Reg", Cat::Reg},   {"OT", Cat::OT},       {"Vaca", Cat::Dbl},
    {"Pers", Cat::Tips}, {"Berev", Cat::Sales}, {"Misc", Cat::Misc, Figure::Dollars},
    {"Hol", Cat::Hol},
};

constexpr ColumnMap kDarwin{
    .translator = "Darwin",
    .fields = 5,
    .text_fields = TextFields({3}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .codes = kDarwinCodes,
};

// ---------------------------------------------------------------------------------------------
// "dataSIGN": one employee a record, hours by column.

constexpr PayColumn kDataSIGNPay[] = {
    Hours(4, Cat::Reg),  Hours(5, Cat::OT),    Hours(6, Cat::Misc),
    Hours(7, Cat::Tips), Hours(8, Cat::Sales), Hours(9, Cat::Hol),
};

constexpr ColumnMap kDataSIGN{
    .translator = "dataSIGN",
    .fields = 9,
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kDataSIGNPay,
};

// ---------------------------------------------------------------------------------------------
// "eWorks": one employee a record, a column for each of its pay codes.

constexpr PayColumn kEWorksPay[] = {
    Hours(3, Cat::Reg),     Hours(4, Cat::OT),        Hours(5, Cat::Dbl),  Hours(6, Cat::Tips),
    Dollars(7, Cat::Sales), Hours(8, Cat::Hol),       Hours(9, Cat::AdjH), Dollars(10, Cat::AdjD),
    Hours(11, Cat::Misc),   Hours(12, Cat::Disb),     Hours(13, Cat::Abs), Hours(14, Cat::WaitReg),
    Hours(15, Cat::e15),    Hours(16, Cat::e16),      Hours(17, Cat::e17), Hours(18, Cat::e18),
    Hours(19, Cat::WaitOT), Dollars(20, Cat::CCTips),
};

constexpr ColumnMap kEWorks{
    .translator = "eWorks",
    .fields = 20,
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kEWorksPay,
};

// ---------------------------------------------------------------------------------------------
// "Generations (xRef)": one pay line a record, already cross-referenced to its earning code.

constexpr ColumnMap kGenerationsXREF{
    .translator = "GenerationsXREF",
    .fields = 7,
    .text_fields = TextFields({4, 5}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(5),
    .dore = Field(4),
    .code_hours = Field(6),
    .code_dollars = Field(7),
};

// ---------------------------------------------------------------------------------------------
// "OmniChrome", "QuickBooks", "Temp Wizard": one employee a record, figures by column.

constexpr PayColumn kOmniChromePay[] = {Hours(3, Cat::Reg), Hours(4, Cat::OT)};

constexpr ColumnMap kOmniChrome{
    .translator = "OmniChrome",
    .fields = 5,
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kOmniChromePay,
};

constexpr PayColumn kQuickBooksPay[] = {Hours(3, Cat::Reg), Hours(4, Cat::OT)};

constexpr ColumnMap kQuickBooks{
    .translator = "QuickBooks",
    .fields = 4,
    .heading_lines = 1,
    .employee = Field(2),
    .name = Field(1),
    .pay = kQuickBooksPay,
};

constexpr PayColumn kTempWizardPay[] = {
    Hours(4, Cat::Reg), Hours(5, Cat::OT),   Dollars(6, Cat::AdjD), Hours(7, Cat::Hol),
    Hours(8, Cat::Dbl), Hours(9, Cat::Tips), Dollars(10, Cat::e29), Dollars(11, Cat::e30),
};

constexpr ColumnMap kTempWizard{
    .translator = "TempWizard",
    .fields = 11,
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kTempWizardPay,
};

constexpr Translator AmpayTranslator() {
  Translator t = MapTranslator<kAmpay>(MapInput::CommaFields);
  t.heading = AmpayHeading;
  return t;
}

}  // namespace

extern const Translator kAmpayTranslator = AmpayTranslator();
extern const Translator kPRCTranslator = MapTranslator<kPRC>(MapInput::CommaFields);
extern const Translator kSAGEMAS90Translator = MapTranslator<kSage>(MapInput::CommaFields);
extern const Translator kDarwinTranslator = MapTranslator<kDarwin>(MapInput::CommaFields);
extern const Translator kdataSIGNTranslator = MapTranslator<kDataSIGN>(MapInput::CommaFields);
extern const Translator keWorksTranslator = MapTranslator<kEWorks>(MapInput::CommaFields);
extern const Translator kGenerationsXREFTranslator =
    MapTranslator<kGenerationsXREF>(MapInput::CommaFields);
extern const Translator kOmniChromeTranslator = MapTranslator<kOmniChrome>(MapInput::CommaFields);
extern const Translator kQuickBooksTranslator = MapTranslator<kQuickBooks>(MapInput::CommaFields);
extern const Translator kTempWizardTranslator = MapTranslator<kTempWizard>(MapInput::CommaFields);

}  // namespace corvane
