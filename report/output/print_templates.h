#pragma once

#include <cstdint>
#include <span>

namespace chengheng {

// Numbers of the print templates that every new set of books has.
inline constexpr std::int32_t currencyListTemplate = 2;
inline constexpr std::int32_t fixedRateTemplate = 3;
inline constexpr std::int32_t floatingRateTemplate = 4;
inline constexpr std::int32_t voucherTypeTemplate = 5;
inline constexpr std::int32_t settlementTemplate = 35;
inline constexpr std::int32_t accountChartTemplate = 36;
inline constexpr std::int32_t departmentListTemplate = 37;
inline constexpr std::int32_t personListTemplate = 38;
inline constexpr std::int32_t unitClassListTemplate = 39;
inline constexpr std::int32_t unitListTemplate = 40;
inline constexpr std::int32_t projectClassListTemplate = 41;
inline constexpr std::int32_t projectItemListTemplate = 42;
inline constexpr std::int32_t divisionTemplate = 43;
inline constexpr std::int32_t rightsMatrixTemplate = 44;
inline constexpr std::int32_t voucherTypeUsageTemplate = 45;
inline constexpr std::int32_t operationLogTemplate = 46;
/// Books made by an earlier program lack those from here on.
inline constexpr std::int32_t firstLaterTemplate = departmentListTemplate;

/// The paper of a template; the number is the one print systems use.
inline constexpr std::uint8_t paperA4 = 9;

struct TemplateColumn {
    const char* heading;
    const char* field;   ///< column or field that fills it
    std::uint8_t width;  ///< in characters
};

/// A print template as a new set of books gets it.
struct PrintTemplate {
    std::int32_t number;
    const char* title;
    std::uint8_t paper;
    bool isPortrait;
    std::span<const TemplateColumn> columns;
};

std::span<const PrintTemplate> printTemplates();

}  // namespace chengheng
