// The earning-code store: per company, what a time clock's category number means (the code
// to send, hours or dollars, the shift, whether to drop the record). Read from
// TimeImport_EarnCodes.dat into an in-memory table, looked up by the run through SetEcodes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pipeline/import_record.hpp"
#include "settings/recordset.hpp"

namespace corvane {

class Operator;
class Screen;

// One line of TimeImport_EarnCodes.dat. Rows are keyed by Company and HrsPos, but the key is
// not enforced: duplicates are kept, and on lookup the last one wins.
struct ECodeRow {
  std::string Company;          // company number, as typed in CoNum; compared as exact text
  std::string Package;          // the time clock the row was made for; never used for lookup
  std::int32_t HrsPos = 0;      // the category number in the time clock's file
  std::string DorE;             // "E" earnings, "D" deduction; "S" and "M" are kept too
  std::string Earning_Code;     // the code to send
  std::string Hours_or_Amount;  // "H" hours, "$" dollars
  std::int32_t Shift = 0;       // shift to report, 0 to 4
  std::string Skip;             // "Y" drops the record
};

// The row's line in the file: every field in double quotes except Shift, so HrsPos is quoted
// although it is a number: "123","Aloha v6.2","4","E","12","H",1,"N". No line end.
std::string ECodeLine(const ECodeRow& row);

// The save's mending of a row, in the table: DorE, Hours_or_Amount and Skip upper-cased and
// replaced by "E", "H" and "N" when not one of their letters; a Shift outside 0..4 becomes 1.
// Earning_Code, HrsPos, Company and Package are left alone.
void MendECodeRow(ECodeRow& row);

class ECodeData {
 public:
  // Loads the table from the earnings-code file in settings_dir and filters it to the company
  // in main's CoNum. A missing folder or file is made quietly. Reading stops silently at the
  // first row that cannot be read, keeping the rows before it. A company with no row gets a
  // starter row in memory. When the filter fails, ui shows "Filters are an issue." and the
  // table stays unfiltered. Raises when the file cannot be opened even after making it.
  ECodeData(const std::string& settings_dir, const Screen& main, Operator& ui);
  ECodeData(const ECodeData&) = delete;
  ECodeData& operator=(const ECodeData&) = delete;

  // The table, handed out under any data-member name (the one registered is "ECodes").
  Recordset<ECodeRow>& Class_GetDataMember(std::string_view DataMember);

  // Sets rstTemp's filter to "<strField> = '<strFilter>'" and returns rstTemp. strFilter is
  // not escaped, so a company holding an apostrophe raises 3001. Only the Company column is
  // ever filtered on; another column raises 3001 as well.
  Recordset<ECodeRow>& FilterField(Recordset<ECodeRow>& rstTemp, std::string_view strField,
                                   std::string_view strFilter);

  // Where the table was read from, and where the grid saves it.
  const std::string& path() const { return path_; }

  Recordset<ECodeRow> rsECodes;

 private:
  std::string path_;
};

// Looks up HrsPos in rsECodes (already filtered to the company). Sets the defaults ("E", "?",
// "H", 1, "N"), then scans every row: each row with this HrsPos overwrites DorE and
// Earning_Code of ImportRec (upper-cased), eShift and eSkip, and sets DolHrs to "$" when its
// Hours_or_Amount is exactly "$" (never back to "H"). True when the scan ran through; an
// empty table gives False and touches nothing; a Shift beyond 16 bits gives False with the
// matching row only partly taken.
bool SetEcodes(Recordset<ECodeRow>& rsECodes, std::int16_t HrsPos, std::string& DolHrs,
               std::int16_t& eShift, std::string& eSkip, ImportRecord& ImportRec);

}  // namespace corvane
