#pragma once

/// What is said about spreadsheet files that are read and written. {} is a value.
namespace chengheng::sheet_texts {

inline constexpr const char* notWritten = "没有写入文件“{}”,原有的文件保持不变。";
inline constexpr const char* written = "文件“{}”已经写好。";
inline constexpr const char* unconfirmed =
    "但系统没有确认它已存到磁盘上。请检查磁盘,并核对该文件。\n详细信息:{}";
inline constexpr const char* notRead = "没有读入文件“{}”。";
inline constexpr const char* place = "第 {} 行 {} 列:{}";
inline constexpr const char* rowPlace = "第 {} 行:{}";

inline constexpr const char* folderMissing = "所在的文件夹不存在。请先建立文件夹,或换一个路径。";
inline constexpr const char* fileMissing = "找不到该文件。请检查路径是否正确。";
inline constexpr const char* noRight =
    "没有权限。请检查文件和所在文件夹的属主、权限以及磁盘是否只读。";
inline constexpr const char* fileThere = "文件已经存在。请换一个文件名,或加 --force 替换它。";
inline constexpr const char* booksThere = "那里是帐套,不能用打印或导出的内容替换。请换一个文件名。";
inline constexpr const char* diskFull = "磁盘空间不足。请清理磁盘空间后重试。";
inline constexpr const char* fileFailed = "读写时出错。请检查磁盘后重试。\n详细信息:{}";
inline constexpr const char* fileTooLong = "文件超过 {} MB,太大了。请拆分后重试。";

inline constexpr const char* notText = "单元格内容不是有效的文字,不能写入表格文件。";
/// The name of the file takes the place of {}.
inline constexpr const char* fileKindUnknown = "文件名“{}”应以 .csv 或 .xlsx 结尾。";
inline constexpr const char* notNumber = "单元格的数值不是有效的数字,不能写入表格文件。";
inline constexpr const char* textTooLong =
    "单元格内容超过 {} 个字符,XLSX 文件放不下。请改用 CSV 文件。";
inline constexpr const char* tooManyRows = "超过 {} 行,表格太大了。请拆分后重试。";
inline constexpr const char* tooManyColumns = "超过 {} 列,表格太大了。请拆分后重试。";
inline constexpr const char* tooManyCells = "超过 {} 个单元格,表格太大了。请拆分后重试。";
inline constexpr const char* tooMuchText = "文字超过 {} MB,表格太大了。请拆分后重试。";
inline constexpr const char* workbookFailed = "生成 XLSX 文件时出错。\n详细信息:{}";
inline constexpr const char* writtenDiffers = "写出的文件与内容不一致。请检查磁盘空间后重试。";

inline constexpr const char* unknownEncoding =
    "此处的内容无法识别。文件应为 UTF-8、UTF-16 或 GB18030 编码的文本,可能已损坏或不是表格文件。";
inline constexpr const char* notReadableText = "单元格中有不能作为文字的内容(NUL)。";
inline constexpr const char* quoteNotClosed = "单元格以引号开头,但没有结束的引号。";
inline constexpr const char* textAfterQuote =
    "结束的引号之后还有文字。单元格中的引号应写成两个引号。";

/// The headings that a sheet must have, each as the second says.
inline constexpr const char* headingsMissing = "没有标题行。标题行中应有{}。";
inline constexpr const char* wantedHeading = "“{}”";
inline constexpr const char* headingTwice = "标题“{}”重复。";

inline constexpr const char* notWorkbook =
    "文件不是 XLSX 工作簿。请在表格程序中另存为 .xlsx 或 .csv 后重试。";
inline constexpr const char* oldWorkbook =
    "文件是旧格式(.xls)的工作簿,或者设有打开口令。\n"
    "请在表格程序中另存为不带口令的 .xlsx 后重试。";
inline constexpr const char* workbookDamaged =
    "XLSX 文件已损坏或不完整。请重新取得该文件。\n详细信息:{}";
inline constexpr const char* unpackedTooLong = "XLSX 文件解压后超过 {} MB,太大了。请拆分后重试。";
inline constexpr const char* noVisibleSheet = "工作簿中没有可见的工作表。";
inline constexpr const char* formulaWithoutResult =
    "公式没有计算结果。请在表格程序中打开该文件,保存后重试。";
inline constexpr const char* unreadableNumber = "数值“{}”无法识别。";
inline constexpr const char* unreadableCell = "单元格内容无法识别。";

}  // namespace chengheng::sheet_texts
