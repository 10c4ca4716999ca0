// "Maddock": one pay line a line at fixed columns, the earning code and its D or E named in
// the line, figures in digits with two implied decimals. One heading line; the last line is
// translated like the others.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// 1-6 employee number, 7-31 name, 32 D or E, 33-35 earning code, 36-42 hours, 43-51 dollars
constexpr ColumnMap kMaddock{
    .translator = "Maddock",
    .heading_lines = 1,
    .translate_last_line = true,
    .employee = Slice(1, 6),
    .name = Slice(7, 25),
    .code_rule = CodeRule::FromRecord,
    .code = Slice(33, 3),
    .dore = Slice(32, 1),
    .code_hours = Slice(36, 7, 2),
    .code_dollars = Slice(43, 9, 2),
    .hours_picture = "0.00",
    .dollars_picture = "0.00",
};

}  // namespace

extern const Translator kMaddockTranslator = MapTranslator<kMaddock>(MapInput::Lines);

}  // namespace corvane
