// The error number a call raises, or 0 when it raises none.
#pragma once

#include "runtime/errors.hpp"

namespace corvane::testing {

template <typename F>
int ErrorOf(F f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

}  // namespace corvane::testing
