#pragma once

#include <QString>
#include <span>

namespace chengheng {

/// A page of help: the context by which a window asks for it, its title and its file.
struct HelpPage {
    int context;
    const char* title;
    const char* file;
};

inline constexpr int hubHelpContext = 197778;
inline constexpr int chartHelpContext = 197783;
inline constexpr int operatorHelpContext = 197781;
inline constexpr int settleHelpContext = 197782;
inline constexpr int openingHelpContext = 197784;
inline constexpr int auxiliaryHelpContext = 197785;
inline constexpr int directoryHelpContext = 197786;
inline constexpr int parametersHelpContext = 197787;
inline constexpr int currencyHelpContext = 197788;
inline constexpr int voucherTypeHelpContext = 197789;
inline constexpr int newYearHelpContext = 197790;
inline constexpr int logHelpContext = 197791;

/// In the order of the table of contents.
std::span<const HelpPage> helpPages();

/// Position of the page for a context; that of the first page when there is none.
int helpPageIndex(int context);

/// The page as it is written.
QString helpPageSource(const HelpPage& page);

/// Whether title or text of the page holds what is looked for, in any case.
bool isFoundOnPage(const HelpPage& page, const QString& wanted);

}  // namespace chengheng
