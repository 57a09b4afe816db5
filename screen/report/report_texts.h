#pragma once

/// What the preview and the printing of reports show. {} is a value.
namespace chengheng::report_texts {

inline constexpr const char* previewTitle = "打印预览 - {}";
inline constexpr const char* toolBar = "预览工具栏";
inline constexpr const char* print = "打印(&P)";
inline constexpr const char* exportPdf = "导出PDF";
inline constexpr const char* exportXlsx = "导出XLSX";
inline constexpr const char* exportCsv = "导出CSV";
inline constexpr const char* firstPage = "首页";
inline constexpr const char* previousPage = "上一页";
inline constexpr const char* nextPage = "下一页";
inline constexpr const char* lastPage = "末页";
inline constexpr const char* pageNumber = "页码(&N):";
inline constexpr const char* pageCount = "共 {} 页";
inline constexpr const char* pagesSoFar = "已排 {} 页";
inline constexpr const char* zoom = "缩放(&Z):";
inline constexpr const char* zoomIn = "放大";
inline constexpr const char* zoomOut = "缩小";
inline constexpr const char* wholePage = "整页";
inline constexpr const char* pageWidth = "页宽";
inline constexpr const char* percent = "{}%";
inline constexpr const char* close = "关闭(&C)";
inline constexpr const char* pages = "页面";
inline constexpr const char* pageName = "第{}页";

inline constexpr const char* layingOut = "正在排版:第 {} 行,共 {} 行";
inline constexpr const char* layoutStopped = "已停止排版,只显示前 {} 行。";
inline constexpr const char* stop = "停止";
inline constexpr const char* exported = "已导出到“{}”。";
inline constexpr const char* exportCancelled = "导出已取消,没有写入文件。";
inline constexpr const char* exportTitle = "导出";
inline constexpr const char* pdfFiles = "PDF文件 (*.pdf)";
inline constexpr const char* xlsxFiles = "XLSX工作簿 (*.xlsx)";
inline constexpr const char* csvFiles = "CSV文件 (*.csv)";

inline constexpr const char* printing = "正在打印…";
inline constexpr const char* writing = "正在写入文件…";
inline constexpr const char* layingOutAll = "正在排版…";
inline constexpr const char* notPainted = "页面没有画完";
inline constexpr const char* noRoomOnPaper =
    "所选的纸张除去页边距、页眉、标题和页脚后,没有地方放表格。\n没有打印。";
inline constexpr const char* printCancelled = "打印已取消。已经送出的页面可能仍会打印。";
inline constexpr const char* printFailed =
    "打印失败。\n请检查打印机是否连接、有纸,或所选文件能否写入。";

}  // namespace chengheng::report_texts
