// corvane: the headless front end. `corvane run` drives the main screen as an operator would;
// `corvane formats` lists the time clocks.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/headless_operator.hpp"
#include "cli/safety_net.hpp"
#include "cli/settings_commands.hpp"
#include "pipeline/dispatch.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/infile.hpp"
#include "screen/catalogue.hpp"

namespace corvane {
namespace {

std::string VersionText() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}

std::string DefaultSettingsDir() {
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : ".") + "/Corvane";
}

bool Written(std::string_view key) {
  const ClockEntry* clock = FindClock(key);
  return clock != nullptr && FindTranslator(clock->translator) != nullptr;
}

int Formats(bool missing) {
  for (std::string_view name : CatalogueNames()) {
    if (!missing || !Written(name)) std::cout << name << '\n';
  }
  return 0;
}

// Each entry's configuration: what choosing it sets on the screen.
int FormatsJson(bool missing) {
  // The minimum wage and misc text boxes are shown under their labels' design captions.
  const Screen design;
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const ClockConfig& clock : Catalogue()) {
    if (missing && Written(clock.name)) continue;
    nlohmann::ordered_json j;
    j["name"] = Latin1ToUtf8(clock.name);
    j["index"] = CatalogueIndex(clock.name);
    j["listed"] = clock.listed;
    j["translator"] = Written(clock.name);
    j["pattern"] = clock.pattern;
    j["boxes"] = nlohmann::ordered_json::array();
    for (const ClockBox& box : clock.boxes) {
      // The names are the screen's own, the ones --set takes.
      nlohmann::ordered_json b;
      switch (box.kind) {
        case ClockBox::kMinWage:
          b = {{"box", Screen::NameOf(txtMinWage)}, {"label", design[lblMinWage].caption}};
          break;
        case ClockBox::kMiscText:
          b = {{"box", Screen::NameOf(txtMiscText)}, {"label", design[lblMiscText].caption}};
          break;
        case ClockBox::kCategory: {
          const CategoryBoxes& names = Boxes(box.category);
          b = {{"box", Screen::NameOf(names.code)},
               {"de", Screen::NameOf(names.de)},
               {"label", Latin1ToUtf8(box.label)}};
          break;
        }
      }
      j["boxes"].push_back(std::move(b));
    }
    j["grid"] = clock.grid;
    j["location"] = clock.location;
    j["end_date"] = clock.end_date;
    j["shows"] = nlohmann::ordered_json::array();
    for (const ClockShow& show : clock.shows) {
      nlohmann::ordered_json s{{"control", show.control}};
      if (show.text) s["text"] = Latin1ToUtf8(*show.text);
      j["shows"].push_back(std::move(s));
    }
    j["samples"] = nlohmann::ordered_json::array();
    for (std::string_view row : clock.samples) j["samples"].push_back(Latin1ToUtf8(row));
    all.push_back(std::move(j));
  }
  std::cout << all.dump(2) << '\n';
  return 0;
}

// Parses an index or the text of an entry of a list.
int EntryIndex(const Control& c, const std::string& value) {
  for (std::size_t i = 0; i < c.items.size(); ++i) {
    if (c.items[i] == value) return static_cast<int>(i);
  }
  try {
    std::size_t used = 0;
    int index = std::stoi(value, &used);
    if (used == value.size() && index >= -1 && index < static_cast<int>(c.items.size())) {
      return index;
    }
  } catch (const std::exception&) {
  }
  throw UsageError("\"" + value + "\" is not an entry of " + std::string(c.name));
}

int ZeroOrOne(const Control& c, const std::string& value) {
  if (value == "0") return 0;
  if (value == "1") return 1;
  throw UsageError(std::string(c.name) + " takes 0 or 1, not \"" + value + "\"");
}

// The operator picks a file: the folder list goes to its folder, then a click on its name.
void PickInput(frmTimeImport& F, const std::string& path) {
  std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(path));
  F.S[dirInput].text = p.parent_path().string();
  F.S[dirInput].list_index = -1;
  F.S.dirInput_Change();
  F.S[filInput].file_name = p.filename().string();
  F.INFile = F.S.filInput_Click();
}

// A named field as typing and leaving it, ticking it or choosing in it would set it.
void SetField(frmTimeImport& F, const std::string& name, const std::string& value) {
  const std::optional<Ctl> found = Screen::IdOf(name);
  if (!found) throw UsageError("the main screen has no field named \"" + name + "\"");
  const Ctl id = *found;
  Control* c = &F.S[id];
  switch (c->kind) {
    case kTextBox:
      c->text = value;
      F.S.LeaveBox(id, F.ui);
      return;
    case kCheckBox:
      c->value = ZeroOrOne(*c, value);
      return;
    case kOptionButton: {
      c->value = ZeroOrOne(*c, value);
      // a pair of option buttons: switching one on switches the other off
      if (c->value == 1) F.S[id == optOldFormat ? optNewFormat : optOldFormat].value = 0;
      return;
    }
    case kComboBox:
      c->list_index = EntryIndex(*c, value);
      return;
    case kListBox:
      F.SelectTimeClock(EntryIndex(*c, value));
      return;
    case kList:
      c->list_index = EntryIndex(*c, value);
      if (id == ShowSample) F.S.ShowSample_Click();
      return;
    case kDriveList:
      c->text = value;
      if (id == drvInput) F.S.drvInput_Change();
      if (id == drvOutput) F.S.drvOutput_Change();
      return;
    case kDirList:
      c->text = value;
      c->list_index = -1;
      if (id == dirInput) F.S.dirInput_Change();
      if (id == dirOutput) F.S.dirOutput_Change();
      return;
    case kFileList:
      c->file_name = value;
      F.INFile = F.S.filInput_Click();
      return;
    case kLabel:
    case kCommandButton:
    case kImage:
      break;
  }
  throw UsageError("\"" + name + "\" cannot be set: it is not an entry field");
}

void Press(frmTimeImport& F, const std::string& name) {
  if (name == "cmdShowSample") return F.S.cmdShowSample_Click();
  if (name == "cmdHideSample") return F.S.cmdHideSample_Click();
  if (name == "cmdInterface") return F.cmdInterface_Click();
  if (name == "cmdLookup") return F.cmdLookup_Click();
  if (name == "cmdAssEcodes") return F.cmdAssEcodes_Click();
  if (name == "cmdKv8") return F.cmdKv8_Click();
  if (name == "cmdTM") return F.cmdTM_Click();
  throw UsageError("the main screen has no button named \"" + name + "\"");
}

struct ScreenEntry {
  std::string option;  // "--company", "--set", ...
  std::string value;
};

// The screen options in the order given: they are typed in that order.
std::vector<ScreenEntry> OrderedScreenEntries(int argc, char** argv) {
  static const std::string kOptions[] = {"--company", "--end-date", "--location",
                                         "--input",   "--output",   "--set"};
  std::vector<ScreenEntry> entries;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    for (const std::string& o : kOptions) {
      if (arg == o && i + 1 < argc) {
        entries.push_back({o, argv[++i]});
        break;
      }
      if (arg.rfind(o + "=", 0) == 0) {
        entries.push_back({o, arg.substr(o.size() + 1)});
        break;
      }
    }
  }
  return entries;
}

struct RunOptions {
  std::string settings_dir = DefaultSettingsDir();
  std::string today;
  std::string format;
  std::vector<std::string> press;
  std::vector<std::string> answers;
  bool accept_defaults = false;
  std::string transcript;
  bool save_screen = false;
  std::string summary;
  CheckFlags check;
};

int Run(const RunOptions& o, const std::vector<ScreenEntry>& entries) {
  Environment env{o.settings_dir, SystemToday()};
  if (!o.today.empty()) {
    const std::optional<Date> today = ParseDate(o.today);
    if (!today || o.today.size() != 10 || o.today[4] != '-') {
      std::cerr << "corvane: --today takes a date as YYYY-MM-DD\n";
      return 2;
    }
    env.today = *today;
  }
  std::ofstream transcript_file;
  if (!o.transcript.empty()) {
    transcript_file.open(o.transcript, std::ios::binary | std::ios::trunc);
    if (!transcript_file) {
      std::cerr << "corvane: cannot write the transcript " << o.transcript << "\n";
      return 2;
    }
  }
  SummaryOutput summary;
  if (!summary.Open(o.summary)) {
    std::cerr << "corvane: cannot write the summary " << o.summary << "\n";
    return 2;
  }
  HeadlessOperator ui({o.answers.begin(), o.answers.end()}, o.accept_defaults,
                      o.transcript.empty() ? nullptr : &transcript_file, isatty(0) == 1);
  frmTimeImport F(ui, env);
  F.check_options = o.check.Resolved();
  F.gather_summary = summary.wanted();
  // The summary of a press that began goes out whatever ended it; a wrong command line
  // before the press leaves none.
  bool pressed = false;
  bool summary_whole = true;
  auto write_summary = [&] {
    if (pressed && !summary.Write(F)) summary_whole = false;
  };
  int status = 0;
  try {
    F.Form_Load();
    if (!o.format.empty()) {
      const int index = CatalogueIndex(o.format);
      if (index < 0) throw UsageError("no time clock is named \"" + o.format + "\"");
      F.SelectTimeClock(index);
    }
    for (const ScreenEntry& e : entries) {
      if (e.option == "--company") F.S[CoNum].text = e.value;
      if (e.option == "--end-date") F.S[pdEndDate].text = e.value;
      if (e.option == "--location") F.S[LocNum].text = e.value;
      if (e.option == "--input") PickInput(F, e.value);
      if (e.option == "--output") F.S[CorvaneOutputPath].text = e.value;
      if (e.option == "--set") {
        const std::size_t eq = e.value.find('=');
        if (eq == std::string::npos) throw UsageError("--set takes NAME=VALUE");
        SetField(F, e.value.substr(0, eq), e.value.substr(eq + 1));
      }
    }
    for (const std::string& name : o.press) Press(F, name);
    pressed = true;
    F.cmdInterface_Click();
    write_summary();
    status = F.Reported() ? 0 : 1;
    if (o.save_screen) F.Exit();
  } catch (const RuntimeError& error) {
    // The program ends at once, without storing the screen.
    ui.RuntimeErrorReport(error);
    write_summary();
    status = 3;
  } catch (const FatalError& fatal) {
    ui.RuntimeErrorReport(fatal.error());
    write_summary();
    status = 3;
  } catch (const Unanswered&) {
    ui.FlushSaid();
    std::cerr << "corvane: a question was left unanswered\n";
    write_summary();
    status = 4;
  } catch (const UsageError& e) {
    ui.FlushSaid();
    std::cerr << "corvane: " << e.what() << "\n";
    return 2;
  }
  // A record of the run that the disk cut short is no record: the command says so and ends
  // with the status of a run-time error, whatever the run did.
  ui.FlushSaid();
  if (transcript_file.is_open()) {
    transcript_file.close();
    if (transcript_file.fail()) {
      std::cerr << "corvane: the transcript " << o.transcript << " could not be written whole\n";
      status = 3;
    }
  }
  if (!summary_whole) {
    std::cerr << "corvane: the summary " << o.summary << " could not be written whole\n";
    status = 3;
  }
  return status;
}

// CORVANE_READ_AHEAD_FROM: the size in bytes from which an export is read on a second
// thread (1 MiB unless set); 0 reads every export so, which the tests use to run the bundled
// examples through that road too.
void ReadAheadFromEnvironment() {
  const char* bytes = std::getenv("CORVANE_READ_AHEAD_FROM");
  if (bytes == nullptr || *bytes == '\0') return;
  char* end = nullptr;
  const unsigned long long value = std::strtoull(bytes, &end, 10);
  if (*end == '\0') InputFile::SetReadAheadFrom(value);
}

int Main(int argc, char** argv) {
  ReadAheadFromEnvironment();
  CLI::App app{"Corvane Import Manager: time clock exports into Evolution import files"};
  app.set_version_flag("--version", "corvane " + VersionText());
  app.require_subcommand(1);

  RunOptions o;
  CLI::App* run = app.add_subcommand("run", "Run one translation as the main screen would");
  run->add_option("--settings-dir", o.settings_dir, "Folder of the settings files");
  run->add_option("--today", o.today, "Today's date for the checks, YYYY-MM-DD");
  run->add_option("--format", o.format, "The time clock, exactly as listed");
  std::vector<std::string> screen_values;
  for (const char* name : {"--company", "--end-date", "--location", "--input", "--output"}) {
    run->add_option(name, screen_values, "A field of the main screen")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
  run->add_option("--set", screen_values, "NAME=VALUE: any named field of the main screen")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  run->add_option("--press", o.press, "Press a button of the main screen by name");
  run->add_option("--answer", o.answers, "The answer to the next question")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);
  run->add_flag("--accept-defaults", o.accept_defaults, "Unanswered questions take their default");
  run->add_option("--transcript", o.transcript, "Write every message and answer as JSON lines");
  run->add_flag("--save-screen", o.save_screen,
                "After the run, leave as Exit does: the control file and the location table "
                "are written");
  run->add_option("--summary", o.summary,
                  "After the run, write its summary and the pre-import check of its lines as "
                  "JSON to this file, or as a short table on standard output with -");
  o.check.AddTo(run);

  CheckFlags check_flags;
  std::string check_file;
  bool check_json = false;
  CLI::App* check =
      app.add_subcommand("check", "Check an existing Evolution import file before it is imported");
  check->add_option("FILE", check_file, "The import file")->required();
  check_flags.AddTo(check);
  check->add_flag("--json", check_json, "The warnings as JSON, in the summary's shape");

  bool missing = false;
  CLI::App* formats = app.add_subcommand("formats", "List the time clocks in list order");
  formats->add_flag("--missing", missing, "Only those whose translator is not written yet");
  bool json = false;
  formats->add_flag("--json", json, "Each entry's configuration of the screen, as JSON");

  SettingsCommands settings;
  settings.AddTo(app, DefaultSettingsDir());

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return 2;
  }
  if (formats->parsed()) return json ? FormatsJson(missing) : Formats(missing);
  if (check->parsed()) return CheckFile(check_file, check_flags.Resolved(), check_json);
  if (int status = 0; settings.Run(status)) return status;
  return Run(o, OrderedScreenEntries(argc, argv));
}

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) {
  try {
    return corvane::Main(argc, argv);
  } catch (const std::exception& e) {
    std::cerr << "corvane: " << e.what() << "\n";
    return 3;
  }
}
