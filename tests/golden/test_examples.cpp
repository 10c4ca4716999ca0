// Every bundled example translates with the command its README shows, and its report gives
// the counts the README works out by hand. An example may bring its settings files, answer the
// questions its format asks, and expect the messages that come before the report.
#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// A message or a question shown before the report, in the order shown. An empty title is not
// compared: the column reports and the transaction messages take the program's default title.
struct Said {
  const char* kind;  // "message" (answered "OK") or "input"
  std::string title;
  std::string text;  // a message's text, or a question's prompt
};

struct Example {
  Example(const char* file_, const char* format_, std::vector<std::string> sets_, long records_,
          long lines_, const char* settings_ = nullptr, std::vector<std::string> answers_ = {},
          std::vector<Said> said_ = {})
      : file(file_),
        format(format_),
        sets(std::move(sets_)),
        records(records_),
        lines(lines_),
        settings(settings_),
        answers(std::move(answers_)),
        said(std::move(said_)) {}

  const char* file;
  const char* format;
  std::vector<std::string> sets;
  long records;                      // "N <format> records processed."
  long lines;                        // "M Evolution records created."
  const char* settings;              // a folder of examples/settings copied into the run's settings
  std::vector<std::string> answers;  // the answers, in order, to the questions the run asks
  std::vector<Said> said;            // what the run shows before its report
};

Said Message(std::string text, std::string title = "") {
  return {"message", std::move(title), std::move(text)};
}

Said NeedsCode(const std::string& format, int column) {
  return Message(format + " column " + std::to_string(column) +
                 " needs an Earning Code assigned to it.");
}

const std::vector<Example>& BundledExamples() {
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
      // 1005's unknown code "030" sends his regular hours a second time.
      {"kronos-adp.m2t",
       "Kronos/ADP",
       {},
       5,
       11,
       "kronos-adp",
       {},
       {Message("unexpected transaction type found: 030")}},
      {"kronos-timekeeper-3.txt",
       "Kronos TimeKeeper 3",
       {},
       4,
       7,
       nullptr,
       {},
       {Message("Unexpected Pay Category: HOLIDAY:\r\rCRUZ, ELENA",
                "Corvane - Kronos TimeKeeper 3")}},
      {"kronos-timekeeper-3a.txt",
       "Kronos TimeKeeper 3a",
       {},
       3,
       13,
       nullptr,
       {},
       {Message("Unexpected Pay Category: COMP\r\rGARCIA, LENA",
                "Corvane - Kronos TimeKeeper 3a")}},
      {"kronos-hours-summary.txt",
       "Kronos Hours Summary",
       {},
       4,
       12,
       nullptr,
       {},
       {Message("Unexpected Type of Hours: TRAINING", "Corvane - Kronos Hours Summary")}},
      {"kronos-summary.txt", "Kronos Summary", {}, 17, 7},
      // Position 6 has no code; the family reports it one place lower.
      {"kronos-v2c.dat", "Kronos v2c", {}, 4, 10, "kronos-v2c", {}, {NeedsCode("Kronos v2c", 5)}},
      {"kronos-v2c-short.dat", "Kronos v2C (Short)", {}, 5, 10},
      // A "Reg Earnings" of 1234 is taken for the next employee's number.
      {"kronos-v3.csv", "Kronos v3", {}, 5, 10},
      {"kronos-v5a.dat", "Kronos v5a", {}, 3, 5, "kronos-v5a"},
      {"kronos-v6.dat", "Kronos v6", {}, 4, 8, "kronos-v6", {}, {NeedsCode("Kronos v6", 9)}},
      {"kronos-v6-column-m.dat", "Kronos v6 Column M", {}, 3, 9, "kronos-v6-column-m"},
      {"kronos-v6-csv.csv", "Kronos v6 csv", {}, 5, 15, "kronos-v6-csv"},
      // The last row is read and not translated; the first row's dollars repeat on every row.
      {"kronos-14-columns.csv", "Kronos (14 Columns)", {}, 6, 13},
      {"kronos-v8.txt",
       "Kronos v8",
       {},
       3,
       9,
       "kronos-v8",
       {"6"},
       {{"input", "How many columns?",
         "Enter the number of columns containing Hours or Dollars to be processed.\r\r"
         "          (between 1 and 99)"},
        NeedsCode("Kronos v8", 5)}},
      // The row with a blank first field ends the reading before the last employee.
      {"kronos-v8d.csv", "Kronos v8D", {}, 4, 8},
      {"time-manager-v1-8.sdf", "Time Manager v1.8", {}, 3, 6, "time-manager-v1-8"},
      {"time-manager-v2-0.txt", "Time Manager v2.0", {}, 3, 6, "time-manager-v2-0"},
      // A column of 0.00 is dropped as a line and still reported for want of a code.
      {"time-manager-v2-x.txt",
       "Time Manager v2.x",
       {},
       3,
       5,
       "time-manager-v2-x",
       {},
       {NeedsCode("Time Manager v2.x", 4)}},
      // One record is broken over two lines and counts once.
      {"time-manager-v2-8.txt", "Time Manager v2.8", {}, 3, 6, "time-manager-v2-8"},
      {"time-manager-v2-8-csv.txt", "Time Manager v2.8 csv", {}, 3, 7, "time-manager-v2-8-csv"},
      // An unknown pay code and a zero figure send nothing.
      {"time-management-systems.txt", "Time Management Systems", {}, 10, 8},
  };
  return kExamples;
}

void CopySettings(const WorkDir& dir, const char* settings) {
  if (settings == nullptr) return;
  const fs::path from = fs::path(CORVANE_EXAMPLES) / "settings" / settings;
  ASSERT_TRUE(fs::is_directory(from)) << from;
  for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
    fs::copy_file(entry.path(), dir.settings() / entry.path().filename(),
                  fs::copy_options::overwrite_existing);
  }
}

::testing::AssertionResult IsSaid(const nlohmann::json& line, const Said& said) {
  if (std::string(said.kind) == "message")
    return IsMessage(line, said.title, said.text, {"OK"}, "OK");
  if (line.value("kind", "") != "input")
    return ::testing::AssertionFailure() << "not a question: " << line.dump();
  if (!said.title.empty() && TranscriptBytes(line.value("title", "")) != said.title)
    return ::testing::AssertionFailure() << "title differs: " << line.dump();
  if (TranscriptBytes(line.value("prompt", "")) != said.text)
    return ::testing::AssertionFailure() << "prompt differs: " << line.dump();
  return ::testing::AssertionSuccess();
}

class Examples : public ::testing::TestWithParam<std::size_t> {};

// Each example on its own, so that one that fails does not hide the others.
TEST_P(Examples, GivesTheCountsItsReadmeStates) {
  {
    const Example& example = BundledExamples()[GetParam()];
    SCOPED_TRACE(example.format);
    WorkDir dir;
    CopySettings(dir, example.settings);
    const fs::path input = dir.CopyIn(fs::path(CORVANE_EXAMPLES) / example.file, example.file);
    RunCall call(dir);
    call.Add({"--format", example.format, "--company", "123", "--end-date", "11/20/2026", "--input",
              input.string(), "--output", dir.output().string()});
    for (const std::string& set : example.sets) call.Add({"--set", set});
    for (const std::string& answer : example.answers) call.Add({"--answer", answer});
    const CommandResult result = call.Go();
    if (example.said.empty()) {
      ExpectOnlyReport(dir, call, result, example.format, example.records, example.lines);
      return;
    }
    ASSERT_FALSE(result.timed_out);
    ASSERT_EQ(result.status, 0) << result.err;
    const auto dialogue = Dialogue(call.Transcript());
    ASSERT_EQ(dialogue.size(), example.said.size() + 1) << result.err;
    for (size_t i = 0; i < example.said.size(); ++i) {
      EXPECT_TRUE(IsSaid(dialogue[i], example.said[i])) << "item " << i;
    }
    EXPECT_TRUE(IsMessage(dialogue.back(), "Corvane",
                          Report(example.format, example.records, example.lines,
                                 ImportFile123(dir).string(), AuditFile123(dir).string()),
                          {"OK"}, "OK"));
  }
}

std::string ExampleName(const ::testing::TestParamInfo<std::size_t>& info) {
  std::string name;
  for (const char* c = BundledExamples()[info.param].file; *c != '\0'; ++c) {
    name.push_back(std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_');
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Bundled, Examples,
                         ::testing::Range<std::size_t>(0, BundledExamples().size()), ExampleName);

}  // namespace
}  // namespace corvane_test
