// The two ends of a run: the press of the button with its checks and file names, and the
// file routines that open and close a run.
#include "pipeline/dispatch.hpp"
#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

constexpr char kCR = '\r';

std::string Join(const Value& folder, std::string_view name) {
  return JoinPath(folder.str(), name);
}

// A full path with an extension: on this platform, absolute and holding a point.
bool IsFullPath(const std::string& path) {
  return !path.empty() && path.front() == kPathSeparator && path.find('.') != std::string::npos;
}

}  // namespace

void frmTimeImport::cmdInterface_Click() {
  summary_.Reset();
  check_.Reset(check_options);
  // The summary closes whatever ends the press, a run-time error included.
  try {
    Corvane();
  } catch (...) {
    summary_.Finish(ChosenTC, TCcount, RecCount, reported_);
    check_.Finish();
    throw;
  }
  summary_.Finish(ChosenTC, TCcount, RecCount, reported_);
  check_.Finish();
}

void frmTimeImport::Corvane() {
  reported_ = false;
  // The values of the previous press, not the screen's: the first press always passes.
  if (ChosenTC == "Nothing" || Output_Path == "Output path (folder for Evolution Import file)" ||
      INFile == "Input file (from Time Clock system)") {
    return;
  }
  // The earning codes are read fresh for each run: a row just saved counts at once.
  rsECodes = std::make_unique<ECodeData>(env.settings_dir, S, ui);
  rsECodes->rsECodes.ClearFilter();
  rsECodes->rsECodes.Filter(S[CoNum].text);
  RecCount = 0;
  TCcount = 0;
  ui.Hourglass(true);
  ChooseTC();
  ui.Hourglass(false);
  if (Ready) CloseFiles();
}

void frmTimeImport::ChooseTC() {
  auto fail = [this](std::string_view message) {
    MsgBox(message);
    Ready = false;
  };

  INFile = S[CorvaneInputFile].text;
  Ready = true;

  if (!IsFullPath(INFile.str()) && S[filInput].file_name.empty()) {
    return fail("You must enter an input filename");
  }

  Output_Path = S[CorvaneOutputPath].text;

  ChosenTC = S[PickTC].list_index >= 0 ? std::string(S[PickTC].SelectedText()) : "Nothing";

  if (Trim(S[CoNum].text).empty()) {
    if (ChosenTC != "QsrSoft" || !S.Checked(chkAll)) {
      return fail("Please provide a valid Company Number");
    }
  }

  const std::optional<Date> end_date = ParseDate(S[pdEndDate].text);
  if (!end_date) return fail("Period Ending Date is not formatted properly.");

  // Prevail Pay's input files carry their own dates.
  if (ChosenTC != "Prevail Pay" && ChosenTC != "Prevail Pay 2") {
    const long entered = DaySerial(*end_date);
    const long today = DaySerial(env.today);
    if (entered > today) return fail("Period Ending Date cannot be in the future.");
    if (entered < today - 60) {
      Build_String = std::string("Period Ending Date is more than 60 days old.") + kCR +
                     "Do you want to continue?";
      const MsgAnswer answer = MsgBox(Build_String.text(), MsgButtons::YesNo, "OK to Proceed?");
      Response = std::string(AnswerCaption(answer));
      if (answer == MsgAnswer::No) {
        Ready = false;
        return;
      }
    }
  }

  BuildOutputName();
  if (!Ready) return;

  for (Value& v : ColumnValues) v = Value();

  Dispatch();

  if (!Ready) return;
  for (int n = 1; n <= 99; ++n) {
    if (ColumnValues[n] != Value("X")) continue;
    const std::string_view picked = S[PickTC].SelectedText();
    if (picked == "AE v1.0.28.616") {
      MsgBox("Pay Designation " + std::to_string(n) + " needs an Earning Code assigned to it.");
    } else {
      MsgBox(std::string(picked) + " column " + std::to_string(n) +
             " needs an Earning Code assigned to it.");
    }
  }
}

void frmTimeImport::BuildOutputName() {
  const std::string Loc = Trim(S[LocNum].text);
  const std::string Co = Trim(S[CoNum].text);
  const std::string Mdy = Format(Value(S[pdEndDate].text), "mmddyyyy");
  if (ChosenTC == "Maitre'D") {
    // The blank before ".txt" belongs to the name.
    OUTFile = Join(Output_Path, "Sorrelin Import " + S[CoNum].text + " " + Mdy + " .txt");
  } else if (!Loc.empty()) {
    OUTFile = Join(Output_Path, Co + "_" + Loc + "_ta.txt");
  } else if (ChosenTC == "QsrSoft" || ChosenTC == "Ampay") {
    // Named later by the branch, from the file's contents. Until then there is no name: the
    // branch's first InitFiles must find none, or it would create again, empty, the import
    // file of the press before.
    OUTFile = Value();
  } else if (ChosenTC == "Squirrel v3.2") {
    MsgBox("Please enter a location (e.g. 'RH' or 'SW').");
    Ready = false;
  } else {
    OUTFile = Join(Output_Path, Co + "_ta.txt");
  }
}

void frmTimeImport::Dispatch() {
  const ClockEntry* clock = FindClock(ChosenTC);
  if (clock == nullptr) {
    MsgBox("Must Choose a Time Clock system from the list");
    Ready = false;
    return;
  }
  const Translator* translator = FindTranslator(clock->translator);
  if (translator == nullptr) {
    MsgBox("Time clock " + ChosenTC + " is not available yet.");
    Ready = false;
    return;
  }
  RunBranch(*this, *clock, *translator);
}

void frmTimeImport::InitFiles() {
  ImportRecord& r = ImportRec;
  r.Employee_no = r.Employee_Name = r.payrate = r.Hours = "";
  r.Amount = "";
  r.Division = r.Branch = r.Department = r.Job = r.Shift = r.Team = "";
  r.SSN = "";
  r.WorkersComp = r.RateNumber = "";
  r.State = "";
  r.DorE = "E";
  r.Earning_Code = "?";
  r.Seq = "1";

  const std::string Loc = Trim(S[LocNum].text);
  const std::string Co = Trim(S[CoNum].text);
  const bool qsr = ChosenTC == "QsrSoft";
  if (Loc.empty() && qsr && S.Checked(chkAll)) {
    AuditFile = Join(Output_Path, "Corvane_Audit_QsrSoft.txt");
  } else if (Loc.empty() && ChosenTC == "Ampay") {
    // the branch names it from the file's first record
  } else if (Loc.empty()) {
    AuditFile = Join(Output_Path, "Corvane_Audit_" + Co + ".txt");
  } else {
    AuditFile = Join(Output_Path, "Corvane_Audit_" + Co + "_" + Loc + ".txt");
  }

  // An input file that cannot be opened is not caught here, nor by the branch's frame: the
  // error goes to the caller of the run.
  const ClockEntry* clock = FindClock(ChosenTC);
  try {
    if (qsr) {
      // "QsrSoft" opens its export once more at every call, under the call's number, but
      // reads it under number 1 alone: only the first opening matters to the reading.
      if (QsrOUTFileCount == 1) File(1).Open(INFile.str(), OpenMode::Byte);
    } else if (clock != nullptr && clock->mode != OpenMode::None) {
      File(1).Open(INFile.str(), clock->mode, clock->record_length);
    }
  } catch (const RuntimeError& error) {
    throw FatalError(error);
  }
  // The first call of the all-companies run comes before any company is known.
  if (qsr && QsrOUTFileCount == 1 && S.Checked(chkAll)) return;

  // Each company of a "QsrSoft" export gets its files in turn: the files of the company
  // before are closed first, so that the run's one audit file and the management file start
  // afresh with the new company and the import file of the one before stays as written. A
  // file of the company before that could not be written whole ends the reading here.
  if (qsr) {
    CloseOutputStreams();
    if (ExceptionStream) ExceptionStream->Close();
    OutputStream.reset();
    AuditStream.reset();
    ExceptionStream.reset();
  }

  output_missing_ = false;
  try {
    if (!fs.folderexists(Output_Path.str())) fs.CreateFolder(Output_Path.str());
    OutputStream = fs.createtextfile(OUTFile.str(), true);
    AuditStream = fs.createtextfile(AuditFile.str(), true);
    // the run's two large files reach the disk while the reading goes on
    OutputStream->WriteBehind();
    AuditStream->WriteBehind();
    summary_.BeginFile(OUTFile.str(), false);
    if (qsr) {
      ExceptionStream = fs.createtextfile(OtherOUTFile, true);
      summary_.BeginFile(OtherOUTFile, true);
    }
  } catch (const RuntimeError& error) {
    // "Ampay" and "QsrSoft" name their files from the file's contents and create them later.
    if (ChosenTC == "Ampay" || qsr) return;
    output_missing_ = true;
    Build_String = std::string(
                       "Trouble creating output path to store your Evolution Import "
                       "file.") +
                   kCR + kCR + error.description() + kCR + kCR + OUTFile.str();
    Response = std::string(
        AnswerCaption(MsgBox(Build_String.text(), MsgButtons::OKOnly, "Check your Output Path")));
  }
}

void frmTimeImport::CreateOutputFiles() {
  OutputStream.reset();
  AuditStream.reset();
  output_missing_ = false;
  OutputStream = fs.createtextfile(OUTFile.str(), true);
  AuditStream = fs.createtextfile(AuditFile.str(), true);
  OutputStream->WriteBehind();
  AuditStream->WriteBehind();
  summary_.BeginFile(OUTFile.str(), false);
}

void frmTimeImport::CloseFiles() {
  // A run whose output files could not be created ends here, after the operator has seen
  // why: there is nothing to report.
  if (output_missing_ || !OutputStream || !AuditStream) {
    File(1).Close();
    File(9).Close();
    rsECodes.reset();
    ClearData();
    return;
  }
  // A file that could not be written whole ends the run with its error before the report
  // can call it ready. The exception file stays open for the run after, but what it was
  // given must be on the disk first.
  CloseOutputStreams();
  if (ExceptionStream) {
    try {
      ExceptionStream->Flush();
    } catch (const RuntimeError&) {
      ExceptionStream.reset();
      throw;
    }
  }
  File(1).Close();
  File(9).Close();
  rsECodes.reset();

  const std::string hours_text =
      ChosenTC == "HomePro" ? PrintNumber(HoursConverted) + " hours converted." : "";
  std::string review_text;
  if (ChosenTC == "Digital Dining") {
    review_text = std::string(
                      "Any employees with multiple departments have been prepared for "
                      "your review: ") +
                  kCR + kCR + "DD_Employee_Check.txt";
  }
  const std::string CR(1, kCR);
  const std::string report =
      "Import from " + ChosenTC + " Complete." + CR + CR + std::to_string(TCcount) + " " +
      ChosenTC + " records processed." + CR + std::to_string(RecCount) +
      " Evolution records created." + CR + hours_text + CR + CR +
      "The file is now ready for import into Evolution." + CR + CR + OUTFile.str() + CR + CR +
      "An audit trail of the input transactions has also been prepared:" + CR + CR +
      AuditFile.str() + CR + CR + review_text;
  MsgBox(report, MsgButtons::OKOnly, "Corvane");
  reported_ = true;
  ClearData();
}

void frmTimeImport::CloseOutputStreams() {
  int failure = 0;
  for (std::unique_ptr<TextStream>* stream : {&OutputStream, &AuditStream}) {
    try {
      if (*stream) (*stream)->Close();
    } catch (const RuntimeError& error) {
      if (failure == 0) failure = error.number();
    }
  }
  if (failure != 0) Raise(failure);
}

Value frmTimeImport::ExtractInputPath() const {
  const std::string path = INFile.str();
  const std::size_t last = path.rfind(kPathSeparator);
  if (last == std::string::npos) return Value("");
  return Value(path.substr(0, last + 1));
}

Value frmTimeImport::LastRow(const Sheet& sheet) {
  return sheet.LastRow();
}

}  // namespace corvane
