// "Great Plains": a comma file of pay lines, several per employee and code. The file is held
// whole, folded to one line per social security number and pay code with the hours and
// dollars summed, and only then mapped to employee numbers, earning codes and departments
// through three side files that the operator names.
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {

namespace {

constexpr std::size_t kGreatPlainsEmployees = 300;
constexpr std::size_t kGreatPlainsCodes = 50;
constexpr std::size_t kGreatPlainsDepartments = 80;
constexpr std::size_t kGreatPlainsRows = 1000;
constexpr std::size_t kGreatPlainsFields = 10;
// A line taken into a sum is marked with this number; a line that arrives with it counts as
// taken already.
constexpr std::string_view kGreatPlainsUsed = "000000000";

template <std::size_t Columns>
using GreatPlainsRow = std::array<std::string, Columns + 1>;  // columns from 1

// The tables, each counted from row 1.
struct GreatPlainsTables {
  std::vector<GreatPlainsRow<2>> EEMap = std::vector<GreatPlainsRow<2>>(kGreatPlainsEmployees + 1);
  std::vector<GreatPlainsRow<3>> CodeMap = std::vector<GreatPlainsRow<3>>(kGreatPlainsCodes + 1);
  std::vector<GreatPlainsRow<5>> DeptMap =
      std::vector<GreatPlainsRow<5>>(kGreatPlainsDepartments + 1);
  std::vector<GreatPlainsRow<kGreatPlainsFields>> Input =
      std::vector<GreatPlainsRow<kGreatPlainsFields>>(kGreatPlainsRows + 1);
  std::vector<GreatPlainsRow<kGreatPlainsFields>> Folded =
      std::vector<GreatPlainsRow<kGreatPlainsFields>>(kGreatPlainsRows + 1);
};

std::string GreatPlains_Ask(frmTimeImport& F, std::string_view prompt, const std::string& folder,
                            std::string_view name) {
  return F.ui.InputBox(prompt, kAppTitle, folder + std::string(name));
}

// A side file of rows of delimited fields. Rows past the table's end are read and dropped. A
// last row cut short keeps the fields it got; the loading ends there.
template <std::size_t Width>
void GreatPlains_LoadMap(frmTimeImport& F, const std::string& path,
                         std::vector<std::array<std::string, Width>>& table) {
  constexpr std::size_t Columns = Width - 1;
  InputFile& file = F.File(2);
  // a side file that cannot be opened ends the translator
  file.Open(path, OpenMode::Text);
  std::string dropped;
  try {
    for (std::size_t row = 1; !file.Eof(); ++row) {
      for (std::size_t c = 1; c <= Columns; ++c) {
        file.Input(row < table.size() ? table[row][c] : dropped);
      }
    }
  } catch (const RuntimeError& error) {
    if (error.number() != kInputPastEnd) throw;
  }
  file.Close();
}

// Line n of the file goes to row n + 1, cut at its first nine commas.
void GreatPlains_ReadInput(frmTimeImport& F, GreatPlainsTables& t) {
  InputFile& file = F.File(1);
  std::string line;
  long lines = 0;
  std::size_t row = 1;
  while (!file.Eof()) {
    file.LineInput(line);
    ++lines;
    ++row;
    if (row > kGreatPlainsRows) continue;
    auto& fields = t.Input[row];
    std::size_t start = 0;
    for (std::size_t k = 1; k <= kGreatPlainsFields; ++k) {
      if (start > line.size()) break;  // a short line leaves its last fields empty
      const std::size_t comma = k < kGreatPlainsFields ? line.find(',', start) : std::string::npos;
      const std::size_t end = comma == std::string::npos ? line.size() : comma;
      fields[k].assign(line, start, end - start);
      start = comma == std::string::npos ? line.size() + 1 : comma + 1;
    }
  }
  F.TCcount = lines;
}

// The sum of one line's hours or dollars: a field that is not empty must be a number.
void GreatPlains_Add(double& total, const std::string& field) {
  if (!field.empty()) total += Value(field).ToNumber();
}

// Every line of one number and pay code goes into the first one's folded row, and is marked.
// Rows that were never filled fold together under an empty number, which is never written.
std::size_t GreatPlains_Fold(GreatPlainsTables& t) {
  auto& in = t.Input;
  // each row's number through the picture and its trimmed pay code, kept beside the table
  std::vector<std::string> key(kGreatPlainsRows + 1), code(kGreatPlainsRows + 1);
  for (std::size_t j = 1; j <= kGreatPlainsRows; ++j) {
    key[j] = Format(Value(in[j][1]), "000000000");
    code[j] = Trim(in[j][2]);
  }
  std::size_t folded = 0;
  for (std::size_t i = 1; i <= kGreatPlainsRows; ++i) {
    if (in[i][1] == kGreatPlainsUsed) continue;
    const std::string number = key[i];
    const std::string pay_code = code[i];
    double hours = 0;
    double dollars = 0;
    bool first = true;
    for (std::size_t j = 1; j <= kGreatPlainsRows; ++j) {
      if (key[j] != number || code[j] != pay_code) continue;
      GreatPlains_Add(hours, in[j][5]);
      GreatPlains_Add(dollars, in[j][6]);
      if (first) {
        auto& out = t.Folded[++folded];
        out[1] = key[j];
        out[2] = in[j][2];
        out[9] = in[j][9];
        first = false;
      }
      in[j][1] = kGreatPlainsUsed;
      key[j] = kGreatPlainsUsed;
    }
    t.Folded[folded][5] = PrintNumber(hours);
    t.Folded[folded][6] = PrintNumber(dollars);
    in[i][1] = kGreatPlainsUsed;
    key[i] = kGreatPlainsUsed;
  }
  return folded;
}

// One folded row through the three maps to the writer. A pay code the map does not know is
// not paid; an employee it does not know goes out with no number and his social security
// number.
void GreatPlains_Write(frmTimeImport& F, const GreatPlainsTables& t,
                       const std::vector<std::string>& employee_keys,
                       const GreatPlainsRow<kGreatPlainsFields>& row) {
  ImportRecord& r = F.ImportRec;
  r.Employee_no = r.DorE = r.Earning_Code = r.Division = r.Branch = r.Department = r.Team = "";
  for (std::size_t e = 1; e <= kGreatPlainsEmployees; ++e) {
    if (employee_keys[e] == row[1]) {
      r.Employee_no = t.EEMap[e][2];
      break;
    }
  }
  const std::string department = Trim(row[9]);
  for (std::size_t d = 1; d <= kGreatPlainsDepartments; ++d) {
    if (Trim(t.DeptMap[d][1]) == department) {
      r.Division = t.DeptMap[d][2];
      r.Branch = t.DeptMap[d][3];
      r.Department = t.DeptMap[d][4];
      r.Team = t.DeptMap[d][5];
      break;
    }
  }
  const std::string pay_code = Trim(row[2]);
  for (std::size_t c = 1; c <= kGreatPlainsCodes; ++c) {
    if (Trim(t.CodeMap[c][1]) == pay_code) {
      r.DorE = t.CodeMap[c][2];
      r.Earning_Code = t.CodeMap[c][3];
      break;
    }
  }
  if (r.Earning_Code == Value("")) return;
  r.Employee_Name = "";
  r.SSN = row[1];
  r.payrate = r.Job = r.Shift = "";
  r.Seq = "1";
  if (row[5] != "0") {
    r.Hours = row[5];
    r.Amount = "";
  } else {
    r.Amount = row[6];
    r.Hours = "";
  }
  F.WriteOutputRec();
}

void GreatPlains(frmTimeImport& F) {
  F.InitFiles();
  const std::string folder = F.ExtractInputPath().str();
  const std::string ee_file = GreatPlains_Ask(
      F, "Please enter the name of the Employee Number Mapping file.", folder, "EE Map.txt");
  const std::string code_file = GreatPlains_Ask(
      F, "Please enter the name of the Earning Code Mapping file.", folder, "File Code Map.txt");
  const std::string dept_file = GreatPlains_Ask(
      F, "Please enter the name of the Department Code Mapping file.", folder, "Dept Map.txt");

  GreatPlainsTables t;
  GreatPlains_LoadMap(F, ee_file, t.EEMap);
  GreatPlains_LoadMap(F, code_file, t.CodeMap);
  GreatPlains_LoadMap(F, dept_file, t.DeptMap);
  GreatPlains_ReadInput(F, t);

  const std::size_t folded = GreatPlains_Fold(t);
  std::vector<std::string> employee_keys(kGreatPlainsEmployees + 1);
  for (std::size_t e = 1; e <= kGreatPlainsEmployees; ++e) {
    employee_keys[e] = Format(Value(t.EEMap[e][1]), "000000000");
  }
  for (std::size_t k = 1; k <= folded; ++k) {
    if (t.Folded[k][1].empty()) continue;
    GreatPlains_Write(F, t, employee_keys, t.Folded[k]);
  }
}

}  // namespace

extern const Translator kGreatPlainsTranslator{
    .name = "GreatPlains",
    .run = GreatPlains,
};

}  // namespace corvane
