// The stored settings: any bytes as one of the five settings files, read at the start, by the
// earning-code grid and the two customisation forms, then saved at the exit.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "fuzz/fuzz_common.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "settings/settings_file.hpp"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  static const std::string_view kFiles[] = {kControlFileName, kLocFileName, kEarnCodesFileName,
                                            kK8FileName, kTMFileName};
  const std::string settings = corvane_fuzz::Scratch() + "/settings";
  std::filesystem::remove_all(settings);
  std::filesystem::create_directories(settings);
  const std::string name(kFiles[data[0] % 5]);
  corvane_fuzz::WriteScratch("settings/" + name, data + 1, size - 1);

  corvane_fuzz::QuietOperator ui;
  frmTimeImport F(ui, Environment{settings, *ParseDate("11/22/2026")});
  try {
    F.Form_Load();
    F.cmdLookup_Click();
    F.cmdAssEcodes_Click();
    F.cmdKv8_Click();
    F.cmdTM_Click();
    F.Exit();
  } catch (const RuntimeError&) {
  } catch (const FatalError&) {
  }
  return 0;
}
