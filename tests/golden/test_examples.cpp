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
  const char* kind;  // "message" (answered with its first button) or "input"
  std::string title;
  std::string text;  // a message's text, or a question's prompt
  std::vector<std::string> buttons = {"OK"};
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
  // A format that names its files by location or by date: the location typed, and the names of
  // the import and audit files the report gives.
  const char* location = nullptr;
  const char* out_file = "123_ta.txt";
  const char* audit_file = "Corvane_Audit_123.txt";
  // The questions take their defaults: side files found beside the export under the names
  // the format looks for, as a bureau's script would run it.
  bool accept_defaults = false;
};

// The same example run at a location, or with files named otherwise than 123_ta.txt.
Example Named(Example example, const char* location, const char* out_file, const char* audit_file) {
  example.location = location;
  example.out_file = out_file;
  example.audit_file = audit_file;
  return example;
}

Said Message(std::string text, std::string title = "") {
  return {"message", std::move(title), std::move(text)};
}

// A message that lets the operator stop the reading; the run answers "OK" and goes on.
Said OkCancel(std::string text, std::string title) {
  return {"message", std::move(title), std::move(text), {"OK", "Cancel"}};
}

// The same example run with --accept-defaults.
Example Defaults(Example example) {
  example.accept_defaults = true;
  return example;
}

Said Ask(std::string title, std::string prompt) {
  return {"input", std::move(title), std::move(prompt)};
}

const char kXrefPrompt[] = "What is the name of the cross reference file you will use?";

Said NeedsCode(const std::string& format, int column) {
  return Message(format + " column " + std::to_string(column) +
                 " needs an Earning Code assigned to it.");
}

const std::vector<Example>& BundledExamples() {
  static const std::vector<Example> kExamples = {
      {"abra.xlsx", "ABRA", {}, 6, 5},
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
      // A job missing from the cross-reference leaves the division blank; its hours still go out.
      {"aloha-v6-2/aloha-v6-2.csv",
       "Aloha v6.2",
       {},
       15,
       9,
       nullptr,
       {"Alohav62_XRef.txt"},
       {Ask("Aloha v6.2", kXrefPrompt)}},
      // A rate of "0" sends regular and overtime hours with no rate.
      {"aloha-v6-2-12/aloha-v6-2-12.csv",
       "Aloha v6.2.12",
       {},
       12,
       8,
       nullptr,
       {"Alohav6212_XRef.txt"},
       {Ask("Aloha v6.2.12", kXrefPrompt)}},
      // An unknown job keeps the division its row held for the employee before.
      {"aloha-v6-2-27/aloha-v6-2-27.csv",
       "Aloha v6.2.27",
       {},
       4,
       9,
       nullptr,
       {"Alohav6227_XRef.txt"},
       {Ask("Aloha v6.2.27", kXrefPrompt)}},
      {"aloha-v5-3-17/aloha-v5-3-17.csv",
       "Aloha v5.3.17",
       {},
       3,
       7,
       nullptr,
       {"Alohav5317_XRef.txt"},
       {Ask("Aloha v5.3.17", kXrefPrompt)}},
      // The last line of the file is read and never looked at.
      {"aloha-v5-3-20/aloha-v5-3-20.txt", "Aloha v5.3.20", {}, 13, 7},
      {"aloha-v5-3-46/aloha-v5-3-46.csv",
       "Aloha v5.3.46",
       {},
       7,
       8,
       nullptr,
       {"Aloha v5.3.46 XRef.txt"},
       {Ask("", "Enter the name of your cross reference file.")}},
      // A job without a row in the workbook takes the codes of the job before it.
      {"aloha-v6-1-1-3/aloha-v6-1-1-3.csv",
       "Aloha v6.1.1.3",
       {},
       11,
       8,
       nullptr,
       {"aloha-codes.xlsx"},
       {Ask("Aloha v6.1.1.3", kXrefPrompt)}},
      // An unknown code sends the hours of the code before it a second time.
      {"aloha-v6/aloha-v6.txt",
       "Aloha v6",
       {},
       4,
       9,
       nullptr,
       {"018 Aloha xref.txt"},
       {Ask("", "What is the name of your cross reference file?"),
        Message("unexpected transaction type found: 030")}},
      // A row without an SSN in column D sends nothing.
      {"aloha-enterprise.xlsx", "Aloha Enterprise", {}, 7, 9},
      {"aloha-labor-scheduler-5-3-19.csv", "Aloha Labor Scheduler (5.3.19)", {}, 8, 5},
      // "End of Report" does not stop the reading; the wait hours go to boxes with no code.
      {"aloha-wgl.csv", "Aloha WGL", {}, 3, 8},
      // A rate row whose hours differ from the export's is not found.
      {"positouch-csv/positouch-csv.csv", "POSiTouch (.csv)", {}, 4, 8},
      {"positouch-flt.flt", "POSiTouch (.flt)", {}, 4, 11},
      {"positouch-prn.prn", "POSiTouch (.prn)", {"chkPayRate=1"}, 2, 10},
      {"positouch-long-prn.prn", "POSiTouch (long .prn)", {"chkPayRate=1"}, 2, 8},
      // Every line counts; the employee row's extra amount goes out under code 15.
      {"positouch-otb/positouch-otb.prn", "POSiTouch OTB", {}, 6, 5},
      // The total row at the end is passed over; a job missing from the table has no code.
      {"squirrel-pos-1-45/squirrel-pos-1-45.csv", "Squirrel POS 1.45", {}, 5, 9},
      Named({"squirrel-v3-2.ccc", "Squirrel v3.2", {}, 3, 9}, "SW", "123_SW_ta.txt",
            "Corvane_Audit_123_SW.txt"),
      {"micros-3700-v4-1/micros-3700-v4-1.csv",
       "Micros 3700 v4.1",
       {"chkXref=1"},
       3,
       9,
       nullptr,
       {"Micros XRef.txt"},
       {Ask("", "What is the name of your cross reference file?")}},
      {"micros-3700-v4-1br/micros-3700-v4-1br.csv",
       "Micros 3700 v4.1Br",
       {"chkXref=1"},
       3,
       7,
       nullptr,
       {"Micros v4.1Br XRef.txt"},
       {Ask("", "What is the name of your cross reference file?")}},
      Named({"maitre-d/maitre-d.csv",
             "Maitre'D",
             {},
             4,
             6,
             nullptr,
             {"maitre d rate file.csv"},
             {Ask("", "What is the name of your employee rate file?")}},
            nullptr, "Sorrelin Import 123 11202026 .txt", "Corvane_Audit_123.txt"),
      // Another company's rows are not counted; department 645 counts and writes nothing.
      {"qsrsoft.csv", "QsrSoft", {}, 4, 7},
      // A blank line ends the reading.
      {"qsrsoft-v2.csv", "QSRSoft v2", {}, 4, 7},
      // The sheet ends at "Totals:" (row 8); a numeric name in column A is passed over, and a
      // name missing from the employee file goes out as "???".
      Defaults({"deltek/deltek.xls",
                "Deltek",
                {},
                8,
                7,
                nullptr,
                {},
                {Ask("Corvane - Deltek - Employees", "Where is the Employee File?"),
                 Ask("Corvane - Deltek - Departments", "Where is the Department File?")}}),
      // A column named twice in the map sends its hours twice; "Total" lines count and send
      // nothing.
      Defaults({"deltek-v6-15/deltek-v6-15.csv",
                "Deltek v6.15",
                {},
                5,
                6,
                nullptr,
                {},
                {Ask("", "Please enter the name of cross reference file.")}}),
      // A labor code shorter than 9 characters is regular time; pay type "X" sends nothing.
      {"deltek-v8-3.csv", "Deltek v8.3", {}, 7, 5},
      // The head record is not counted; the cut record at the end is not read.
      {"deltek-v8-3-fixed.txt", "Deltek v8.3 Fixed", {}, 5, 4},
      // Overtime codes 02 and 62 go out twice, the second time negated as 01 and 61; the last
      // line of the file is counted and not translated.
      Defaults({"monolith/monolith.txt",
                "Monolith",
                {"chkXref=1"},
                9,
                8,
                nullptr,
                {},
                {Ask("Corvane - Monolith - xRef file",
                     "Where is the Job > Department Cross Reference File?"),
                 Ask("Corvane - Monolith", "Should we subtract OT from Regular? (Y/N)")}}),
      // OT1 alone gives one line under the third box.
      {"datatrak.txt", "DataTrak", {}, 4, 7},
      // An unknown code is asked about and sent with the file's own code; dollars of 0.00 are
      // not sent.
      {"drake-williams.txt",
       "Drake-Williams",
       {},
       3,
       7,
       nullptr,
       {"OK"},
       {OkCancel("Unexpected Earning Code: PK\rEmployee: NGUYEN, THAO",
                 "Corvane - Drake-Williams")}},
      // Three lines of one employee and code fold into one; a code missing from the map is
      // not paid, an employee missing from it goes out by SSN alone.
      Defaults({"great-plains/great-plains.csv",
                "Great Plains",
                {},
                8,
                5,
                nullptr,
                {},
                {Ask("", "Please enter the name of the Employee Number Mapping file."),
                 Ask("", "Please enter the name of the Earning Code Mapping file."),
                 Ask("", "Please enter the name of the Department Code Mapping file.")}}),
      // A row without a last name is counted and not translated; advances go out twice.
      {"hill.xls", "Hill", {}, 7, 9},
      // The line behind a run of employee lines is passed over unread.
      {"hill-ascii.txt", "Hill Ascii", {}, 4, 9},
      // A negative figure is not sent; a short SSN is padded to nine digits.
      {"hill-csv.csv", "Hill csv", {}, 4, 8},
      {"hill-tmw.csv", "Hill-TMW", {}, 3, 9},
      // The count stands one past the last row; an unmapped pay code keeps the category of the
      // row before, and the blank row 7 hides row 8.
      {"kronos-penn/kronos-penn.xls", "Kronos Penn", {}, 7, 5},
      // An unknown code goes out with "?"; hours that are no number go out as .00 and are
      // dropped.
      {"timeclock-plus.txt",
       "Timeclock Plus",
       {},
       6,
       5,
       nullptr,
       {},
       {Message("Unknown Earning Code: SHIFTDIF"),
        Message("Emp# 1003, Hours = N/A", "Corvane: Timeclock Plus")}},
      // Rows without a name belong to the employee above; "jd" never matches.
      {"timeclock-plus-bezion.txt", "Timeclock Plus (Bezion)", {}, 6, 6},
      {"timeclock-plus-pro-v5-0.txt",
       "Timeclock Plus Pro v5.0",
       {},
       6,
       7,
       nullptr,
       {},
       {Message("Unknown Earning Code: PTO", "Corvane: Timeclock Plus Pro v5.0")}},
      // A blank line is passed over with the row behind it; the second hours go out as E03.
      {"timeclock-plus-pro-v5-0-2-189.dat", "Timeclock Plus Pro v5.0.2.189", {}, 4, 6},
      // A blank line is not counted; the salary goes out as dollars.
      {"infotronics.csv", "Infotronics", {}, 4, 8},
      // A key twice in the code file takes the later row; hours of 0.00 pass the line over.
      {"infotronics-2/infotronics-2.1T2",
       "Infotronics 2",
       {},
       7,
       6,
       nullptr,
       {},
       {Message("Unknown type of Earning Code: TRAIN for EE# 7103")}},
      {"infotronics-ae-1-0-3.csv", "Infotronics AE 1.0.3", {}, 4, 8},
      // An unknown code goes out under the category of the record before.
      {"ae-v1-0-27-6.txt",
       "AE v1.0.27.6",
       {},
       7,
       6,
       nullptr,
       {},
       {Message("Unexpected Earning Code: P for EE# 008103 - 4.0 hours")}},
      {"ae-v1-0-28-616.csv",
       "AE v1.0.28.616",
       {},
       6,
       5,
       "ae-v1-0-28-616",
       {},
       {Message("Pay Designation 7 needs an Earning Code assigned to it.")}},

      // comma restaurant formats
      {"ddmgr.txt", "DDMGR", {}, 7, 7},
      {"qwest.txt", "Qwest", {}, 6, 6},
      {"esi.txt", "ESI", {}, 5, 5},
      {"sorrelin-2868.csv", "Sorrelin 2868", {}, 3, 5},
      {"pci-paper.csv", "PCI Paper", {}, 3, 7},
      {"ctuit-radar.csv", "CTuit Radar", {}, 3, 8},
      {"hooters.txt", "Hooters", {}, 3, 6},
      {"rbi.csv", "RBI", {}, 2, 8},
      {"restaurant-magic.pay", "Restaurant Magic", {}, 3, 5},
      {"denny-s-dine.csv", "Denny's DINE", {}, 3, 9},
      {"denny-s-dine-relco.csv", "Denny's DINE - Relco", {}, 3, 6},

      // comma timeclock formats
      {"accroprint-v2-0.txt", "AccroPrint v2.0", {}, 4, 14},
      {"aspect.csv", "Aspect", {}, 3, 6},
      {"cli.txt", "CLI", {}, 3, 8},
      {"novatime.csv", "NovaTime", {}, 6, 6},
      {"timecentre.dat", "TimeCentre", {}, 5, 5},
      {"timeforce-dcog.csv", "Timeforce DCOG", {}, 3, 7},
      {"time-guardian.dat", "Time Guardian", {}, 3, 6},
      {"time-in-a-box.txt", "Time-in-a-Box", {}, 6, 6},
      {"truqc.csv", "TruQC", {}, 3, 5},
      // the OT line is counted and not paid
      {"angel-fire.csv", "Angel Fire", {}, 4, 3},
      {"chronotek.csv", "ChronoTek", {}, 3, 5},

      // comma other formats
      // Ampay names its files from the client code of its first record.
      Named({"ampay.csv", "Ampay", {}, 4, 11}, nullptr, "12_ta.txt", "Corvane_Audit_12.txt"),
      {"prc.txt", "PRC", {}, 6, 6},
      // Designation 5 has no code in an empty table; "XX" goes to the exception file.
      {"sage-mas90.csv", "Sage (Mas90)", {}, 7, 6, nullptr, {}, {NeedsCode("Sage (Mas90)", 5)}},
      {"darwin.txt", "Darwin", {}, 7, 7},
      {"datasign.csv", "dataSIGN", {}, 3, 8},
      {"eworks.csv", "eWorks", {}, 3, 7},
      {"generations-xref.csv", "Generations (xRef)", {}, 5, 5},
      {"omnichrome.txt", "OmniChrome", {}, 3, 5},
      {"quickbooks.csv", "QuickBooks", {}, 3, 5},
      {"temp-wizard.csv", "Temp Wizard", {}, 4, 8},

      // line timeclock formats
      {"adi.txt",
       "ADI",
       {},
       3,
       5,
       nullptr,
       {},
       {Message("ADI column 1 needs an Earning Code assigned to it."),
        Message("ADI column 2 needs an Earning Code assigned to it."),
        Message("ADI column 4 needs an Earning Code assigned to it.")}},
      {"bgs.csv",
       "BGS",
       {},
       3,
       6,
       nullptr,
       {},
       {Message("BGS column 1 needs an Earning Code assigned to it."),
        Message("BGS column 2 needs an Earning Code assigned to it."),
        Message("BGS column 5 needs an Earning Code assigned to it."),
        Message("BGS column 6 needs an Earning Code assigned to it.")}},
      {"gradience.txt", "Gradience", {}, 6, 6},
      {"lathern.txt", "Lathern", {}, 5, 5},
      {"lathem.txt", "Lathem", {}, 3, 7},
      {"lathem-v6.txt", "Lathem v6", {}, 3, 6},
      {"lathem-payclock-pro.txt", "Lathem Payclock Pro", {}, 4, 4},
      {"homewatch.txt", "Homewatch", {}, 3, 10},
      {"homewatch-2.txt", "Homewatch 2", {"txtMinWage=7.25"}, 5, 5},
      {"homewatch-3.txt", "Homewatch 3", {}, 4, 4},
      {"adi-v9-4-1.txt", "ADI v9.4.1", {}, 4, 4},

      // line restaurant formats
      // The trailer of Archaic Beef, the totals of IHOP8, SEI, Lake Austin and Wheatfields and
      // the head and trailer of SAILOR Poll are not translated.
      {"archaic-beef.txt", "Archaic Beef", {}, 6, 5},
      {"maddock.txt", "Maddock", {}, 5, 4},
      {"sei.txt", "SEI", {}, 3, 5},
      {"lake-austin.txt", "Lake Austin", {}, 5, 5},
      {"timetrax.txt", "TimeTrax", {}, 4, 7},
      {"shoneys.csv", "Shoneys", {}, 4, 6},
      {"ihop8.csv", "IHOP8", {}, 3, 9},
      {"wheatfields.txt", "Wheatfields", {}, 3, 7},
      {"sailor-poll.txt", "SAILOR Poll", {}, 3, 5},
      {"pxp-golden-corral.txt", "PXP-Golden Corral", {}, 3, 7},
      {"tmx.txt", "TMX", {}, 3, 5},

      // fixed records formats
      {"paychoice.txt", "PayChoice", {}, 6, 5},
      {"trutime.dat", "TruTime", {}, 5, 5},
      {"ave-ot.dat", "Ave OT", {}, 3, 5},
      {"ceridian-web.dat", "Ceridian Web", {}, 5, 5},
      {"konetix-v4-1.rap", "Konetix v4.1", {}, 4, 4},
      {"paysuite.asc", "PaySuite", {}, 4, 4},
      {"q-quest-etc-200.dat", "Q-quest ETC 200", {}, 3, 7},
      {"rapidpay.txt", "RapidPay", {}, 4, 4},
      {"shelby.txt", "Shelby", {}, 3, 4},
      {"timetrak.txt", "TimeTrak", {}, 5, 5},
      {"tlh.txt", "TLH", {}, 4, 4},
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

// An example in a folder of its own brings its side files: the whole folder is copied, so that
// they lie beside the export under the names the format looks for.
fs::path CopyExample(const WorkDir& dir, const std::string& file) {
  const fs::path from = fs::path(CORVANE_EXAMPLES) / file;
  const fs::path folder = fs::path(file).parent_path();
  if (folder.empty()) return dir.CopyIn(from, file);
  for (const fs::directory_entry& entry : fs::directory_iterator(from.parent_path())) {
    dir.CopyIn(entry.path(), (folder / entry.path().filename()).string());
  }
  return dir.root() / file;
}

::testing::AssertionResult IsSaid(const nlohmann::json& line, const Said& said) {
  if (std::string(said.kind) == "message")
    return IsMessage(line, said.title, said.text, said.buttons, said.buttons.front());
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
    const fs::path input = CopyExample(dir, example.file);
    RunCall call(dir);
    call.Add({"--format", example.format, "--company", "123", "--end-date", "11/20/2026", "--input",
              input.string(), "--output", dir.output().string()});
    if (example.location != nullptr) call.Add({"--location", example.location});
    for (const std::string& set : example.sets) call.Add({"--set", set});
    for (const std::string& answer : example.answers) call.Add({"--answer", answer});
    if (example.accept_defaults) call.Add({"--accept-defaults"});
    const CommandResult result = call.Go();
    ASSERT_FALSE(result.timed_out);
    ASSERT_EQ(result.status, 0) << result.err;
    const auto dialogue = Dialogue(call.Transcript());
    ASSERT_EQ(dialogue.size(), example.said.size() + 1) << result.err;
    for (size_t i = 0; i < example.said.size(); ++i) {
      EXPECT_TRUE(IsSaid(dialogue[i], example.said[i])) << "item " << i;
    }
    EXPECT_TRUE(IsMessage(dialogue.back(), "Corvane",
                          Report(example.format, example.records, example.lines,
                                 (dir.output() / example.out_file).string(),
                                 (dir.output() / example.audit_file).string()),
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
