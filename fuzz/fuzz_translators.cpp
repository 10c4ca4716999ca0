// Every translator through the dispatch table: the first byte picks a format that has a
// translator, the rest is its export. The run goes into a scratch folder, and every question
// takes its default answer.
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

const std::vector<int>& TranslatedEntries() {
  static const std::vector<int> entries = [] {
    std::vector<int> indexes;
    for (const ClockEntry& clock : DispatchTable()) {
      if (FindTranslator(clock.translator) != nullptr) indexes.push_back(CatalogueIndex(clock.key));
    }
    return indexes;
  }();
  return entries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::vector<int>& entries = TranslatedEntries();
  const int entry = entries[data[0] % entries.size()];
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
