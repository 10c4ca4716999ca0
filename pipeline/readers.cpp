// The reader shapes and the three error frames, shared by every branch of the Select.
#include "pipeline/readers.hpp"

#include "pipeline/dispatch.hpp"
#include "pipeline/time_import.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"

namespace corvane {

namespace {

// One branch's run of its shape, with its frame's way of taking errors.
class Branch {
 public:
  Branch(frmTimeImport& F, const ClockEntry& clock, const Translator& t)
      : F(F), clock(clock), t(t), ignore(clock.frame == Frame::Ignore) {}

  void Run() {
    F.Ready = true;
    if (t.prepare) Do([&] { t.prepare(F); });
    if (!F.Ready) return;
    if (clock.shape != Shape::S) Do([&] { F.InitFiles(); });
    if (t.run) {
      Do([&] { t.run(F); });
      return;
    }
    switch (clock.shape) {
      case Shape::C:
      case Shape::H:
        CommaFields();
        break;
      case Shape::L:
        WholeLines();
        break;
      case Shape::F:
        FixedRecords();
        break;
      case Shape::W:
        WorkbookRows();
        break;
      case Shape::S:
        break;  // a self-reading translator always has its own loop
    }
  }

 private:
  // A statement of the branch: under the ignore frame an error in it is passed over.
  template <class Fn>
  void Do(Fn&& fn) {
    if (ignore) {
      ResumeNext(fn);
    } else {
      fn();
    }
  }

  // The end-of-file test of the loop head. Under the ignore frame a file that cannot be
  // tested (never opened) ends the loop rather than spinning in it.
  bool AtEnd() {
    if (!ignore) return F.File(1).Eof();
    try {
      return F.File(1).Eof();
    } catch (const RuntimeError&) {
      return true;
    }
  }

  void Count() {
    if (t.reader_counts) ++F.TCcount;
  }

  void DropHeadingLines() {
    for (int i = 0; i < t.heading_lines; ++i) Do([&] { F.File(1).LineInput(F.InRec); });
  }

  void ReadLine() {
    if (t.read) {
      Do([&] { t.read(F); });
    } else {
      Do([&] { F.File(1).LineInput(F.InRec); });
    }
  }

  // Shapes C and H: comma-field reads into the format's input fields.
  void CommaFields() {
    if (t.heading) {
      Do([&] { t.heading(F); });
    } else if (clock.shape == Shape::H) {
      DropHeadingLines();
    } else {
      Do([&] { t.read(F); });  // the heading record has the shape of a record
    }
    while (!AtEnd()) {
      bool take = false;
      Do([&] { take = t.read(F); });
      if (!take) continue;
      Do([&] { t.translate(F); });
      Count();
    }
  }

  // Shape L: whole lines, read one ahead.
  void WholeLines() {
    if (t.heading) {
      Do([&] { t.heading(F); });
    } else {
      DropHeadingLines();
    }
    ReadLine();
    while (!AtEnd()) {
      Do([&] { t.translate(F); });
      Count();
      ReadLine();
    }
    if (t.translate_last_line) {
      Do([&] { t.translate(F); });
      Count();
    }
  }

  // Shape F: whole fixed records until one comes up short.
  void FixedRecords() {
    if (t.heading) Do([&] { t.heading(F); });
    auto get = [&] {
      if (t.read) {
        t.read(F);
      } else {
        F.File(1).Get(F.InRec);
      }
    };
    Do(get);
    while (!AtEnd()) {
      Do([&] { t.translate(F); });
      Count();
      Do(get);
    }
  }

  // Shape W: rows of the workbook's active sheet until the first column comes back blank.
  void WorkbookRows() {
    Do([&] { F.WkbObj = Workbook::Open(F.INFile.str()); });
    if (t.heading) Do([&] { t.heading(F); });
    while (true) {
      bool more = false;
      Do([&] { more = t.read(F); });
      if (!more) break;
      Count();
      Do([&] { t.translate(F); });
    }
  }

  frmTimeImport& F;
  const ClockEntry& clock;
  const Translator& t;
  const bool ignore;
};

}  // namespace

void RunBranch(frmTimeImport& F, const ClockEntry& clock, const Translator& translator) {
  Branch branch(F, clock, translator);
  try {
    branch.Run();
  } catch (const RuntimeError&) {
    // Under a handler the reading ends silently and what was written stands. A run whose
    // output files could not be created ends its reading the same way under any frame: the
    // operator has been told why.
    if (clock.frame == Frame::Handler || F.OutputMissing()) return;
    throw;
  }
}

}  // namespace corvane
