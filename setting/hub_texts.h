#pragma once

namespace chengheng::hub_texts {

inline constexpr const char* title = "基础设置";

inline constexpr const char* noForeignCurrency =
    "该帐套没有设置外币核算,请到“帐套管理”->“帐套参数调整”中设置完后再使用该功能!";

inline constexpr const char* startingGroup = "建帐";
inline constexpr const char* voucherGroup = "凭证";
inline constexpr const char* keysHint = "数字键 1–7 直接进入    F1 帮助";

inline constexpr const char* setName = "帐套";
inline constexpr const char* operatorName = "操作员";
inline constexpr const char* logonDate = "日期";
inline constexpr const char* lastLogon = "上次登录 {}";
inline constexpr const char* wrongSinceThen = "上次登录 {},其间 {} 次口令错误";
inline constexpr const char* wrongBefore = "登录前有 {} 次口令错误";
inline constexpr const char* readOnlyMark = "(只读)";
inline constexpr const char* supervisorMark = "(主管)";

}  // namespace chengheng::hub_texts
