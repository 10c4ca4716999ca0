// The command on a disk that says no: a run whose file could not be written ends with the
// run-time error and status 3, never with the report; a settings save that fails keeps the
// old file and ends with status 3; savers running at once leave one whole file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

extern char** environ;

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

CommandResult Settings(const WorkDir& dir, std::vector<std::string> args) {
  args.push_back("--settings-dir");
  args.push_back(dir.settings().string());
  return RunCommand(args, dir.root(), dir.home());
}

TEST(DiskFull, ARunWhoseAuditFileMeetsAFullDeviceEndsWithTheErrorAndNoReport) {
  // /dev/full takes nothing and answers "no space": a full disk any user can have.
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this system";
  WorkDir dir;
  WriteBytes(dir.root() / "access.csv",
             "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n"
             "S1,A,201,,,40,2,,,,,,,,,,,,,,\r\n");
  fs::create_directories(dir.output());
  fs::create_symlink("/dev/full", AuditFile123(dir));
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "access.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 61);
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u);
  EXPECT_EQ(dialogue[0].value("description", ""), "Disk full");
}

// The transcript and the summary are the record a script keeps of a run: one the disk cut
// short makes the command fail, though the run itself completed.
TEST(DiskFull, ATranscriptOrSummaryThatCannotBeWrittenWholeFailsTheCommand) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this system";
  WorkDir dir;
  WriteBytes(dir.root() / "access.csv",
             "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n"
             "S1,A,201,,,40,2,,,,,,,,,,,,,,\r\n");
  const std::vector<std::string> run = {"run",
                                        "--settings-dir",
                                        dir.settings().string(),
                                        "--format",
                                        "Access",
                                        "--company",
                                        "123",
                                        "--end-date",
                                        "11/20/2026",
                                        "--today",
                                        "2026-11-22",
                                        "--input",
                                        (dir.root() / "access.csv").string(),
                                        "--output",
                                        dir.output().string(),
                                        "--accept-defaults"};
  for (const char* option : {"--transcript", "--summary"}) {
    std::vector<std::string> args = run;
    args.push_back(option);
    args.push_back("/dev/full");
    const CommandResult result = RunCommand(args, dir.root(), dir.home());
    EXPECT_EQ(result.status, 3) << option << "\n" << result.err;
    const std::string said =
        std::string(option == std::string("--transcript") ? "the transcript" : "the summary") +
        " /dev/full could not be written whole";
    EXPECT_NE(result.err.find(said), std::string::npos) << result.err;
    // the run itself went through: its import file is whole
    EXPECT_EQ(ReadBytes(dir.output() / "123_ta.txt").size() > 0, true);
  }
}

TEST(DiskFull, ASaveIntoAReadOnlySettingsFolderKeepsEveryFileAndSaysSo) {
  // Permissions do not bind the superuser, so there is nothing to see when run as root.
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not bite for root";
  WorkDir dir;
  const std::string codes = "\"123\",\"Kronos v6\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n";
  const std::string k8 =
      "\"123\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n";
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat", codes);
  WriteBytes(dir.settings() / "TimeImport_K8settings.dat", k8);
  fs::permissions(dir.settings(),
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  auto set_codes =
      Settings(dir, {"codes", "set", "--company", "123", "--category", "4", "--code", "99"});
  auto set_k8 = Settings(dir, {"kronos8", "set", "--company", "123", "--pay-rate", "no"});
  fs::permissions(dir.settings(), fs::perms::owner_write, fs::perm_options::add);

  EXPECT_EQ(set_codes.status, 3) << set_codes.err;
  EXPECT_NE(set_codes.err.find("The earning codes could not be saved."), std::string::npos)
      << set_codes.err;
  EXPECT_NE(set_codes.err.find("Permission denied"), std::string::npos) << set_codes.err;
  EXPECT_EQ(set_k8.status, 3) << set_k8.err;
  EXPECT_NE(set_k8.err.find("The Kronos 8 settings could not be saved."), std::string::npos)
      << set_k8.err;
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"), codes);
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_K8settings.dat"), k8);
}

// Starts `corvane` with args, its streams on /dev/null; the process id.
pid_t Start(const std::vector<std::string>& args) {
  std::vector<char*> argv;
  std::string binary = CORVANE_BINARY;
  argv.push_back(binary.data());
  std::vector<std::string> copy = args;
  for (std::string& a : copy) argv.push_back(a.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int fd = 0; fd <= 2; ++fd) {
    posix_spawn_file_actions_addopen(&actions, fd, "/dev/null", fd == 0 ? O_RDONLY : O_WRONLY, 0);
  }
  pid_t pid = -1;
  const int rc = posix_spawn(&pid, CORVANE_BINARY, &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return rc == 0 ? pid : -1;
}

TEST(DiskFull, SaversRunningAtOnceLeaveOneWholeFile) {
  // A table large enough that each save reaches the disk in several writes, and six savers
  // started together, each adding its own company. Each reads whatever was saved last, so
  // some additions may be lost, but the file is always one saver's whole table: the old
  // rows in order, then whole rows of the new companies, each at most once.
  WorkDir dir;
  std::string old;
  for (int n = 0; n < 3000; ++n) {
    old +=
        "\"" + std::to_string(10000 + n) + "\",\"Kronos v6\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n";
  }
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat", old);
  std::set<std::string> new_rows;
  std::vector<pid_t> savers;
  for (int n = 1; n <= 6; ++n) {
    const std::string company = "9" + std::to_string(n);
    new_rows.insert("\"" + company + "\",\"\",\"1\",\"E\",\"?\",\"H\",1,\"N\"");
    savers.push_back(Start({"codes", "set", "--company", company, "--category", "1",
                            "--settings-dir", dir.settings().string()}));
  }
  for (pid_t pid : savers) {
    ASSERT_GT(pid, 0);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  const std::string now = ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat");
  ASSERT_EQ(now.compare(0, old.size(), old), 0) << "the old rows are whole and first";
  std::set<std::string> seen;
  for (const std::string& line : CrLfLines(now.substr(old.size()))) {
    EXPECT_EQ(new_rows.count(line), 1u) << line;
    EXPECT_TRUE(seen.insert(line).second) << "twice: " << line;
  }
  EXPECT_GE(seen.size(), 1u);
  for (const auto& entry : fs::directory_iterator(dir.settings())) {
    EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
  }
}

}  // namespace
}  // namespace corvane_test
