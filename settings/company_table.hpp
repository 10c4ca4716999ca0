// The customisation forms keep one row per company in a table read whole from their
// settings file and written back whole by their Save.
#pragma once

#include <string>
#include <string_view>

#include "runtime/errors.hpp"
#include "runtime/filesystem.hpp"
#include "runtime/infile.hpp"
#include "settings/recordset.hpp"
#include "settings/settings_file.hpp"

namespace corvane {

// Reads the file into a fresh table (a missing folder or file is made empty), then runs
// shown, which brings the form in line with its company. A damaged row ends the reading:
// the rows before it stay, and shown is not run.
template <class Row, class ReadRow, class Shown>
void LoadCompanyTable(Recordset<Row>& table, const std::string& folder, std::string_view file,
                      ReadRow read_row, Shown shown) {
  table = Recordset<Row>();
  InputFile in;
  try {
    OpenSettingsFile(in, folder, SettingsPath(folder, file));
    while (!in.Eof()) table.AddNew(read_row(in));
    shown();
  } catch (const RuntimeError&) {
  }
  table.MoveFirst();
  in.Close();
}

// The company's row, added with the defaults of a new company when the table has none.
// A company holding an apostrophe breaks the filter and raises.
template <class Row>
Row& CompanyRow(Recordset<Row>& table, const std::string& company) {
  table.ClearFilter();
  table.Filter(company);
  if (table.EOF_()) {
    Row fresh;
    fresh.Company = company;
    table.AddNew(std::move(fresh));
  }
  return table.Current();
}

// Replaces the file with every company's row, in table order; the filter stays cleared. A
// save that fails raises and leaves the file as it was.
template <class Row, class LineOf>
void SaveCompanyTable(Recordset<Row>& table, const std::string& folder, std::string_view file,
                      LineOf line_of) {
  FileSystem fs;
  auto out = fs.createreplacement(SettingsPath(folder, file));
  table.ClearFilter();
  for (; !table.EOF_(); table.MoveNext()) out->WriteLine(line_of(table.Current()));
  out->Close();
}

}  // namespace corvane
