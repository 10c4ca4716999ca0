// The time clocks whose records hold a run of numbered hours or dollars columns, each paid by
// the company's earning code for its position.
#pragma once

#include <cstdint>
#include <string>

#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "settings/ecode_data.hpp"

namespace corvane {

// One numbered column: the earning code of its position (from the table filtered to the
// company), then, unless the code skips the column, its shift and the figure as hours
// ("###.#0") or dollars ("####.#0"), and write() sends the record. True when the column went
// out with no earning code ("?"): the caller marks it for the message at the end of the run,
// each clock in the entry its file's numbering gives.
template <class Write>
bool WriteCodedColumn(frmTimeImport& F, int position, const Value& figure, Write&& write) {
  if (!F.rsECodes) Raise(kObjectNotSet);
  ImportRecord& r = F.ImportRec;
  std::string DolHrs = "H";
  std::int16_t eShift = 1;
  std::string eSkip = "N";
  const bool found = SetEcodes(F.rsECodes->rsECodes, static_cast<std::int16_t>(position), DolHrs,
                               eShift, eSkip, r);
  F.Result = found ? "True" : "False";
  if (eSkip == "Y") return false;
  r.Shift = std::to_string(eShift);
  if (DolHrs == "$") {
    r.Amount = Format(figure, "####.#0");
    r.Hours = "";
  } else {
    r.Hours = Format(figure, "###.#0");
    r.Amount = "";
  }
  write();
  return r.Earning_Code == Value("?");
}

inline bool WriteCodedColumn(frmTimeImport& F, int position, const Value& figure) {
  return WriteCodedColumn(F, position, figure, [&F] { F.WriteOutputRec(); });
}

}  // namespace corvane
