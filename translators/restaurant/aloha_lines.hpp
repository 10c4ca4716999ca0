// What the Aloha reports share between the versions that need a cross-reference file and
// those that do not: the minimum-wage test, fields of a line split at commas, and the walk
// of a report whose employee lines are gathered in the job table before they are written.
#pragma once

#include <string>
#include <vector>

#include "pipeline/time_import.hpp"
#include "runtime/value.hpp"
#include "translators/restaurant/aloha_job_table.hpp"

namespace corvane {

// A rate below the minimum wage marks tipped staff, whose hours go to the wait categories.
bool AlohaBelowMinWage(const frmTimeImport& F, const Value& rate);

// Field n (from 1) of a line split at commas. A field the line does not have is out of range.
const std::string& AlohaSplitField(const std::vector<std::string>& fields, long n);

struct Alohav6738_Walk;

// What one version of the job-table report does with a line of each kind. A version that
// reads its figures elsewhere, or closes an employee another way, gives its own step.
struct Alohav6738_Steps {
  void (*TotalLine)(Alohav6738_Walk& w, const std::string& line);
  void (*FiguresLine)(Alohav6738_Walk& w, const std::string& line);
  void (*ClosingLine)(Alohav6738_Walk& w, const std::string& line);
};

// The walk of the report, line by line. Errors are passed over statement by statement: a
// job past the table's last row is neither stored nor written.
struct Alohav6738_Walk {
  frmTimeImport& F;
  AlohaJobTable& jobs;
  const Alohav6738_Steps& steps;
  bool after_total = false;
  bool after_ttl = false;
  bool expect_closing = false;
  long job_count = 0;
  std::string name{};    // from the marker line
  std::string number{};  // from the marker line, cut at 4 characters
};

// Marker line: "*** Emp <name>  #<number> ***". The name ends at the first two blanks.
void Alohav6738_MarkerLine(Alohav6738_Walk& w, const std::string& line);
// The job's name on its total line: what stands after "Total", without ":" and commas.
std::string Alohav6738_JobName(const std::string& line);
// Reads the input file to its end, each line by the first flag that is set, else by its
// first three characters. InitFiles has been called.
void Alohav6738_Read(Alohav6738_Walk& w);

}  // namespace corvane
