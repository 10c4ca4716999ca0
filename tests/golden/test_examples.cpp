// Every bundled example translates with the command its README shows, and its report gives
// the counts the README works out by hand.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

struct Example {
  const char* file;
  const char* format;
  std::vector<std::string> sets;
  long records;  // "N <format> records processed."
  long lines;    // "M Evolution records created."
};

const std::vector<Example>& Examples() {
  static const std::vector<Example> kExamples = {
      {"access.csv", "Access", {}, 8, 25},
      {"aloha-v5-3-13.csv", "Aloha v5.3.13", {}, 11, 21},
      {"aloha-v6-5-42.csv", "Aloha v6.5.42", {"txtMinWage=7.25"}, 7, 19},
      {"aloha-v6-5-44.csv", "Aloha v6.5.44", {"txtMinWage=7.25"}, 8, 12},
      {"aloha-v6-7-22.txt", "Aloha v6.7.22", {}, 12, 9},
      {"aloha-v5-3-26.csv", "Aloha v5.3.26", {}, 8, 13},
      {"aloha-v6-7-38.csv", "Aloha v6.7.38", {"txtMinWage=7.25"}, 8, 14},
      {"adp-as400.csv", "ADP-AS400", {}, 7, 19},
      {"adp-aspect.txt", "ADP/Aspect", {}, 6, 10},
      {"adp-csv.csv", "ADP.csv", {}, 6, 19},
      {"adp-bst.csv", "ADP (BST)", {}, 6, 13},
      {"adp-extpaydt.lpm", "ADP (extpaydt)", {}, 5, 12},
      {"adp-ez-labor.csv", "ADP/EZ Labor", {}, 6, 16},
      {"costa-view-ezlabor.csv", "Costa View EZLabor", {}, 6, 16},
      {"adp-v11-2-3.csv", "ADP v11.2.3", {}, 6, 16},
      {"ads-custom.txt", "ADS Custom", {}, 6, 11},
  };
  return kExamples;
}

TEST(Examples, EachBundledExportGivesTheCountsItsReadmeStates) {
  for (const Example& example : Examples()) {
    SCOPED_TRACE(example.format);
    WorkDir dir;
    const fs::path input = dir.CopyIn(fs::path(CORVANE_EXAMPLES) / example.file, example.file);
    RunCall call(dir);
    call.Add({"--format", example.format, "--company", "123", "--end-date", "11/20/2026", "--input",
              input.string(), "--output", dir.output().string()});
    for (const std::string& set : example.sets) call.Add({"--set", set});
    const CommandResult result = call.Go();
    ExpectOnlyReport(dir, call, result, example.format, example.records, example.lines);
  }
}

}  // namespace
}  // namespace corvane_test
