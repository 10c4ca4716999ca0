// The side files that some restaurant exports bring: a small table beside the export, whose
// absence is no error to these formats.
#pragma once

#include <string>

#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"

namespace corvane {

// Opens the side file `name` from the export's folder under file number `number`. False when
// it cannot be opened: the format then goes on with an empty table, and says nothing.
inline bool OpenBesideExport(frmTimeImport& F, int number, const std::string& name) {
  try {
    F.File(number).Open(F.ExtractInputPath().str() + name, OpenMode::Byte);
  } catch (const RuntimeError&) {
    return false;
  }
  return true;
}

}  // namespace corvane
