// Every translator through the dispatch table: the first byte is the position of a format in
// the time clock list, the rest is its export. The run goes into a scratch folder, and every
// question takes its default answer.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/fuzz_common.hpp"
#include "pipeline/dispatch.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "screen/catalogue.hpp"

using namespace corvane;

namespace {

// The time clock list's entries that have a translator, by list position; an entry without
// one stands for the next entry after it that has one. So a seed's first byte, the position of
// its format in the list, keeps choosing that format as more translators are written.
const std::vector<int>& EntryByPosition() {
  static const std::vector<int> entries = [] {
    const auto names = CatalogueNames();
    std::vector<int> by_position(names.size(), -1);
    for (std::size_t k = 0; k < names.size(); ++k) {
      for (std::size_t step = 0; step < names.size(); ++step) {
        const std::size_t at = (k + step) % names.size();
        const ClockEntry* clock = FindClock(names[at]);
        if (clock != nullptr && FindTranslator(clock->translator) != nullptr) {
          by_position[k] = static_cast<int>(at);
          break;
        }
      }
    }
    return by_position;
  }();
  return entries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::vector<int>& entries = EntryByPosition();
  const int entry = entries[data[0] % entries.size()];
  if (entry < 0) return 0;
  const std::string input = corvane_fuzz::WriteScratch("export.txt", data + 1, size - 1);
  const std::string settings = corvane_fuzz::Scratch() + "/settings";
  const std::string output = corvane_fuzz::Scratch() + "/out";
  std::filesystem::create_directories(settings);

  corvane_fuzz::QuietOperator ui;
  frmTimeImport F(ui, Environment{settings, *ParseDate("11/22/2026")});
  try {
    F.Form_Load();
    F.SelectTimeClock(entry);
    F.S[CoNum].text = "123";
    F.S[pdEndDate].text = "11/20/2026";
    F.S[CorvaneInputFile].text = input;
    F.S[CorvaneOutputPath].text = output;
    F.cmdInterface_Click();
  } catch (const RuntimeError&) {
  } catch (const FatalError&) {
  }
  return 0;
}
