// The workbook readers (.xls and .xlsx, by the FUZZ_WORKBOOK_NAME the target is built with):
// open any bytes as a workbook and read every sheet's cells.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/fuzz_common.hpp"
#include "runtime/errors.hpp"
#include "runtime/workbook.hpp"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = corvane_fuzz::WriteScratch(FUZZ_WORKBOOK_NAME, data, size);
  try {
    const auto book = Workbook::Open(path);
    for (int s = 1; s <= book->SheetCount(); ++s) {
      const Sheet& sheet = book->SheetAt(s);
      const long last =
          sheet.LastRow().ToNumber() < 200 ? static_cast<long>(sheet.LastRow().ToNumber()) : 200;
      for (long row = 1; row <= last + 1; ++row) {
        for (const char* column : {"A", "B", "C", "Z", "AA"}) (void)sheet.Cell(column, row).str();
      }
    }
  } catch (const RuntimeError&) {
  }
  return 0;
}
