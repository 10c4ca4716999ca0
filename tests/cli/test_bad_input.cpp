// Every format that has a translator meets hostile exports: empty, noise, a line of 10 MB,
// cut records, another format's file, odd line ends and numbers. Whatever the bytes, a run
// ends with a status of its own (0, 1, 3 or 4), never by a signal, within 5 seconds, and
// writes nothing outside its output folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "pipeline/dispatch.hpp"
#include "pipeline/translator.hpp"
#include "screen/samples.hpp"
#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

#if defined(__SANITIZE_ADDRESS__)
// the sanitizers slow a run two to three times; the limit is the plain build's
constexpr int kSecondsPerRun = 12;
#else
constexpr int kSecondsPerRun = 5;
#endif

std::vector<std::string> FormatsWithTranslators() {
  std::vector<std::string> names;
  for (const corvane::ClockEntry& clock : corvane::DispatchTable()) {
    if (corvane::FindTranslator(clock.translator) != nullptr) names.emplace_back(clock.key);
  }
  return names;
}

std::vector<std::string> SampleLines(const std::string& format) {
  std::vector<std::string> lines;
  for (const corvane::SampleRow& row : corvane::SampleRows()) {
    if (row.format == format) lines.emplace_back(row.row);
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines, const std::vector<std::string>& ends) {
  std::string out;
  for (size_t i = 0; i < lines.size(); ++i) {
    out += lines[i];
    out += ends[i % ends.size()];
  }
  return out;
}

// A realistic export of the format: its sample rows, or another format's when it has none.
std::vector<std::string> Realistic(const std::string& format) {
  std::vector<std::string> lines = SampleLines(format);
  if (lines.empty()) lines = SampleLines(format == "Access" ? "ADP.csv" : "Access");
  return lines;
}

// The sample rows of a format of another kind than this one.
std::string AnotherFormatsFile(const std::string& format) {
  const std::string other = format == "ADP (extpaydt)" ? "Aloha v6.5.42" : "ADP (extpaydt)";
  return Joined(SampleLines(other), {"\r\n"});
}

// Every run of digits replaced by the text that `number` gives for its position.
std::string ReplaceNumbers(const std::string& text, const std::function<std::string(int)>& number) {
  std::string out;
  int count = 0;
  for (size_t i = 0; i < text.size();) {
    if (text[i] >= '0' && text[i] <= '9') {
      while (i < text.size() && ((text[i] >= '0' && text[i] <= '9') || text[i] == '.')) ++i;
      out += number(count++);
    } else {
      out.push_back(text[i++]);
    }
  }
  return out;
}

std::string Noise(size_t size, std::uint32_t seed) {
  std::string out(size, '\0');
  for (char& c : out) {
    seed = seed * 1664525u + 1013904223u;
    c = static_cast<char>(seed >> 24);
  }
  return out;
}

struct Hostile {
  std::string name;
  std::string bytes;
};

std::vector<Hostile> HostileInputs(const std::string& format) {
  const std::vector<std::string> lines = Realistic(format);
  const std::string sample = Joined(lines, {"\r\n"});
  std::vector<Hostile> inputs;
  inputs.push_back({"empty", ""});
  inputs.push_back({"one byte", "7"});
  inputs.push_back({"binary noise", Noise(64 * 1024, 12345)});
  {
    std::string line;
    line.reserve(10 * 1024 * 1024);
    while (line.size() < 10 * 1024 * 1024) line += "40.00,T,";
    inputs.push_back({"a 10 MB line without line end", std::move(line)});
  }
  inputs.push_back(
      {"commas and blanks only", Joined(std::vector<std::string>(40, " ,, ,"), {"\r\n"})});
  inputs.push_back(
      {"the last record cut short", sample.substr(0, sample.size() - lines.back().size() / 2 - 2)});
  inputs.push_back({"another format's file", AnotherFormatsFile(format)});
  inputs.push_back({"mixed line ends", Joined(lines, {"\r", "\n", "\r\n", "\n\r"})});
  {
    std::string with_eof;
    for (const std::string& line : lines) {
      with_eof += line.substr(0, line.size() / 2) + '\x1a' + line.substr(line.size() / 2) + "\r\n";
    }
    inputs.push_back({"Ctrl-Z inside", with_eof});
  }
  {
    std::string high = sample;
    for (size_t i = 0; i < high.size(); ++i) {
      if (high[i] >= 'A' && high[i] <= 'Z' && i % 3 == 0)
        high[i] = static_cast<char>(0xC0 + i % 60);
    }
    high += "\xff\xfe\x80\r\n";
    inputs.push_back({"bytes above 127", high});
  }
  inputs.push_back({"huge and negative numbers", ReplaceNumbers(sample, [](int n) {
                      static const char* const kNumbers[] = {
                          "-99999999999999999999",           "4294967296", "-1", "32768", "-0.005",
                          "99999999999999999999999999999999"};
                      return std::string(kNumbers[n % 6]);
                    })});
  inputs.push_back({"1e308", ReplaceNumbers(sample, [](int n) {
                      return std::string(n % 2 ? "1e308" : "-1.7976931348623157e308");
                    })});
  inputs.push_back({"the sample itself", sample});
  return inputs;
}

// The settings files a start opens, and may create empty: the program's own.
bool IsSettingsFile(const WorkDir& dir, const fs::path& path) {
  static const char* const kNames[] = {"Corvane_Control.dat", "LocFile.dat",
                                       "TimeImport_EarnCodes.dat", "TimeImport_K8settings.dat",
                                       "TimeImport_TMsettings.dat"};
  if (path.parent_path() != dir.settings()) return false;
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [&](const char* name) { return path.filename() == name; });
}

// Every file under the work folder but the output folder, the transcript and the settings
// files, with its size: what a run must leave as it found it.
std::map<std::string, std::uintmax_t> Snapshot(const WorkDir& dir) {
  std::map<std::string, std::uintmax_t> files;
  for (auto it = fs::recursive_directory_iterator(dir.root());
       it != fs::recursive_directory_iterator(); ++it) {
    const fs::path& path = it->path();
    if (path == dir.output()) {
      it.disable_recursion_pending();
      continue;
    }
    if (path == dir.transcript() || IsSettingsFile(dir, path)) continue;
    files[path.string()] = it->is_regular_file() ? it->file_size() : 0;
  }
  return files;
}

void ExpectEndsCleanly(const std::string& format, const std::string& what,
                       const std::vector<std::string>& input_args, const WorkDir& dir) {
  SCOPED_TRACE(format + ": " + what);
  const auto before = Snapshot(dir);
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--output",
            dir.output().string(), "--accept-defaults"});
  // a format whose run is refused without a location reads nothing without one
  if (format == "Squirrel v3.2") call.Add({"--location", "SW"});
  call.args.insert(call.args.end(), input_args.begin(), input_args.end());
  const auto start = std::chrono::steady_clock::now();
  const CommandResult result = call.Go(kSecondsPerRun);
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_FALSE(result.timed_out);
  EXPECT_LT(took, std::chrono::seconds(kSecondsPerRun));
  EXPECT_TRUE(result.status == 0 || result.status == 1 || result.status == 3 || result.status == 4)
      << "status " << result.status << "\n"
      << result.err.substr(0, 2000);
  EXPECT_EQ(Snapshot(dir), before) << "the run wrote outside its output folder";
}

class BadInput : public ::testing::TestWithParam<std::string> {};

TEST_P(BadInput, EveryHostileExportEndsTheRunCleanly) {
  const std::string& format = GetParam();
  for (const Hostile& input : HostileInputs(format)) {
    WorkDir dir;
    const fs::path file = dir.root() / "export.txt";
    WriteBytes(file, input.bytes);
    ExpectEndsCleanly(format, input.name, {"--input", file.string()}, dir);
  }
}

TEST_P(BadInput, AnExportThatIsNotThereEndsTheRunCleanly) {
  WorkDir dir;
  ExpectEndsCleanly(GetParam(), "missing file",
                    {"--input", (dir.root() / "gone" / "export.txt").string()}, dir);
}

// The bundled examples that bring side files: README's format table names each format's
// example; one in a folder of its own has its side files beside it.
struct SideFileExample {
  std::string format;
  fs::path folder;  // the example's folder under examples/
  std::string export_name;
};

std::vector<SideFileExample> SideFileExamples() {
  std::vector<SideFileExample> found;
  const fs::path examples(CORVANE_EXAMPLES);
  std::ifstream readme(examples.parent_path() / "README.md");
  std::string line;
  while (std::getline(readme, line)) {
    // | "Name" | [page](docs/formats/page.md) | `examples/folder/export` |
    if (!line.starts_with("| \"")) continue;
    const std::size_t name_end = line.find('"', 3);
    const std::size_t at = line.find("`examples/");
    if (name_end == std::string::npos || at == std::string::npos) continue;
    const std::size_t end = line.find('`', at + 1);
    const std::string path = line.substr(at + 10, end - at - 10);
    const std::size_t slash = path.find('/');
    if (slash == std::string::npos) continue;  // an example without side files
    found.push_back(
        {line.substr(3, name_end - 3), examples / path.substr(0, slash), path.substr(slash + 1)});
  }
  return found;
}

// A side file beside the export that is missing, empty or noise: the run still ends cleanly.
TEST(BadSideFiles, MissingEmptyOrNoisySideFilesEndTheRunCleanly) {
  const std::vector<SideFileExample> examples = SideFileExamples();
  ASSERT_FALSE(examples.empty());
  for (const SideFileExample& example : examples) {
    std::vector<std::string> side_files;
    for (const fs::directory_entry& entry : fs::directory_iterator(example.folder)) {
      const std::string name = entry.path().filename().string();
      if (name != example.export_name) side_files.push_back(name);
    }
    ASSERT_FALSE(side_files.empty()) << example.folder;
    for (const std::string& side : side_files) {
      for (const char* what : {"missing", "empty", "noise"}) {
        WorkDir dir;
        for (const fs::directory_entry& entry : fs::directory_iterator(example.folder)) {
          dir.CopyIn(entry.path(), entry.path().filename().string());
        }
        const fs::path target = dir.root() / side;
        if (std::string(what) == "missing") {
          fs::remove(target);
        } else {
          WriteBytes(target, std::string(what) == "empty" ? "" : Noise(4096, 777));
        }
        ExpectEndsCleanly(example.format, side + " " + what,
                          {"--input", (dir.root() / example.export_name).string()}, dir);
      }
    }
  }
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name;
  for (char c : info.param) name.push_back(std::isalnum(static_cast<unsigned char>(c)) ? c : '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Formats, BadInput, ::testing::ValuesIn(FormatsWithTranslators()),
                         TestName);

}  // namespace
}  // namespace corvane_test
