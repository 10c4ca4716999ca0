// A fixture export run for company 123 with some --set options, its report's counts and its
// import and audit files compared with the ones worked out by hand.
#pragma once

#include <initializer_list>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {

// Runs tests/fixtures/<folder>/<input> as <format>; the expected files are
// <folder>/<expected>_ta.txt and <folder>/<expected>_audit.txt.
inline void ExpectGoldenExport(const std::string& format, const std::string& folder,
                               const std::string& input, std::initializer_list<std::string> sets,
                               long records, long lines, const std::string& expected) {
  WorkDir dir;
  auto path = dir.CopyIn(Fixture(folder + "/" + input), input);
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            path.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, format, records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture(folder + "/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture(folder + "/" + expected + "_audit.txt")));
}

}  // namespace corvane_test
