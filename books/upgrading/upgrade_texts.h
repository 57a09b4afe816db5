#pragma once

#include <array>

/// What is said while books are upgraded. {} is a value.
namespace chengheng::upgrade_texts {

struct StepText {
    int from;
    const char* text;
};

/// What each step does, for the operator.
inline constexpr std::array steps{
    StepText{1, "增加一张表,记下每位操作员口令输错的次数和上次登录的时间"},
    StepText{2, "各表的数值栏只收范围之内的数,写入超出范围的数会被拒绝"},
    StepText{3, "单位目录增加一栏,记下单位是客户、供应商还是两者都是"},
    StepText{4, "已登录的人另记编号;每位操作员可以记下“下次登录时须更改口令”"},
    StepText{5, "增加操作日志,从此每次改动都记下是谁、何时、从哪台工作站改的,改前改后各是什么"},
    StepText{6, "没有数的科目余额和辅助余额记录另立索引,打开期初余额时不必逐条去找"},
};

inline constexpr const char* heading =
    "帐套“{}”({})由较早版本的程序建立,数据格式为 {},要升级到 {} 才能使用。\n\n升级时:\n";
inline constexpr const char* backupFirst = "· 先备份到“{}”,并核对备份\n";
inline constexpr const char* step = "· {}\n";
inline constexpr const char* allOrNothing =
    "· 各步改动一次写入:中途出错或断电,帐套仍是原来的样子\n";
inline constexpr const char* otherPrograms =
    "· 升级后较早版本的程序不能再打开它,各工作站请都用新版本\n";
inline constexpr const char* waitsForOthers = "· 等其他人退出后才开始。";
inline constexpr const char* atWork = "· 等其他人退出后才开始。列为正在使用的有:{}";
inline constexpr const char* question = "\n\n现在升级吗?";

inline constexpr const char* person = "{}({})";
inline constexpr const char* between = "、";
inline constexpr const char* someProgram = "另一个程序";
inline constexpr const char* function = "升级帐套";

inline constexpr const char* inUse =
    "帐套“{}”正在使用:{}。\n没有升级,什么都没有改变。请等其退出后重试。";
inline constexpr const char* inUseOnServer =
    "帐套“{}”正在使用:{}。\n没有升级,什么都没有改变。请等其退出后重试;"
    "其中如有已经关机的工作站,可用 chbooks upgrade --force 不再等它。";
inline constexpr const char* damaged = "“{}”已损坏,没有升级:{}。\n请用最近的备份恢复后再升级。";
inline constexpr const char* backupFailed =
    "帐套“{}”没有升级,也没有改动,因为升级前的备份没有做成。\n{}";
inline constexpr const char* backupDiffers =
    "写好的备份“{}”与帐套内容不一致,已经丢弃。\n请检查磁盘后重试。";
inline constexpr const char* backupKept = "{}\n升级前的备份在“{}”。";

// In the operation log.
inline constexpr const char* logUpgrade = "数据格式由 {} 升级到 {},升级前的备份在“{}”";

}  // namespace chengheng::upgrade_texts
