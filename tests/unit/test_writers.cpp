// The import line, the audit trail and the exception files, worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>

#include "fake_operator.hpp"
#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "screen/catalogue.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::TempFolder;

class Writers : public ::testing::Test {
 protected:
  Writers() : F(ui, Environment{tmp / "settings", Date{2026, 11, 22}}) {
    F.Form_Load();
    Choose("Access");
    F.Output_Path = tmp.path().string();
    F.OutputStream = F.fs.createtextfile(tmp / "out.txt", true);
    F.AuditStream = F.fs.createtextfile(tmp / "audit.txt", true);
    ImportRecord& r = F.ImportRec;
    r.Employee_no = "1001";
    r.Employee_Name = "Ann Lee";
    r.Department = "10";
    r.DorE = "E";
    r.Earning_Code = "2";
    r.Hours = 8.5;
    r.Seq = "1";
  }
  void Choose(std::string_view name) {
    F.SelectTimeClock(CatalogueIndex(name));
    ASSERT_EQ(F.ChosenTC, name);
  }
  std::string Output() {
    F.OutputStream->Close();
    return TempFolder::Read(tmp / "out.txt");
  }
  std::string Audit() {
    F.AuditStream->Close();
    return TempFolder::Read(tmp / "audit.txt");
  }

  TempFolder tmp;
  FakeOperator ui;
  frmTimeImport F;
};

TEST_F(Writers, NewFormatPutsTeamLastAndOldFormatInField23) {
  F.ImportRec.Team = "T1";
  F.ImportRec.Shift = " 2 ";
  F.WriteOutputRec();
  F.S[optOldFormat].value = 1;
  F.S[optNewFormat].value = 0;
  F.WriteOutputRec();
  // Neither on: Team goes nowhere.
  F.S[optOldFormat].value = 0;
  F.WriteOutputRec();
  EXPECT_EQ(Output(),
            "\"1001\",\"Ann Lee\",10,, 2 ,E,2,,8.5,,,,,,,1,,,,,,,,,,,,,T1\r\n"
            "\"1001\",\"Ann Lee\",10,, 2 ,E,2,,8.5,,,,,,,1,,,,,,,T1,,,,,,\r\n"
            "\"1001\",\"Ann Lee\",10,, 2 ,E,2,,8.5,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(F.RecCount, 3);
  EXPECT_EQ(Audit(),
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift:  2 \r\n E2 - 8.5 Hours\r\n"
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift:  2 \r\n E2 - 8.5 Hours\r\n"
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift:  2 \r\n E2 - 8.5 Hours\r\n");
}

TEST_F(Writers, EveryLineHas28CommasAndQuotesAreNotEscaped) {
  F.ImportRec.Employee_Name = "Lee, \"Ann\"";
  F.WriteOutputRec();
  const std::string line = Output();
  EXPECT_EQ(line, "\"1001\",\"Lee, \"Ann\"\",10,,,E,2,,8.5,,,,,,,1,,,,,,,,,,,,,\r\n");
  // the comma inside the name shifts the line: the file carries it as it stands
  EXPECT_EQ(std::count(line.begin(), line.end(), ','), 29);
}

TEST_F(Writers, CodeXSwitchesACategoryOffExceptForEWorks) {
  F.ImportRec.Earning_Code = " x ";
  F.WriteOutputRec();
  EXPECT_EQ(F.RecCount, 0);
  Choose("eWorks");
  F.WriteOutputRec();
  EXPECT_EQ(Output(), "\"1001\",\"Ann Lee\",10,,,E, x ,,8.5,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(Audit(), "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E x  - 8.5 Hours\r\n");
}

TEST_F(Writers, EmptyRecordsAreDroppedWithoutTrace) {
  ImportRecord& r = F.ImportRec;
  r.Hours = "0.00";
  r.Amount = "";
  F.WriteOutputRec();
  r.Hours = Value();  // blank
  r.Amount = "0";
  F.WriteOutputRec();
  r.Hours = 0.004;  // rounds to zero at two places
  r.Amount = "";
  F.WriteOutputRec();
  EXPECT_EQ(F.RecCount, 0);
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(Audit(), "");
}

TEST_F(Writers, FiguresAtTheRoundingEdgeOfTheEmptyRecordTest) {
  // 0.005 rounds up to .01 and is kept; 0.0049 and its text round to .00 and are dropped;
  // a tiny negative amount rounds to zero too.
  ImportRecord& r = F.ImportRec;
  r.Amount = "";
  r.Hours = 0.005;
  F.WriteOutputRec();
  r.Hours = "0.0049";
  F.WriteOutputRec();
  r.Hours = 0.0049;
  F.WriteOutputRec();
  r.Hours = "";
  r.Amount = "-0.004";
  F.WriteOutputRec();
  r.Amount = "$0.01";
  F.WriteOutputRec();
  EXPECT_EQ(F.RecCount, 2);
  EXPECT_EQ(Output(),
            "\"1001\",\"Ann Lee\",10,,,E,2,,0.005,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"Ann Lee\",10,,,E,2,,,,,,,,$0.01,1,,,,,,,,,,,,,\r\n");
}

TEST_F(Writers, AuditNumberDropsLeadingZerosAndRoundsByItsPicture) {
  ImportRecord& r = F.ImportRec;
  for (const Value& number :
       {Value("001001"), Value(1001), Value(7.5), Value("0000"), Value("12a"), Value(-5)}) {
    r.Employee_no = number;
    F.WriteOutputRec();
  }
  const std::string rest = ", Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E2 - 8.5 Hours\r\n";
  EXPECT_EQ(Audit(), "Emp_no: 1001" + rest + "Emp_no: 1001" + rest + "Emp_no: 8" + rest +
                         "Emp_no: " + rest + "Emp_no: 12a" + rest + "Emp_no: -5" + rest);
}

TEST_F(Writers, AuditSaysHoursWhenHoursCompareAboveEmptyText) {
  ImportRecord& r = F.ImportRec;
  r.Hours = "0.00";  // text: above "" although zero
  r.Amount = "12.50";
  F.WriteOutputRec();
  r.Hours = "";
  F.WriteOutputRec();
  r.Hours = Value();
  r.Amount = "7";
  F.WriteOutputRec();
  EXPECT_EQ(Audit(),
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E2 - 0.00 Hours\r\n"
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E2 - 12.50 Dollars\r\n"
            "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E2 - 7 Dollars\r\n");
}

TEST_F(Writers, ShiftOneIsNotSentAndTheChangeStays) {
  ImportRecord& r = F.ImportRec;
  for (const char* shift : {"1", " 1", "00", "0"}) {
    r.Shift = shift;
    F.WriteOutputRec();
    EXPECT_EQ(r.Shift, Value("")) << shift;
  }
  r.Shift = Value(1);  // a number read from a file
  F.WriteOutputRec();
  EXPECT_EQ(r.Shift.str(), "");
  r.Shift = "01";
  F.WriteOutputRec();
  EXPECT_EQ(r.Shift, Value("01"));
}

TEST_F(Writers, TextFiguresRaiseTypeMismatch) {
  F.ImportRec.Hours = "abc";
  try {
    F.WriteOutputRec();
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 13);
  }
  // dollars are tested too, even when the hours alone would keep the record
  F.ImportRec.Hours = 8;
  F.ImportRec.Amount = "n/a";
  EXPECT_THROW(F.WriteOutputRec(), RuntimeError);
  EXPECT_EQ(F.RecCount, 0);
}

TEST_F(Writers, AuditPictureDropsLeadingZerosOfNumbersOnly) {
  F.ImportRec.Employee_no = "00123";
  F.WriteOutputRec();
  F.ImportRec.Employee_no = "A-77";
  F.WriteOutputRec();
  const std::string audit = Audit();
  EXPECT_NE(audit.find("Emp_no: 123, "), std::string::npos);
  EXPECT_NE(audit.find("Emp_no: A-77, "), std::string::npos);
  // the import line keeps the number as it stands
  EXPECT_EQ(Output().substr(0, 8), "\"00123\",");
}

TEST_F(Writers, DateFieldsOnlyForRelcoAndStampsOnlyForGenerations) {
  ImportRecord& r = F.ImportRec;
  r.CorvaneYear = "2026";
  r.CorvaneMonth = "11";
  r.CorvaneDay = "20";
  r.Gen_Field27 = "20261120";
  r.Gen_Field28 = "083000";
  r.Amount = "5.00";
  F.WriteOutputRec();
  Choose("Denny's DINE - Relco");
  F.WriteOutputRec();
  Choose("Generations");
  F.WriteOutputRec();
  EXPECT_EQ(Output(),
            "\"1001\",\"Ann Lee\",10,,,E,2,,8.5,,,,,,5.00,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"Ann Lee\",10,,,E,2,,8.5,2026,11,20,,,5.00,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"Ann Lee\",10,,,E,2,,8.5,,,,,,5.00,1,,,,,,,,,,,20261120,083000,\r\n");
}

TEST_F(Writers, OtherOutputDropsXForEveryClockAndStillAudits) {
  F.ExceptionStream = F.fs.createtextfile(tmp / "management.txt", true);
  Choose("eWorks");
  F.ImportRec.Earning_Code = "X";
  F.WriteOutputRecOther();
  EXPECT_EQ(F.RecCount, 0);
  Choose("Denny's DINE - Relco");
  F.ImportRec.Earning_Code = "3";
  F.ImportRec.CorvaneYear = "2026";
  F.WriteOutputRecOther();
  F.ExceptionStream->Close();
  EXPECT_EQ(TempFolder::Read(tmp / "management.txt"),
            "\"1001\",\"Ann Lee\",10,,,E,3,,8.5,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(F.RecCount, 1);
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(Audit(), "Emp_no: 1001, Emp_Name: Ann Lee, Dept: 10, Shift: \r\n E3 - 8.5 Hours\r\n");
}

TEST_F(Writers, AStreamNeverCreatedFailsTheWrite) {
  F.OutputStream.reset();
  try {
    F.WriteOutputRec();
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 91);
  }
}

TEST_F(Writers, HomeTrakCollectsEveryExceptionInOneFile) {
  Choose("HomeTrak");
  F.ImportRec.Employee_Name = "Ann Lee";
  for (const char* hours : {"41", "45.5", "50"}) F.WriteExceptionRec(Value(hours));
  F.ExceptionStream->Close();
  EXPECT_EQ(F.ExceptionFile.str(), tmp / "E02_Exception.txt");
  EXPECT_EQ(TempFolder::Read(tmp / "E02_Exception.txt"),
            "Employee: 1001 - Ann Lee\t E02 Hours: 41 exceeds the Per Payroll Hours.\r\n"
            "Employee: 1001 - Ann Lee\t E02 Hours: 45.5 exceeds the Per Payroll Hours.\r\n"
            "Employee: 1001 - Ann Lee\t E02 Hours: 50 exceeds the Per Payroll Hours.\r\n");
}

TEST_F(Writers, TheOtherExceptionFilesFailAtTheSecondException) {
  Choose("ADP/Aspect");
  F.S[CoNum].text = " 77 ";
  F.ADPAspect_EmpNo = "00042";
  F.ADPAspect_Dollars = "15.00";
  F.WriteExceptionRec(Value("ZZ"));
  EXPECT_THROW(F.WriteExceptionRec(Value("YY")), RuntimeError);
  F.ExceptionStream->Close();
  EXPECT_EQ(TempFolder::Read(tmp / "Corvane_Exception_77.txt"),
            "ADP/Aspect code 'ZZ' unrecognized.\tEmp_no: 00042 - 15.00 dollars not written.\r\n");

  Choose("Sage (Mas90)");
  F.ImportRec.Employee_no = "0042";
  F.ImportRec.Hours = "3.5";
  F.WriteExceptionRec(Value("QQ"));
  F.ExceptionStream->Close();
  EXPECT_EQ(TempFolder::Read(tmp / "Corvane_Exception_77.txt"),
            "Sage Mas90 code 'QQ' not found.\t\tEmp_no: 42 Hours: 3.5  not written.\r\n");

  Choose("Digital Dining");
  F.WriteExceptionRec(Value(""));
  F.ExceptionStream->Close();
  EXPECT_EQ(TempFolder::Read(tmp / "DD_Employee_Check.txt"),
            "Employee: 0042 - Ann Lee\tDepartment: 10\t\r\n");
}

}  // namespace
}  // namespace corvane
