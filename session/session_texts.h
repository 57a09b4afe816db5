#pragma once

#include <array>
#include <string_view>

/// What is told about currencies and locks. {} is a value.
namespace chengheng::session_texts {

inline constexpr const char* currencyGone = "该外币已经被删除!";
inline constexpr const char* currencyUnreadable = "无法读取外币资料,操作没有进行!\n{}";

/// The name before and after, in the operation log.
inline constexpr const char* becomes = "{} → {}";

/// What the operation log says of a right that is missing, and of lists that went out: what was
/// done with them, their title, their file.
inline constexpr const char* loggedRefusal = "拒绝:{}";
inline constexpr const char* loggedOutput = "{} {}";
inline constexpr const char* loggedFile = "{} {} 到“{}”";
inline constexpr const char* printed = "打印";
inline constexpr const char* previewed = "预览";
inline constexpr const char* exported = "导出";

struct LockTitle {
    std::string_view name;
    const char* title;
};

/// What a lock keeps for its holder, in a bookkeeper's words. AssSum, RegSug and UnRegSug are
/// names that lock lists carry (sic).
inline constexpr std::array lockTitles{
    LockTitle{"Code", "会计科目"},
    LockTitle{"AccSum", "科目余额"},
    LockTitle{"AssAcc", "辅助核算余额"},
    LockTitle{"Settle", "结算方式"},
    LockTitle{"Sign", "凭证类别"},
    LockTitle{"Cyrency", "外币"},
    LockTitle{"ExchgFix", "固定汇率"},
    LockTitle{"ExchgFlt", "浮动汇率"},
    LockTitle{"Users", "操作员"},
    LockTitle{"UserAuth", "操作员权限"},
    LockTitle{"RegMain", "凭证"},
    LockTitle{"RegSub", "凭证"},
    LockTitle{"UnRegMain", "未记帐凭证"},
    LockTitle{"UnRegSub", "未记帐凭证"},
    LockTitle{"AssSum", "辅助核算余额"},
    LockTitle{"RegSug", "凭证"},
    LockTitle{"UnRegSug", "未记帐凭证"},
    LockTitle{"RecpBank", "银行对帐单"},
    LockTitle{"RecpEnter", "往来对帐单"},
    LockTitle{"zAccountM", "帐套参数"},
    LockTitle{"Dept", "部门"},
    LockTitle{"Person", "个人"},
    LockTitle{"EnterClass", "单位分类"},
    LockTitle{"Enter", "单位"},
    LockTitle{"ProjClass", "项目大类"},
    LockTitle{"ProjItems", "项目"},
    LockTitle{"ProjCodes", "项目科目"},
    LockTitle{"AutoMain", "自定义转帐"},
    LockTitle{"AutoSub", "自定义转帐"},
    LockTitle{"FreqSub", "常用凭证"},
    LockTitle{"_Digest", "常用摘要"},
    LockTitle{"LoginInfoTbl", "登录记录"},
    LockTitle{"LogonTries", "口令记录"},
    LockTitle{"ABIdTable", "序号表"},
};

inline constexpr const char* lockHolder =
    "“{}”正被其他人使用,请稍候。\n\n操作员:{}\n工作站:{}\n开始时间:{}";
inline constexpr const char* fileHeldBySomebody = "帐套正被其他程序占用,请稍候。";
inline constexpr const char* lockHeldBySomebody =
    "“{}”正被其他人使用,请稍候。\n暂时还不知道使用者是谁。";
inline constexpr const char* holdersFunction = "\n正在使用的功能:{}";
inline constexpr const char* unknown = "(未知)";
inline constexpr const char* secondsWaited = "{} 秒";
inline constexpr const char* minutesWaited = "{} 分 {:02} 秒";

}  // namespace chengheng::session_texts
