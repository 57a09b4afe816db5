#pragma once

#include <QPointer>
#include <QTableView>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class CVCF1;

namespace chengheng {

/// A column of a grid on paper.
struct GridHeadColumn {
    int section = 0;  ///< of the grid's model
    std::string text;
    int width = 0;  ///< in characters; a Chinese one counts as two
};

/// What is known of a grid that is about to be printed. One record serves all windows, since
/// one grid is printed at a time.
struct GridHead {
    QPointer<QWidget> owner;              ///< the window above which pages are shown
    QPointer<const QTableView> grid;      ///< whose columns these are; null: none are prepared
    std::vector<GridHeadColumn> columns;  ///< in the order in which they are seen
};

/// What of a grid goes onto paper beside or instead of what stands on the screen.
struct GridChoice {
    /// Rows that are left out; none: all are printed.
    std::function<bool(int row)> leavesOut = {};
    /// Rows below the grid's own: their texts by column of the model.
    std::vector<std::map<int, std::string>> totals = {};
};

}  // namespace chengheng

/// Never null. A window may enter itself as the owner when it opens; the printing of its grid
/// does so too.
extern chengheng::GridHead* const g_lpHead;
/// How many heading lines stood between title and table of the grid printed last.
extern int g_nLine;

/// Fill the record with the columns that a grid shows: of any table by their widths on the
/// screen, of a CVCF1 by the widths in characters that its model gives them.
void SetGridHdr(const QTableView& grid);
void SetVCF1Hdr(const CVCF1& grid);

/// Prints grids as they stand on the screen.
class CNxGridControl {
  public:
    /// Prepares the record; texts and widths in it may be changed before the printing. False:
    /// the grid shows no column, there is nothing to print.
    static bool BeforePrintGrid(const QTableView& grid);

    /// Prints a grid (flag 0) or previews it (1). Of the heading texts the first is the title;
    /// the second and third stand at the left and right of the line below, the fourth on a line
    /// of its own. Where one of them tells the day of printing (gridPrintDate), the layout of
    /// the page does not repeat it. False as BeforePrintGrid, which is done here where it was
    /// not before.
    static bool PrintOrPreview(const QTableView& grid,
                               const std::array<std::string_view, 4>& headings, int flag,
                               const chengheng::GridChoice& choice = {});
};

namespace chengheng {

/// "打印日期:2026.05.31", a heading text that tells today.
std::string gridPrintDate();

}  // namespace chengheng
