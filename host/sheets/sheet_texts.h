#pragma once

/// What is said about spreadsheet files that are read and written. {} is a value.
namespace chengheng::sheet_texts {

inline constexpr const char* notWritten = "没有写入文件“{}”,原有的文件保持不变。";
inline constexpr const char* notRead = "没有读入文件“{}”。";
inline constexpr const char* place = "第 {} 行 {} 列:{}";
inline constexpr const char* rowPlace = "第 {} 行:{}";

inline constexpr const char* folderMissing = "所在的文件夹不存在。请先建立文件夹,或换一个路径。";
inline constexpr const char* fileMissing = "找不到该文件。请检查路径是否正确。";
inline constexpr const char* noRight =
    "没有权限。请检查文件和所在文件夹的属主、权限以及磁盘是否只读。";
inline constexpr const char* diskFull = "磁盘空间不足。请清理磁盘空间后重试。";
inline constexpr const char* fileFailed = "读写时出错。请检查磁盘后重试。\n详细信息:{}";
inline constexpr const char* fileTooLong = "文件超过 {} MB,太大了。请拆分后重试。";

inline constexpr const char* notText = "单元格内容不是有效的文字,不能写入表格文件。";
inline constexpr const char* notNumber = "单元格的数值不是有效的数字,不能写入表格文件。";
inline constexpr const char* textTooLong =
    "单元格内容超过 {} 个字符,XLSX 文件放不下。请改用 CSV 文件。";
inline constexpr const char* tooManyRows = "超过 {} 行,表格文件放不下。";
inline constexpr const char* tooManyColumns = "超过 {} 列,表格文件放不下。";
inline constexpr const char* workbookFailed = "生成 XLSX 文件时出错。\n详细信息:{}";
inline constexpr const char* writtenDiffers = "写出的文件与内容不一致。请检查磁盘空间后重试。";

}  // namespace chengheng::sheet_texts
