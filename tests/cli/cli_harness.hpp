// Drives the built `corvane` command as a separate process, the way a bureau's script does,
// and gives the tests its exit status, its streams, the files it wrote and its transcript.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace corvane_test {

struct CommandResult {
  int status = -1;  // exit status; 128 + signal number when a signal ended it
  bool timed_out = false;
  std::string out;
  std::string err;
};

// Runs CORVANE_BINARY with `args` (no shell), standard input from /dev/null, in `cwd`, with
// HOME pointing at `home` so that no default folder of the real user is touched.
// A run that takes longer than timeout_seconds is killed and counts as a hang.
CommandResult RunCommand(const std::vector<std::string>& args, const std::filesystem::path& cwd,
                         const std::filesystem::path& home, int timeout_seconds = 60);

// The control file of a screen in its factory state with "ABRA" chosen: what an exit writes
// after a first start.
std::string FactoryControlFile();

// A fresh temporary folder per test, removed at the end. Its path holds no "." so that it can
// never pass for a file name with an extension. Its settings folder holds the factory
// control file, so that a run starts as on any day after the first.
class WorkDir {
 public:
  WorkDir();
  ~WorkDir();
  WorkDir(const WorkDir&) = delete;
  WorkDir& operator=(const WorkDir&) = delete;

  const std::filesystem::path& root() const { return root_; }
  std::filesystem::path settings() const { return root_ / "settings"; }
  std::filesystem::path output() const { return root_ / "out"; }
  std::filesystem::path home() const { return root_ / "home"; }
  std::filesystem::path transcript() const { return root_ / "run.jsonl"; }

  // Copies a fixture into the work folder and returns its new path.
  std::filesystem::path CopyIn(const std::filesystem::path& from, const std::string& name) const;

 private:
  std::filesystem::path root_;
};

std::string ReadBytes(const std::filesystem::path& file);
void WriteBytes(const std::filesystem::path& file, const std::string& bytes);

// The transcript's texts hold the single-byte characters as U+0000..U+00FF; this turns such a
// UTF-8 string back into the bytes the program built.
std::string TranscriptBytes(const std::string& utf8);

// Every JSON line of a transcript file; an empty vector when the file is missing.
std::vector<nlohmann::json> ReadTranscript(const std::filesystem::path& file);

// The transcript without its progress lines: messages, questions and run-time errors.
std::vector<nlohmann::json> Dialogue(const std::vector<nlohmann::json>& transcript);

// Splits a file written by the program into lines, each of which must end in CR LF.
// A final fragment without CR LF is kept as a line of its own so that the test sees it.
std::vector<std::string> CrLfLines(const std::string& bytes);

// Splits one import line at its commas.
std::vector<std::string> Fields(const std::string& line);

// A `corvane run` call with the options most tests share; the test adds the rest.
struct RunCall {
  explicit RunCall(const WorkDir& dir);
  // Appends options; a named single-valued option already present gets the new value instead.
  RunCall& Add(std::initializer_list<std::string> more);
  CommandResult Go(int timeout_seconds = 60) const;
  std::vector<nlohmann::json> Transcript() const { return ReadTranscript(dir_.transcript()); }

  std::vector<std::string> args;

 private:
  const WorkDir& dir_;
};

// The report that ends a completed run, built from its parts.
std::string Report(const std::string& chosen_tc, long tc_count, long rec_count,
                   const std::string& out_file, const std::string& audit_file);

// One message line of the transcript, compared field by field; the text is given as the bytes
// the program built. An empty `title` is not compared.
::testing::AssertionResult IsMessage(const nlohmann::json& line, const std::string& title,
                                     const std::string& text,
                                     const std::vector<std::string>& buttons,
                                     const std::string& answer);

// The import and audit files of company 123 without a location, in the run's output folder.
std::filesystem::path ImportFile123(const WorkDir& dir);
std::filesystem::path AuditFile123(const WorkDir& dir);

// A message with an OK button shown during a run; the title is "Corvane" unless given.
struct Shown {
  Shown(std::string text_) : title("Corvane"), text(std::move(text_)) {}
  Shown(const char* text_) : Shown(std::string(text_)) {}
  Shown(std::string title_, std::string text_) : title(std::move(title_)), text(std::move(text_)) {}
  std::string title;
  std::string text;
};

// The run completed after showing `messages` in order, then the report of `chosen_tc` with
// these counts, naming the files of company 123.
void ExpectMessagesThenReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                              const std::string& chosen_tc, long tc_count, long rec_count,
                              const std::vector<Shown>& messages);

// The run completed, and its only message is the report of `chosen_tc` with these counts,
// naming the files of company 123.
void ExpectOnlyReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                      const std::string& chosen_tc, long tc_count, long rec_count);

// The program ended with the run-time error report of `number` as its only message, and no
// report of the run.
void ExpectRuntimeErrorOnly(const RunCall& call, const CommandResult& result, int number);

// A fixture file under tests/fixtures.
std::filesystem::path Fixture(const std::string& relative);

}  // namespace corvane_test
