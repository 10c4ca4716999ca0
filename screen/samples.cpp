#include "screen/samples.hpp"

namespace corvane {

namespace {

constexpr SampleRow kSampleRows[] = {
#define SAMPLE(format, row) {format, row},
#include "screen/samples_comma_other.inc"
#include "screen/samples_comma_restaurant.inc"
#include "screen/samples_comma_timeclock.inc"
#include "screen/samples_fixed_records.inc"
#include "screen/samples_line_restaurant.inc"
#include "screen/samples_line_timeclock.inc"
#include "screen/samples_other.inc"
#include "screen/samples_reports.inc"
#include "screen/samples_restaurant.inc"
#include "screen/samples_timeclock.inc"
#undef SAMPLE
};

}  // namespace

std::span<const SampleRow> SampleRows() {
  return kSampleRows;
}

}  // namespace corvane
