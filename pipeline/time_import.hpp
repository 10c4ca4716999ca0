// The main form: the screen, the import record and all run state. Readers and translators
// share these members; there is no other home for run state.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>
#include <vector>

#include "pipeline/import_check.hpp"
#include "pipeline/import_record.hpp"
#include "pipeline/run_summary.hpp"
#include "runtime/dates.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/infile.hpp"
#include "runtime/value.hpp"
#include "runtime/workbook.hpp"
#include "screen/operator.hpp"
#include "screen/screen.hpp"
#include "settings/ecode_data.hpp"
#include "settings/ecode_grid.hpp"
#include "settings/kronos8.hpp"
#include "settings/timemanager.hpp"

namespace corvane {

struct ClockEntry;
struct Translator;

// The program's title and version.
inline constexpr std::string_view kAppTitle = "Corvane";
inline constexpr std::string_view kFormCaption = "Corvane Import Manager";
inline constexpr int kVersionMajor = CORVANE_VERSION_MAJOR;
inline constexpr int kVersionMinor = CORVANE_VERSION_MINOR;
inline constexpr int kVersionRevision = CORVANE_VERSION_PATCH;

// What the host gives the form: the settings folder and today's date.
struct Environment {
  std::string settings_dir;
  Date today;
};

class frmTimeImport {
 public:
  frmTimeImport(Operator& ui, Environment env);
  ~frmTimeImport();

  Operator& ui;
  Environment env;
  Screen S;
  std::string Caption{kFormCaption};

  // The side forms: the earning-code grid and the two customisations. They read the main
  // screen's CoNum and PickTC.
  frmECode ECode;
  frmKv8 Kv8;
  frmTMdept TMdept;
  // The earning-code table of the current run, and that of the grid.
  std::unique_ptr<ECodeData> rsECodes, rsUsedECodes;

  // The import record.
  ImportRecord ImportRec;

  // Run state.
  std::string ChosenTC;
  bool Ready = false;
  Value INFile, Output_Path, OUTFile, AuditFile, ExceptionFile;
  std::string OtherOUTFile;
  Value Build_String;
  std::string InRec;
  Value Response;
  long RecCount = 0;
  long TCcount = 0;
  std::int16_t RecNum = 0;
  Value Result;
  std::int16_t NumHoursColumns = 6;
  std::array<Value, 100> ColumnValues;  // entries 1 to 99
  std::string quote;
  bool exceptNotice = false;
  double HoursConverted = 0;
  std::unique_ptr<Workbook> WkbObj;
  // The input record's employee and dollars fields of "ADP/Aspect", which its exception
  // line quotes.
  Value ADPAspect_EmpNo, ADPAspect_Dollars;
  // "QsrSoft": the count of InitFiles calls in this run, which is also the number under which
  // each call opens the export.
  std::int16_t QsrOUTFileCount = 0;

  // The file system service and the output streams; a stream never created is null.
  FileSystem fs;
  std::unique_ptr<TextStream> OutputStream, AuditStream, ExceptionStream;
  // The input files by number: 1 the export, 9 a second input.
  InputFile& File(int number);

  // Start and end of the program; the stored screen.
  void Form_Load();
  void Set_Defaults();
  void Form_Unload();
  // The menu's Exit: the side forms, then the main form.
  void Exit();
  // Loads frmKv8 and frmTMdept hidden (a form already loaded stays as it is); read_tm has
  // the Time Manager form read its settings file.
  void LoadSideForms(bool read_tm);
  void UnloadSideForms();
  std::string ControlFile, LocFile;
  std::string ControlRec;  // the control file's read buffer, trimmed

  // The location table: 100 rows of 15 cells, both counted from 1.
  std::array<std::array<std::string, 16>, 101> INPData;
  void cmdLookup_Click();
  void StoreLocation(std::int16_t row);

  // The buttons of the side forms.
  void cmdAssEcodes_Click();
  void cmdKv8_Click();
  void cmdTM_Click();

  void PickTC_Click();
  // Selects a PickTC entry by index (-1 for none) and runs the click.
  void SelectTimeClock(int index);

  // The run.
  // The press: the run, with its summary and check gathered on the way.
  void cmdInterface_Click();
  void Corvane();
  void ChooseTC();
  void InitFiles();
  // Creates the import and audit files anew under OUTFile and AuditFile, letting go of any
  // the run holds: for a branch that names its files from the file's contents.
  void CreateOutputFiles();
  void CloseFiles();
  Value ExtractInputPath() const;
  static Value LastRow(const Sheet& sheet);

  // The writers.
  void WriteOutputRec();
  void WriteOutputRecOther();
  // hours: the record's Hours in its printed form
  void WriteAuditRec(std::string_view hours);
  void WriteExceptionRec(const Value& Detail);
  void ClearData();

  // To apply a category: Earning_Code := its code box, DorE := its D-or-E box.
  void Apply(Cat category) {
    ImportRec.Earning_Code.SetText(S.Code(category));
    ImportRec.DorE.SetText(S.DE(category));
  }
  // One category written: hours go out with no dollars, and dollars with no hours, so that
  // nothing of the category written before rides along.
  void WriteHours(Cat category, const Value& hours) {
    if (hours.IsNumber()) {
      ImportRec.Hours.SetNumber(hours.number());
    } else {
      ImportRec.Hours = hours;
    }
    ImportRec.Amount.clear();
    Apply(category);
    WriteOutputRec();
  }
  void WriteDollars(Cat category, std::string amount) {
    ImportRec.Hours = "";
    ImportRec.Amount = std::move(amount);
    Apply(category);
    WriteOutputRec();
  }
  // Dollars given as a value go out in its printed form.
  void WriteDollars(Cat category, const Value& amount) {
    ImportRec.Hours.SetText("");
    char room[kPrintedNumberRoom];
    ImportRec.Amount.assign(PrintedView(amount, room));
    Apply(category);
    WriteOutputRec();
  }

  // Shows a message; the title is "Corvane" unless given.
  MsgAnswer MsgBox(std::string_view text, MsgButtons buttons = MsgButtons::OKOnly,
                   std::string_view title = kAppTitle);

  // Whether the last press ended with the report of CloseFiles.
  bool Reported() const { return reported_; }

  // The safety net of a press: what the writers wrote and dropped, and the pre-import check
  // of every line written. Both are gathered afresh at each press, with the thresholds in
  // check_options as they stand at the press, and stay until the next press.
  CheckOptions check_options;
  // Off, the writers skip both: the summary keeps a row per employee, which a run of a
  // million employees would otherwise carry for nothing.
  bool gather_summary = true;
  const RunSummary& LastSummary() const { return summary_; }
  const ImportCheck& LastCheck() const { return check_; }

  // The input fields of one format: plain members of the form, one group per format,
  // created at first use and kept for the life of the form.
  template <class T>
  T& Fields() {
    // A reader and its translator ask for the same group at every record: the last one
    // asked for is kept at hand, ahead of the map.
    if (last_fields_type_ == &typeid(T)) return static_cast<Holder<T>*>(last_fields_)->value;
    auto& slot = fields_[std::type_index(typeid(T))];
    if (!slot) slot = std::make_unique<Holder<T>>();
    last_fields_type_ = &typeid(T);
    last_fields_ = slot.get();
    return static_cast<Holder<T>*>(slot.get())->value;
  }

  // Set when InitFiles could not create the output files: the writers then have no stream,
  // and the reading ends quietly whatever the frame.
  bool OutputMissing() const { return output_missing_; }

 private:
  void Dispatch();
  void BuildOutputName();
  // Closes the import and audit files, both of them, then raises the first failure.
  void CloseOutputStreams();
  // The writers' first steps: the drop rules and the shift; false drops the record.
  bool KeepRecord(bool x_passes);
  // A record the drop rules kept: its line to the import file (or with other, the
  // exception file), then its audit lines.
  void WriteKeptRecord(bool other);
  // hours: the record's Hours in its printed form
  void BuildLine(bool other, std::string_view hours);
  // A line just written: into the summary and through the check.
  void NoteWritten(bool other);

  struct HolderBase {
    virtual ~HolderBase() = default;
  };
  template <class T>
  struct Holder : HolderBase {
    T value{};
  };
  std::unordered_map<std::type_index, std::unique_ptr<HolderBase>> fields_;
  const std::type_info* last_fields_type_ = nullptr;
  HolderBase* last_fields_ = nullptr;
  std::array<InputFile, 10> files_;
  bool reported_ = false;
  RunSummary summary_;
  ImportCheck check_;
  bool output_missing_ = false;
  bool kv8_loaded_ = false;
  bool tm_read_ = false;
  // The writers' line: built in line_buffer_, which grows only for a line longer than any
  // before it, and seen through line_ until the next line is built.
  std::vector<char> line_buffer_;
  std::string_view line_;
};

}  // namespace corvane
