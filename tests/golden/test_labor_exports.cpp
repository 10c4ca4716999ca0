// The restaurant back-office exports read as plain column maps, translated end to end and
// compared with import and audit files written by hand from their pages. What each record of
// the fixtures tests is told in tests/fixtures/labor_exports/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

struct Case {
  const char* format;
  const char* file;  // under tests/fixtures/labor_exports, also the expected files' stem
  std::vector<std::string> sets;
  long records;
  long lines;
};

RunCall LaborCall(const WorkDir& dir, const char* format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

void ExpectCase(const Case& c) {
  SCOPED_TRACE(c.format);
  WorkDir dir;
  const std::string file = c.file;
  auto input = dir.CopyIn(Fixture("labor_exports/" + file), file);
  auto call = LaborCall(dir, c.format, input);
  for (const std::string& set : c.sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, c.format, c.records, c.lines);
  const std::string stem = "labor_exports/" + file.substr(0, file.rfind('.')) + "_expected";
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture(stem + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture(stem + "_audit.txt")));
}

TEST(LaborExportsTranslator, CodeLookupPaysEachCodeUnderItsBoxWithItsOwnFigure) {
  // Dollar codes read the dollars field and ignore the hours beside them; a code in the wrong
  // case, a zero figure and a blank employee write nothing; the half record ends the reading.
  ExpectCase({"DDMGR",
              "ddmgr.txt",
              {"txt34=01", "txt34DE=E", "txt30=02", "txt30DE=E", "txt36=TIP", "txt36DE=E",
               "txt19=BON2", "txt19DE=E", "txt35=SCK", "txt35DE=E", "txt37=VAC", "txt37DE=E"},
              7,
              5});
  ExpectCase({"Qwest", "qwest.txt", {}, 6, 4});
}

TEST(LaborExportsTranslator, CodeFromTheRecordKeepsItsTextAndItsDOrE) {
  // A blank D-or-E is an earning; a blank code writes nothing; " x " is dropped by the writer.
  ExpectCase({"ESI", "esi.txt", {}, 7, 4});
}

TEST(LaborExportsTranslator, EveryColumnGoesOutUnderItsOwnBox) {
  ExpectCase({"Sorrelin 2868", "sorrelin-2868.csv", {}, 3, 4});
  ExpectCase({"PCI Paper", "pci-paper.csv", {}, 2, 7});
  ExpectCase({"Hooters", "hooters.txt", {}, 2, 4});
  ExpectCase({"Restaurant Magic", "restaurant-magic.pay", {}, 2, 5});
  ExpectCase({"CTuit Radar",
              "ctuit-radar.csv",
              {"txt15=BRK", "txt15DE=E", "txt16=SPL", "txt16DE=E"},
              2,
              8});
  ExpectCase({"RBI",
              "rbi.csv",
              {"txt15=BRK", "txt15DE=E", "txt16=SPL", "txt16DE=E", "txt18=ITP", "txt18DE=E",
               "txt29=DED", "txt29DE=D", "txt30=ADJ", "txt30DE=D"},
              1,
              7});
}

TEST(LaborExportsTranslator, LocationNamesTheFilesOfTheFormatsThatShowIt) {
  for (const char* format : {"Sorrelin 2868", "Qwest"}) {
    SCOPED_TRACE(format);
    WorkDir dir;
    const bool qwest = std::string(format) == "Qwest";
    const std::string file = qwest ? "qwest.txt" : "sorrelin-2868.csv";
    auto call = LaborCall(dir, format, dir.CopyIn(Fixture("labor_exports/" + file), file));
    call.Add({"--location", "12"});
    auto result = call.Go();
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string stem =
        std::string("labor_exports/") + (qwest ? "qwest" : "sorrelin-2868") + "_expected";
    EXPECT_EQ(ReadBytes(dir.output() / "123_12_ta.txt"), ReadBytes(Fixture(stem + "_ta.txt")));
    EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_123_12.txt"),
              ReadBytes(Fixture(stem + "_audit.txt")));
  }
}

TEST(LaborExportsTranslator, HeadingOnlyAndEmptyFilesGiveZeroCounts) {
  for (const char* format : {"DDMGR", "RBI"}) {
    for (const std::string& content : {std::string(), std::string("Emp No,Name,Reg\r\n")}) {
      SCOPED_TRACE(std::string(format) + (content.empty() ? " empty" : " heading only"));
      WorkDir dir;
      WriteBytes(dir.root() / "export.csv", content);
      auto call = LaborCall(dir, format, dir.root() / "export.csv");
      auto result = call.Go();
      ExpectOnlyReport(dir, call, result, format, 0, 0);
      EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
    }
  }
}

}  // namespace
}  // namespace corvane_test
