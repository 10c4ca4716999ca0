// The translator contract: what a format supplies to the reader shape of its branch.
//
// A branch runs: Ready := True; prepare (questions to the operator, side files); InitFiles
// (unless the shape is self-reading); the shape's loop, or the format's own loop when it has
// one; all inside the branch's error frame.
#pragma once

#include <string_view>

namespace corvane {

class frmTimeImport;

struct Translator {
  std::string_view name;  // the translator's name in the dispatch table
  // Frame step 2: what the format asks of the operator, and side files it loads.
  void (*prepare)(frmTimeImport&) = nullptr;
  // Drops the heading records. Without it: shape C does one read of the record shape;
  // shapes H and L read and drop heading_lines whole lines.
  void (*heading)(frmTimeImport&) = nullptr;
  int heading_lines = 0;
  // Reads one record into the format's input fields (into InRec for shapes L and F, which
  // the reader fills itself when read is not given). Shapes C and H: false skips the record
  // without counting it. Shape W: false ends the reading (the first column came back blank).
  bool (*read)(frmTimeImport&) = nullptr;
  // The translator proper: one record to ImportRec and the writers.
  void (*translate)(frmTimeImport&) = nullptr;
  // A loop of the format's own: self-reading translators, and branches whose reading goes by
  // blocks. Replaces the shape's loop.
  void (*run)(frmTimeImport&) = nullptr;
  // Shape L: the translator is called once more for the last line read.
  bool translate_last_line = false;
  // Whether the reader adds 1 to TCcount per record it hands on; false where the translator
  // counts for itself.
  bool reader_counts = true;
  // Empties the format's held per-employee fields at the end of a run.
  void (*clear_data)(frmTimeImport&) = nullptr;
};

// The translator of a dispatch-table name; nullptr when it is not written yet.
const Translator* FindTranslator(std::string_view name);

}  // namespace corvane
