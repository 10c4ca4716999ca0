#include "tests/cli/cli_harness.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace corvane_test {

namespace fs = std::filesystem;

namespace {

void ReadAvailable(int fd, std::string& into, bool& open) {
  char buffer[4096];
  ssize_t got = read(fd, buffer, sizeof buffer);
  if (got > 0) {
    into.append(buffer, static_cast<size_t>(got));
  } else if (got == 0 || (errno != EINTR && errno != EAGAIN)) {
    open = false;
  }
}

}  // namespace

CommandResult RunCommand(const std::vector<std::string>& args, const fs::path& cwd,
                         const fs::path& home, int timeout_seconds) {
  CommandResult result;
  int out_pipe[2];
  int err_pipe[2];
  if (pipe(out_pipe) != 0 || pipe(err_pipe) != 0) throw std::runtime_error("pipe failed");

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, out_pipe[1], 1);
  posix_spawn_file_actions_adddup2(&actions, err_pipe[1], 2);
  posix_spawn_file_actions_addclose(&actions, out_pipe[0]);
  posix_spawn_file_actions_addclose(&actions, err_pipe[0]);
  posix_spawn_file_actions_addclose(&actions, out_pipe[1]);
  posix_spawn_file_actions_addclose(&actions, err_pipe[1]);
  posix_spawn_file_actions_addchdir_np(&actions, cwd.c_str());

  std::vector<std::string> env_strings;
  for (char** e = environ; *e != nullptr; ++e) {
    if (std::strncmp(*e, "HOME=", 5) != 0) env_strings.emplace_back(*e);
  }
  env_strings.push_back("HOME=" + home.string());
  std::vector<char*> envp;
  for (auto& s : env_strings) envp.push_back(s.data());
  envp.push_back(nullptr);

  std::vector<std::string> argv_strings;
  argv_strings.push_back(CORVANE_BINARY);
  argv_strings.insert(argv_strings.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (auto& s : argv_strings) argv.push_back(s.data());
  argv.push_back(nullptr);

  pid_t pid = 0;
  int rc = posix_spawn(&pid, CORVANE_BINARY, &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  close(out_pipe[1]);
  close(err_pipe[1]);
  if (rc != 0) {
    close(out_pipe[0]);
    close(err_pipe[0]);
    throw std::runtime_error(std::string("cannot start ") + CORVANE_BINARY + ": " +
                             std::strerror(rc));
  }

  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(timeout_seconds);
  bool out_open = true;
  bool err_open = true;
  while (out_open || err_open) {
    pollfd fds[2] = {{out_pipe[0], POLLIN, 0}, {err_pipe[0], POLLIN, 0}};
    int ready = poll(fds, 2, 200);
    if (ready > 0) {
      if (out_open && (fds[0].revents & (POLLIN | POLLHUP | POLLERR)))
        ReadAvailable(out_pipe[0], result.out, out_open);
      if (err_open && (fds[1].revents & (POLLIN | POLLHUP | POLLERR)))
        ReadAvailable(err_pipe[0], result.err, err_open);
    }
    if (std::chrono::steady_clock::now() > deadline) {
      result.timed_out = true;
      kill(pid, SIGKILL);
      break;
    }
  }
  close(out_pipe[0]);
  close(err_pipe[0]);

  int wstatus = 0;
  while (waitpid(pid, &wstatus, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(wstatus)) {
    result.status = WEXITSTATUS(wstatus);
  } else if (WIFSIGNALED(wstatus)) {
    result.status = 128 + WTERMSIG(wstatus);
    ADD_FAILURE() << "corvane ended by signal " << WTERMSIG(wstatus) << "\n" << result.err;
  }
  // Under the sanitizer build a report may otherwise hide behind an expected status 1.
  for (const char* mark : {"ERROR: AddressSanitizer", "ERROR: LeakSanitizer", "runtime error: "}) {
    if (result.err.find(mark) != std::string::npos) ADD_FAILURE() << result.err;
  }
  if (result.timed_out) ADD_FAILURE() << "corvane did not end within " << timeout_seconds << " s";
  return result;
}

WorkDir::WorkDir() {
  std::string pattern = "/tmp/corvane_cli_XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  root_ = pattern;
  fs::create_directories(settings());
  fs::create_directories(output());
  fs::create_directories(home());
  WriteBytes(settings() / "Corvane_Control.dat", FactoryControlFile());
}

std::string FactoryControlFile() {
  std::vector<std::string> v = {"0",
                                "Input file (from Time Clock system)",
                                "Output path (folder for Evolution Import file)",
                                "123",
                                "/",
                                "6"};
  for (const char* code :
       {"2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "61", "62", "69"}) {
    v.push_back("E");
    v.push_back(code);
  }
  for (int k = 15; k <= 42; ++k) {
    v.push_back("E");
    v.push_back("");
  }
  for (const char* rest : {"1", "0", "1", "0", "0", "0", "0", "0", "0", "1", "6.75", "80"}) {
    v.push_back(rest);
  }
  std::string bytes;
  for (const std::string& value : v) bytes += value + std::string(60 - value.size(), ' ') + "\r\n";
  return bytes;
}

WorkDir::~WorkDir() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

fs::path WorkDir::CopyIn(const fs::path& from, const std::string& name) const {
  fs::path to = root_ / name;
  fs::create_directories(to.parent_path());
  fs::copy_file(from, to, fs::copy_options::overwrite_existing);
  return to;
}

std::string ReadBytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

void WriteBytes(const fs::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  if (!out) throw std::runtime_error("cannot write " + file.string());
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string TranscriptBytes(const std::string& utf8) {
  std::string bytes;
  for (size_t i = 0; i < utf8.size(); ++i) {
    auto c = static_cast<unsigned char>(utf8[i]);
    if (c < 0x80) {
      bytes.push_back(static_cast<char>(c));
    } else if ((c & 0xE0) == 0xC0 && i + 1 < utf8.size()) {
      unsigned code = ((c & 0x1Fu) << 6) | (static_cast<unsigned char>(utf8[i + 1]) & 0x3Fu);
      // Anything above U+00FF cannot stand for a byte; keep it visible as "?".
      bytes.push_back(code <= 0xFF ? static_cast<char>(code) : '?');
      ++i;
    } else {
      bytes.push_back('?');
    }
  }
  return bytes;
}

std::vector<nlohmann::json> ReadTranscript(const fs::path& file) {
  std::vector<nlohmann::json> lines;
  std::ifstream in(file, std::ios::binary);
  if (!in) return lines;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    lines.push_back(nlohmann::json::parse(line));
  }
  return lines;
}

std::vector<nlohmann::json> Dialogue(const std::vector<nlohmann::json>& transcript) {
  std::vector<nlohmann::json> kept;
  for (const auto& line : transcript) {
    if (line.value("kind", "") != "progress") kept.push_back(line);
  }
  return kept;
}

std::vector<std::string> CrLfLines(const std::string& bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find("\r\n", start);
    if (end == std::string::npos) {
      lines.push_back(bytes.substr(start));
      break;
    }
    lines.push_back(bytes.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  size_t start = 0;
  while (true) {
    size_t comma = line.find(',', start);
    fields.push_back(
        line.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  return fields;
}

RunCall::RunCall(const WorkDir& dir) : dir_(dir) {
  args = {"run",        "--settings-dir", dir.settings().string(),  "--today",
          "2026-11-22", "--transcript",   dir.transcript().string()};
}

RunCall& RunCall::Add(std::initializer_list<std::string> more) {
  // The named options take one value each; giving one again replaces the earlier value, so
  // that a test states only what it changes. --set, --press and --answer are repeatable.
  static const std::vector<std::string> kSingle = {"--settings-dir", "--today",    "--format",
                                                   "--company",      "--end-date", "--location",
                                                   "--input",        "--output",   "--transcript"};
  std::vector<std::string> items(more);
  for (size_t i = 0; i < items.size(); ++i) {
    bool single = std::find(kSingle.begin(), kSingle.end(), items[i]) != kSingle.end();
    if (single && i + 1 < items.size()) {
      auto at = std::find(args.begin(), args.end(), items[i]);
      if (at != args.end() && at + 1 != args.end()) {
        *(at + 1) = items[i + 1];
        ++i;
        continue;
      }
      args.push_back(items[i]);
      args.push_back(items[i + 1]);
      ++i;
      continue;
    }
    args.push_back(items[i]);
  }
  return *this;
}

namespace {

// Set by the extra pass of the golden tests, which runs them all again with a summary.
bool SummaryPass() {
  const char* pass = std::getenv("CORVANE_SUMMARY_PASS");
  return pass != nullptr && std::string(pass) == "1";
}

}  // namespace

CommandResult RunCall::Go(int timeout_seconds) const {
  if (!SummaryPass() || std::find(args.begin(), args.end(), "--summary") != args.end()) {
    return RunCommand(args, dir_.root(), dir_.home(), timeout_seconds);
  }
  // The summary pass: the same run with a summary asked for. The test's own expectations then
  // prove that the files and messages do not change; here the summary's counts are held
  // against the files the run left.
  const fs::path summary = dir_.root() / "summary_pass.json";
  fs::remove(summary);
  std::vector<std::string> with = args;
  with.insert(with.end(), {"--summary", summary.string()});
  CommandResult result = RunCommand(with, dir_.root(), dir_.home(), timeout_seconds);
  if (!fs::exists(summary) || fs::file_size(summary) == 0) return result;
  const nlohmann::json j = nlohmann::json::parse(ReadBytes(summary));
  EXPECT_EQ(j["lines_written"], j["written"]["lines"]);
  std::map<std::string, int> seen;
  for (const auto& file : j["files"]) ++seen[file["path"].get<std::string>()];
  for (const auto& file : j["files"]) {
    const std::string path = TranscriptBytes(file["path"].get<std::string>());
    // a file created twice in one run keeps only its last lines
    if (seen[file["path"].get<std::string>()] != 1 || !fs::exists(path)) continue;
    EXPECT_EQ(static_cast<long>(CrLfLines(ReadBytes(path)).size()), file["lines"].get<long>())
        << path;
  }
  return result;
}

std::string Report(const std::string& chosen_tc, long tc_count, long rec_count,
                   const std::string& out_file, const std::string& audit_file) {
  const std::string cr = "\r";
  return "Import from " + chosen_tc + " Complete." + cr + cr + std::to_string(tc_count) + " " +
         chosen_tc + " records processed." + cr + std::to_string(rec_count) +
         " Evolution records created." + cr + "" + cr + cr +
         "The file is now ready for import into Evolution." + cr + cr + out_file + cr + cr +
         "An audit trail of the input transactions has also been prepared:" + cr + cr + audit_file +
         cr + cr + "";
}

std::filesystem::path ImportFile123(const WorkDir& dir) {
  return dir.output() / "123_ta.txt";
}

std::filesystem::path AuditFile123(const WorkDir& dir) {
  return dir.output() / "Corvane_Audit_123.txt";
}

void ExpectMessagesThenReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                              const std::string& chosen_tc, long tc_count, long rec_count,
                              const std::vector<Shown>& messages) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), messages.size() + 1) << result.err;
  for (size_t i = 0; i < messages.size(); ++i) {
    EXPECT_TRUE(IsMessage(dialogue[i], messages[i].title, messages[i].text, {"OK"}, "OK"));
  }
  EXPECT_TRUE(IsMessage(dialogue.back(), "Corvane",
                        Report(chosen_tc, tc_count, rec_count, ImportFile123(dir).string(),
                               AuditFile123(dir).string()),
                        {"OK"}, "OK"));
}

void ExpectOnlyReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                      const std::string& chosen_tc, long tc_count, long rec_count) {
  ExpectMessagesThenReport(dir, call, result, chosen_tc, tc_count, rec_count, {});
}

::testing::AssertionResult IsMessage(const nlohmann::json& line, const std::string& title,
                                     const std::string& text,
                                     const std::vector<std::string>& buttons,
                                     const std::string& answer) {
  if (line.value("kind", "") != "message")
    return ::testing::AssertionFailure() << "not a message: " << line.dump();
  if (!title.empty() && TranscriptBytes(line.value("title", "")) != title)
    return ::testing::AssertionFailure() << "title differs: " << line.dump();
  if (TranscriptBytes(line.value("text", "")) != text)
    return ::testing::AssertionFailure()
           << "text differs:\n  expected: " << nlohmann::json(text).dump()
           << "\n  actual:   " << line.dump();
  if (!line.contains("buttons") || line["buttons"] != nlohmann::json(buttons))
    return ::testing::AssertionFailure() << "buttons differ: " << line.dump();
  if (line.value("answer", "") != answer)
    return ::testing::AssertionFailure() << "answer differs: " << line.dump();
  return ::testing::AssertionSuccess();
}

fs::path Fixture(const std::string& relative) {
  return fs::path(CORVANE_FIXTURES) / relative;
}

void ExpectRuntimeErrorOnly(const RunCall& call, const CommandResult& result, int number) {
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 3) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u) << result.err;
  EXPECT_EQ(dialogue[0].value("kind", ""), "runtime-error") << dialogue[0].dump();
  EXPECT_EQ(dialogue[0].value("number", 0), number) << dialogue[0].dump();
}

}  // namespace corvane_test
