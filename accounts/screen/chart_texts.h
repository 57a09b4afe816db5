#pragma once

/// What the chart of accounts shows and says. {} is a value.
namespace chengheng::chart_texts {

inline constexpr const char* title = "会计科目";
inline constexpr const char* allAccounts = "全部";
inline constexpr const char* noClasses = "分类数据为空!";
inline constexpr const char* levelLengths = "科目级长:{}";
inline constexpr const char* accountCount = "科目个数:{}";
inline constexpr const char* accountUnknown = "非法的科目!";
inline constexpr const char* refreshing = "正在刷新期初数据,请稍侯.....";

inline constexpr const char* pathSeparator = " / ";

inline constexpr const char* tabs = "科目分类";
inline constexpr const char* toolBar = "工具栏";
inline constexpr const char* searchLabel = "快速查找(&Q):";
inline constexpr const char* searchHint = "编码、名称或助记码";
inline constexpr const char* searchResult = "{}/{}";
inline constexpr const char* searchNothing = "没有匹配的科目";

inline constexpr const char* findTitle = "查找科目";
inline constexpr const char* findLabel = "科目";

}  // namespace chengheng::chart_texts
