// The control file: the main screen as it was at the last exit, one value a line, each line
// 60 characters. A value's meaning is its line number only.
#include <optional>

#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

namespace {

constexpr std::size_t kLineWidth = 60;
constexpr char kCR = '\r';

// Lines 7 to 34 hold the fourteen named groups in screen order, D-or-E box then code box.
// Line 33 is written from txtCCtipDE but read into txtWaitOTDE.
Ctl SavedBox(int line) {
  const CategoryBoxes& b = Boxes(static_cast<Cat>((line - 7) / 2));
  return line % 2 == 1 ? b.de : b.code;
}
Ctl RestoredBox(int line) {
  return line == 33 ? txtWaitOTDE : SavedBox(line);
}

// The default put into ControlRec before a line of 7 to 34 is read; lines 7 to 18 have none.
std::optional<std::string_view> BoxDefault(int line) {
  static constexpr std::string_view kCodes[] = {"8", "9", "10", "11", "12", "61", "62"};
  if (line < 19) return std::nullopt;
  if (line >= 33) return line == 33 ? "E" : "69";
  return (line % 2 == 1) ? std::string_view("E") : kCodes[(line - 20) / 2];
}

constexpr Ctl kCheckLines[] = {chkDept, chkPayRate, chkSSN, chkDiv, chkBr, chkSupEE};  // 91-96
constexpr Ctl kComboLines[] = {cmboWG1, cmboWG2, cmboWG3};                             // 97-99

// A check box takes 0, 1 or 2 (greyed); anything else is refused as the control refuses it.
void SetCheck(Control& box, const std::string& text) {
  const int v = ToInteger(Value(text));
  if (v < 0 || v > 2) Raise(380, "Invalid property value");
  box.value = v;
}

// A list's selection by index: a number past the list is refused.
void SelectIndex(Control& list, const std::string& text) {
  const int index = IsNumeric(text) ? ToInteger(Value(text)) : 0;
  if (index < -1 || index >= static_cast<int>(list.items.size())) {
    Raise(380, "Invalid property value");
  }
  list.list_index = index;
}

// The path a folder list can go to; one that does not exist is refused.
void GoToFolder(Control& dir, const std::string& path) {
  std::error_code ec;
  if (path.empty() || !std::filesystem::is_directory(path, ec)) Raise(kPathNotFound);
  dir.text = path;
  dir.list_index = -1;
}

// Runs one step of the restore; a failed step is skipped without a word.
template <class F>
void Step(F f) {
  try {
    f();
  } catch (const RuntimeError&) {
  }
}

}  // namespace

void frmTimeImport::Form_Load() {
  Caption = std::string(kFormCaption) + " - v" + std::to_string(kVersionMajor) + "." +
            std::to_string(kVersionMinor);
  if (kVersionRevision > 0) Caption += "." + std::to_string(kVersionRevision);
  exceptNotice = false;
  quote = "\"";
  S[pdEndDate].text = ShortDate(env.today);
  ControlFile = SettingsPath(env.settings_dir, kControlFileName);
  LocFile = SettingsPath(env.settings_dir, kLocFileName);

  InputFile in;
  try {
    in.Open(ControlFile, OpenMode::Text);
  } catch (const RuntimeError& error) {
    // Failure A: a first start, or the folder is gone.
    const std::string CR(1, kCR);
    MsgBox("Unable to locate a file to store your default settings." + CR + CR +
           error.description() + CR + CR + "A new one will be created in " + env.settings_dir +
           " called: Corvane_Control.dat");
    Set_Defaults();
    return;
  }

  // Reads the next line into ControlRec: cut at 60 characters, trimmed.
  auto read_line = [&] {
    std::string line = in.LineInput();
    if (line.size() > kLineWidth) line.resize(kLineWidth);
    ControlRec = Trim(line);
  };

  std::string input_file, output_path, input_folder;
  try {
    read_line();
    ChosenTC = ControlRec;
    SelectIndex(S[PickTC], IsNumeric(ControlRec) ? ControlRec : "0");
    PickTC_Click();
    read_line();
    input_file = ControlRec;
    read_line();
    output_path = ControlRec;
    S[CorvaneOutputPath].text = ControlRec;
    read_line();
    S[CoNum].text = ControlRec;
  } catch (const RuntimeError& error) {
    // Failure B: the first four lines are the ones a screen cannot do without.
    if (error.number() != kPathNotFound) {
      const std::string CR(1, kCR);
      MsgBox("Unable to set all your default settings." + CR + CR + error.description() + CR + CR +
             "Please check all your inputs before creating your Evolution Import File.");
    }
    in.Close();
    Set_Defaults();
    return;
  }

  // From line 5 on a line that cannot be read leaves ControlRec as it was: the default put
  // there first, or else the value of the line before.
  auto next = [&](std::optional<std::string_view> preset) {
    if (preset) ControlRec = *preset;
    Step(read_line);
  };

  next(std::nullopt);  // line 5
  input_folder = ControlRec;
  NumHoursColumns = 6;
  next(std::nullopt);  // line 6
  Step([&] { NumHoursColumns = ToInteger(Value(ControlRec)); });
  for (int line = 7; line <= 34; ++line) {
    next(BoxDefault(line));
    S[RestoredBox(line)].text = ControlRec;
  }
  for (int k = 15; k <= 42; ++k) {
    const CategoryBoxes& b = Boxes(Numbered(k));
    next("E");
    S[b.de].text = ControlRec;
    next("");
    S[b.code].text = ControlRec;
  }
  for (Ctl box : kCheckLines) {  // lines 91 to 96
    next("1");
    Step([&] { SetCheck(S[box], ControlRec); });
  }
  for (Ctl list : kComboLines) {  // lines 97 to 99
    next(std::nullopt);
    Step([&] { SelectIndex(S[list], ControlRec); });
  }
  next("0");  // line 100
  Step([&] { SetCheck(S[chkJob], ControlRec); });
  next(std::nullopt);  // line 101
  S[txtMinWage].text = ControlRec;
  next(std::nullopt);  // line 102
  S[txtMiscText].text = ControlRec;

  // The pickers last: each fires its change event, which rewrites the two path boxes.
  Step([&] {
    GoToFolder(S[dirInput], input_folder);
    S.dirInput_Change();
  });
  S[CorvaneInputFile].text = input_file;
  Step([&] {
    GoToFolder(S[dirOutput], output_path);
    S.dirOutput_Change();
  });
  in.Close();

  cmdLookup_Click();
  LoadSideForms(true);
  S[ShowSample].visible = false;
}

void frmTimeImport::Set_Defaults() {
  NumHoursColumns = 6;
  SelectTimeClock(0);
  S[CoNum].text = "123";
  static constexpr struct {
    Cat category;
    const char* code;
  } kFactoryCodes[] = {
      {Cat::Reg, "2"},     {Cat::OT, "3"},      {Cat::Dbl, "4"},   {Cat::Tips, "5"},
      {Cat::Sales, "6"},   {Cat::Misc, "7"},    {Cat::Disb, "8"},  {Cat::Abs, "9"},
      {Cat::Hol, "10"},    {Cat::AdjH, "11"},   {Cat::AdjD, "12"}, {Cat::WaitReg, "61"},
      {Cat::WaitOT, "62"}, {Cat::CCTips, "69"},
  };
  for (const auto& f : kFactoryCodes) {
    S[Boxes(f.category).de].text = "E";
    S[Boxes(f.category).code].text = f.code;
  }
  for (Ctl wg : {cmboWG1, cmboWG2, cmboWG3}) S[wg].list_index = 0;
  // This path does not have the Time Manager form read its settings.
  LoadSideForms(false);
  S[ShowSample].visible = false;
}

void frmTimeImport::Form_Unload() {
  try {
    if (!fs.folderexists(env.settings_dir)) fs.CreateFolder(env.settings_dir);
  } catch (const RuntimeError&) {
  }
  try {
    // Each file is written whole under a new name and takes its own name only when
    // complete: a failure leaves the file it was to replace as it was, and a failure in the
    // control file leaves the location table untouched.
    std::unique_ptr<TextStream> control = fs.createreplacement(ControlFile);
    std::unique_ptr<TextStream> locations = fs.createreplacement(LocFile);

    static const std::string kSpaces(kLineWidth, ' ');
    std::string line;
    auto write = [&](const std::string& value) {
      // The padding is the rightmost (60 - length) spaces: a longer value cannot be padded.
      line = value;
      line += Right(kSpaces, static_cast<long>(kLineWidth) - static_cast<long>(value.size()));
      control->WriteLine(line);
    };
    // Three paths are kept short enough to store; the first two become the design
    // captions, which the run reads as nothing entered.
    auto guarded = [&](const std::string& value, std::string_view replacement) {
      write(value.size() > kLineWidth ? std::string(replacement) : value);
    };

    write(std::to_string(S[PickTC].list_index));
    guarded(S[CorvaneInputFile].text, "Input file (from Time Clock system)");
    guarded(S[CorvaneOutputPath].text, "Output path (folder for Evolution Import file)");
    write(S[CoNum].text);
    guarded(S[dirInput].text, "c:\\");
    write(std::to_string(NumHoursColumns));
    for (int line = 7; line <= 34; ++line) write(S[SavedBox(line)].text);
    for (int k = 15; k <= 42; ++k) {
      write(S[Boxes(Numbered(k)).de].text);
      write(S[Boxes(Numbered(k)).code].text);
    }
    for (Ctl box : kCheckLines) write(std::to_string(S[box].value));
    for (Ctl list : kComboLines) write(std::to_string(S[list].list_index));
    write(std::to_string(S[chkJob].value));
    write(S[txtMinWage].text);
    write(S[txtMiscText].text);
    control->Close();

    // The location table: the current screen takes the row of its location, or the first
    // free row, then every used row is written up to the first free one.
    const std::string loc = Trim(S[LocNum].text);
    for (std::int16_t row = 1; row <= 100; ++row) {
      const std::string first = Trim(INPData[row][1]);
      if (first.empty() || first == loc) {
        if (!loc.empty()) StoreLocation(row);
        break;
      }
    }
    for (int row = 1; row <= 100; ++row) {
      const std::string first = Trim(INPData[row][1]);
      if (first.empty()) break;
      line = first;
      for (int col = 2; col <= 15; ++col) {
        line += ',';
        line += INPData[row][col];
      }
      locations->WriteLine(line);
    }
    locations->Close();
  } catch (const RuntimeError& error) {
    MsgBox("Unable to store Corvane_Control Information." + error.description());
  }
}

void frmTimeImport::Exit() {
  UnloadSideForms();
  Form_Unload();
}

}  // namespace corvane
