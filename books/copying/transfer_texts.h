#pragma once

/// What is said while books are backed up, restored and copied. {} is a value.
namespace chengheng::transfer_texts {

inline constexpr const char* backupToServer =
    "备份只能写入文件,“{}”是服务器地址。\n要把帐套移到另一台服务器,请用 copy 命令。";
inline constexpr const char* backupFromServerAddress =
    "只能从备份文件恢复,“{}”是服务器地址。\n要复制服务器上的帐套,请用 copy 命令。";
inline constexpr const char* sameBooks = "来源和目标是同一个帐套“{}”,没有改动它。";
inline constexpr const char* fileExists =
    "文件“{}”已经存在,没有改动它。\n请换一个文件名,或加 --force 替换它。";
inline constexpr const char* besideBooks =
    "“{}”是另一个帐套的日志文件的位置,没有改动它。\n请换一个文件名。";
inline constexpr const char* booksExist =
    "“{}”已经有帐套,没有改动它。\n请换一个目标,或加 --force 用新内容替换其全部内容。";
inline constexpr const char* folderMissing =
    "“{}”所在的文件夹不存在,什么都没有写。\n请先建立文件夹,或换一个路径。";
inline constexpr const char* fileInUse =
    "文件“{}”正在使用,没有改动它。\n请先关闭打开该文件的程序。";
inline constexpr const char* booksInUse =
    "帐套“{}”正被操作员“{}”在“{}”使用,没有改动它。\n请等其退出后重试。";
inline constexpr const char* booksInUseBySomebody =
    "帐套“{}”正被其他工作站使用,没有改动它。\n请等其退出后重试。";
inline constexpr const char* sourceDamaged =
    "“{}”已损坏,没有使用它。\n请改用另一份备份。\n详细信息:{}";
inline constexpr const char* copyDiffers =
    "写好的副本与“{}”的内容不一致,副本已丢弃,什么都没有改变。\n请检查磁盘后重试。";
inline constexpr const char* notLogged = "“{}”已经写好,但没能记入“{}”的操作日志。\n{}";

// In the operation log.
inline constexpr const char* logBackup = "备份到“{}”";
inline constexpr const char* logCopyTo = "复制到“{}”";
inline constexpr const char* logCopyOf = "由“{}”复制而来";
inline constexpr const char* logRestore = "从备份“{}”恢复";
inline constexpr const char* logReplaced = "{};被替换的帐套的操作日志止于第 {} 条,散列值 {}";

}  // namespace chengheng::transfer_texts
