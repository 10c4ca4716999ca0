// The in-memory tables of the settings forms: rows in table order, a row cursor, and an
// equality filter on the company column. Bound to no database; a form builds the table from
// its file and rewrites the file whole.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/errors.hpp"

namespace corvane {

// Row is a plain struct with a text member Company.
template <class Row>
class Recordset {
 public:
  // The filter "Company = '<company>'". The company is not escaped: one holding an
  // apostrophe breaks the filter text, which raises 3001 and leaves the filter as it was.
  // The cursor goes to the first row the filter lets through.
  void Filter(std::string_view company) {
    if (company.find('\'') != std::string_view::npos) Raise(kTableArguments);
    filtered_ = true;
    company_ = company;
    MoveFirst();
  }
  // Clears the filter: every row shows again. The cursor goes to the first row.
  void ClearFilter() {
    filtered_ = false;
    company_.clear();
    MoveFirst();
  }
  bool Filtered() const { return filtered_; }
  const std::string& FilterCompany() const { return company_; }

  // Whether the filter lets a row through.
  bool Shows(const Row& row) const { return !filtered_ || row.Company == company_; }

  // The cursor over the rows the filter lets through.
  void MoveFirst() { cursor_ = NextShown(0); }
  void MoveNext() {
    if (cursor_ < rows_.size()) cursor_ = NextShown(cursor_ + 1);
  }
  bool EOF_() const { return cursor_ >= rows_.size(); }
  // The row under the cursor; none raises 3021.
  Row& Current() {
    if (EOF_()) Raise(kTableNoCurrentRow);
    return rows_[cursor_];
  }
  std::size_t Position() const { return cursor_; }

  // Appends a row and makes it the current row.
  void AddNew(Row row) {
    rows_.push_back(std::move(row));
    cursor_ = rows_.size() - 1;
  }
  // Removes the current row; the cursor goes to the next row shown.
  void Delete() {
    if (EOF_()) Raise(kTableNoCurrentRow);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(cursor_));
    cursor_ = NextShown(cursor_);
  }

  // The rows the filter lets through, counted.
  std::size_t ShownCount() const {
    std::size_t n = 0;
    for (const Row& r : rows_) n += Shows(r) ? 1 : 0;
    return n;
  }

  // Every row, in table order, whatever the filter.
  std::vector<Row>& rows() { return rows_; }
  const std::vector<Row>& rows() const { return rows_; }

 private:
  std::size_t NextShown(std::size_t from) const {
    while (from < rows_.size() && !Shows(rows_[from])) ++from;
    return from;
  }

  std::vector<Row> rows_;
  bool filtered_ = false;
  std::string company_;
  std::size_t cursor_ = 0;
};

}  // namespace corvane
