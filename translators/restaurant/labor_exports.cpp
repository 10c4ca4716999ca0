// The restaurant back offices whose payroll export is a plain map of comma columns: one
// descriptor a format, read by the one column-map translator shape.
#include <array>
#include <cstdint>
#include <initializer_list>

#include "pipeline/column_map.hpp"

namespace corvane {

namespace {

using enum Figure;

// "DDMGR": number, name, pay code, hours, dollars; each code is paid under the box of its
// name, the allowance, bonus and tips codes in dollars.
constexpr std::array<PayCode, 21> kDDMGRCodes{{
    {"RE", Cat::e15},         {"RET", Cat::e16},         {"AL", Cat::e17, Dollars},
    {"B", Cat::e18, Dollars}, {"B2", Cat::e19, Dollars}, {"D", Cat::e20},
    {"DM", Cat::e21},         {"F", Cat::e22},           {"H", Cat::e23},
    {"J", Cat::e24},          {"O", Cat::e29},           {"OT", Cat::e30},
    {"P", Cat::e31},          {"R", Cat::e32},           {"RA", Cat::e33},
    {"REG", Cat::e34},        {"S", Cat::e35},           {"T", Cat::e36, Dollars},
    {"V", Cat::e37},          {"W", Cat::e38},           {"Y", Cat::e39},
}};
constexpr ColumnMap kDDMGR{
    .translator = "DDMGR",
    .fields = 5,
    .text_fields = TextFields({2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .codes = kDDMGRCodes,
};

// "Qwest": the same five columns; the bar and manager job words have boxes of their own.
constexpr std::array<PayCode, 10> kQwestCodes{{
    {"Reg", Cat::Reg},
    {"OT", Cat::OT},
    {"Dbl", Cat::Dbl},
    {"Tips", Cat::Tips, Dollars},
    {"BARTND", Cat::Sales},
    {"MGRW", Cat::Hol},
    {"BAROT", Cat::Misc},
    {"MGR", Cat::Disb},
    {"MGROT", Cat::Abs},
    {"MGRWOT", Cat::AdjH},
}};
constexpr ColumnMap kQwest{
    .translator = "Qwest",
    .fields = 5,
    .text_fields = TextFields({2, 3}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .codes = kQwestCodes,
};

// "ESI": the file names the Evolution code and its D-or-E; the code keeps its leading zeros.
constexpr ColumnMap kESI{
    .translator = "ESI",
    .fields = 6,
    .text_fields = TextFields({2, 3, 4}),
    .employee = Field(1),
    .name = Field(2),
    .code_rule = CodeRule::FromRecord,
    .code = Field(4),
    .dore = Field(3),
    .code_hours = Field(5),
    .code_dollars = Field(6),
};

// "Sorrelin 2868": three numbered hours columns.
constexpr std::array<PayColumn, 3> kSorrelinPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::OT},
    {Field(5), Hours, Cat::Misc},
}};
constexpr ColumnMap kSorrelin2868{
    .translator = "Sorrelin2868",
    .fields = 5,
    .text_fields = TextFields({2}),
    .employee = Field(1),
    .name = Field(2),
    .pay = kSorrelinPay,
};

// "PCI Paper": one hours column per pay letter.
constexpr std::array<PayColumn, 6> kPCIPaperPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::OT},
    {Field(5), Hours, Cat::Dbl},
    {Field(6), Hours, Cat::Tips},
    {Field(7), Hours, Cat::Sales},
    {Field(8), Hours, Cat::Hol},
}};
constexpr ColumnMap kPCIPaper{
    .translator = "PCIPaper",
    .fields = 8,
    .text_fields = TextFields({2}),
    .employee = Field(1),
    .name = Field(2),
    .pay = kPCIPaperPay,
};

// "CTuit Radar": last and first name apart; the break and split-shift premiums in hours.
constexpr std::array<PayColumn, 6> kCTuitRadarPay{{
    {Field(4), Hours, Cat::Reg},
    {Field(5), Hours, Cat::OT},
    {Field(6), Hours, Cat::Dbl},
    {Field(7), Dollars, Cat::Tips},
    {Field(8), Hours, Cat::e15},
    {Field(9), Hours, Cat::e16},
}};
constexpr ColumnMap kCTuitRadar{
    .translator = "CTuitRadar",
    .fields = 9,
    .text_fields = TextFields({2, 3}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .pay = kCTuitRadarPay,
};

// "Hooters": regular and overtime hours, tips in dollars.
constexpr std::array<PayColumn, 3> kHootersPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::OT},
    {Field(5), Dollars, Cat::Tips},
}};
constexpr ColumnMap kHooters{
    .translator = "Hooters",
    .fields = 5,
    .text_fields = TextFields({2}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kHootersPay,
};

// "RBI": hours, the premiums, then the tips and deductions in dollars.
constexpr std::array<PayColumn, 9> kRBIPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::OT},
    {Field(5), Hours, Cat::Dbl},
    {Field(6), Dollars, Cat::Tips},
    {Field(7), Hours, Cat::e15},
    {Field(8), Hours, Cat::e16},
    {Field(9), Dollars, Cat::e18},
    {Field(10), Dollars, Cat::e29},
    {Field(11), Dollars, Cat::e30},
}};
constexpr ColumnMap kRBI{
    .translator = "RBI",
    .fields = 11,
    .text_fields = TextFields({2}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kRBIPay,
};

// "Restaurant Magic": the file already splits tipped-wage hours from full-wage hours.
constexpr std::array<PayColumn, 4> kRestaurantMagicPay{{
    {Field(3), Hours, Cat::Reg},
    {Field(4), Hours, Cat::WaitReg},
    {Field(5), Hours, Cat::OT},
    {Field(6), Hours, Cat::WaitOT},
}};
constexpr ColumnMap kRestaurantMagic{
    .translator = "RestaurantMagic",
    .fields = 6,
    .text_fields = TextFields({2}),
    .heading_lines = 1,
    .employee = Field(1),
    .name = Field(2),
    .pay = kRestaurantMagicPay,
};

}  // namespace

extern const Translator kDDMGRTranslator = MapTranslator<kDDMGR>(MapInput::CommaFields);
extern const Translator kQwestTranslator = MapTranslator<kQwest>(MapInput::CommaFields);
extern const Translator kESITranslator = MapTranslator<kESI>(MapInput::CommaFields);
extern const Translator kSorrelin2868Translator =
    MapTranslator<kSorrelin2868>(MapInput::CommaFields);
extern const Translator kPCIPaperTranslator = MapTranslator<kPCIPaper>(MapInput::CommaFields);
extern const Translator kCTuitRadarTranslator = MapTranslator<kCTuitRadar>(MapInput::CommaFields);
extern const Translator kHootersTranslator = MapTranslator<kHooters>(MapInput::CommaFields);
extern const Translator kRBITranslator = MapTranslator<kRBI>(MapInput::CommaFields);
extern const Translator kRestaurantMagicTranslator =
    MapTranslator<kRestaurantMagic>(MapInput::CommaFields);

}  // namespace corvane
