// The reader shapes and error frames, written once for every branch.
#pragma once

#include "runtime/errors.hpp"

namespace corvane {

class frmTimeImport;
struct ClockEntry;
struct Translator;

// Runs a branch of the Select: its frame around its shape's loop (or the format's own loop).
void RunBranch(frmTimeImport& F, const ClockEntry& clock, const Translator& translator);

// One statement under the "ignore" frame: an error in it is passed over and the next
// statement runs. Translators whose errors are ignored statement by statement use it.
template <class Statement>
void ResumeNext(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeError&) {
    // passed over: the statement after the failing one runs
  }
}

}  // namespace corvane
