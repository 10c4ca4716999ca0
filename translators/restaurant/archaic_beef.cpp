// "Archaic Beef": a comma line a pay line, the earning code and its D or E named in the line.
// One heading line; the file ends with a trailer line, which the reader never translates.
#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

// 1 employee number, 2 name, 3 D or E, 4 earning code, 5 hours, 6 dollars
constexpr ColumnMap kArchaicBeef{
    .translator = "ArchaicBeef",
    .fields = 6,
    .text_fields = TextFields({1, 3, 4}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(4),
    .dore = Field(3),
    .code_hours = Field(5),
    .code_dollars = Field(6),
};

}  // namespace

extern const Translator kArchaicBeefTranslator = MapTranslator<kArchaicBeef>(MapInput::Lines);

}  // namespace corvane
