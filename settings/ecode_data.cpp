// The earning-code store.
//
// Decisions taken here:
// - Text columns are read as text with their characters kept, quoted or not, so an unquoted
//   0123 in a hand-made file stays company "0123". The integer columns are read as values
//   and converted by the 32-bit rules: numeric text is taken (rounded to a whole number), a
//   blank (an empty unquoted field) reads as 0, and any other text, the empty quoted ""
//   included, is a value of the wrong kind and stops the reading.
// - A row is appended only once all eight items are read: the row in which reading stops is
//   dropped whole.
// - Column widths (8 characters for Company and so on) are not enforced: a longer text is
//   kept as it stands, on reading and in the grid.
#include "settings/ecode_data.hpp"

#include <string>

#include "runtime/errors.hpp"
#include "runtime/infile.hpp"
#include "runtime/text.hpp"
#include "runtime/value.hpp"
#include "screen/operator.hpp"
#include "screen/screen.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

std::int32_t ReadInteger(InputFile& in) {
  Value v;
  in.Input(v);
  return ToLong(v);
}

void Quoted(std::string& line, std::string_view field) {
  line += '"';
  line += field;
  line += '"';
}

}  // namespace

std::string ECodeLine(const ECodeRow& row) {
  std::string line;
  Quoted(line, row.Company);
  line += ',';
  Quoted(line, row.Package);
  line += ',';
  Quoted(line, std::to_string(row.HrsPos));
  line += ',';
  Quoted(line, row.DorE);
  line += ',';
  Quoted(line, row.Earning_Code);
  line += ',';
  Quoted(line, row.Hours_or_Amount);
  line += ',';
  line += std::to_string(row.Shift);
  line += ',';
  Quoted(line, row.Skip);
  return line;
}

void MendECodeRow(ECodeRow& row) {
  row.DorE = UCase(row.DorE);
  if (row.DorE != "D" && row.DorE != "E" && row.DorE != "S" && row.DorE != "M") row.DorE = "E";
  row.Hours_or_Amount = UCase(row.Hours_or_Amount);
  if (row.Hours_or_Amount != "H" && row.Hours_or_Amount != "$") row.Hours_or_Amount = "H";
  row.Skip = UCase(row.Skip);
  if (row.Skip != "Y" && row.Skip != "N") row.Skip = "N";
  if (row.Shift < 0 || row.Shift > 4) row.Shift = 1;
}

ECodeData::ECodeData(const std::string& settings_dir, const Screen& main, Operator& ui)
    : path_(SettingsPath(settings_dir, kEarnCodesFileName)) {
  // A first use finds neither folder nor file: both are made, quietly. Only a file that
  // cannot be opened even then is the caller's problem.
  InputFile in;
  OpenSettingsFile(in, settings_dir, path_);

  const std::string& company = main[CoNum].text;
  try {
    long count = 0;
    while (!in.Eof()) {
      ECodeRow row;
      in.Input(row.Company);
      in.Input(row.Package);
      row.HrsPos = ReadInteger(in);
      in.Input(row.DorE);
      in.Input(row.Earning_Code);
      in.Input(row.Hours_or_Amount);
      row.Shift = ReadInteger(in);
      in.Input(row.Skip);
      if (row.Company == company) ++count;
      rsECodes.AddNew(std::move(row));
    }
    // A company seen for the first time gets one row to edit, so the grid is never empty
    // for it; the row lives in memory until somebody saves.
    if (count == 0) {
      rsECodes.AddNew(
          ECodeRow{company, std::string(main[PickTC].SelectedText()), 1, "E", "?", "H", 1, "N"});
    }
  } catch (const RuntimeError&) {
    // A damaged row ends the reading, and with it the starter row: what was read stays.
  }

  try {
    FilterField(rsECodes, "Company", company);
  } catch (const RuntimeError&) {
    ui.MsgBox("Filters are an issue.", MsgButtons::OKOnly, "Corvane");
  }
  rsECodes.MoveFirst();
}

Recordset<ECodeRow>& ECodeData::Class_GetDataMember(std::string_view /*DataMember*/) {
  return rsECodes;
}

Recordset<ECodeRow>& ECodeData::FilterField(Recordset<ECodeRow>& rstTemp, std::string_view strField,
                                            std::string_view strFilter) {
  if (strField != "Company") Raise(kTableArguments);
  rstTemp.Filter(strFilter);
  return rstTemp;
}

bool SetEcodes(Recordset<ECodeRow>& rsECodes, std::int16_t HrsPos, std::string& DolHrs,
               std::int16_t& eShift, std::string& eSkip, ImportRecord& ImportRec) {
  try {
    // Going to the first row of an empty table fails: nothing has been touched yet.
    rsECodes.MoveFirst();
    if (rsECodes.EOF_()) Raise(kTableNoCurrentRow);

    ImportRec.DorE = Value("E");
    ImportRec.Earning_Code = Value("?");
    DolHrs = "H";
    eShift = 1;
    eSkip = "N";

    // Every row is scanned, so a later duplicate overrides an earlier one; but DolHrs is only
    // ever raised to "$", so a "$" row before an "H" row of the same category keeps dollars.
    while (!rsECodes.EOF_()) {
      const ECodeRow& row = rsECodes.Current();
      if (row.HrsPos == HrsPos) {
        ImportRec.DorE = Value(UCase(row.DorE));
        ImportRec.Earning_Code = Value(UCase(row.Earning_Code));
        if (row.Hours_or_Amount == "$") DolHrs = "$";
        // The file may hold a Shift beyond 16 bits (only the grid's save mends it): the
        // conversion overflows (6) here, after DorE, Earning_Code and DolHrs were taken and
        // before eShift and eSkip are, and the lookup answers False.
        eShift = ToInteger(Value(static_cast<long>(row.Shift)));
        eSkip = row.Skip;
      }
      rsECodes.MoveNext();
    }
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace corvane
