#pragma once

/// What every window with a list and a form shows and asks.
namespace chengheng::form_texts {

inline constexpr const char* fileMenu = "文件(&F)";
inline constexpr const char* preview = "打印预览";
inline constexpr const char* print = "打印\tCtrl+P";
inline constexpr const char* exit = "退出";
inline constexpr const char* editMenu = "编辑(&E)";
inline constexpr const char* insert = "增加\tCtrl+N";
inline constexpr const char* remove = "删除\tCtrl+D";
inline constexpr const char* helpMenu = "帮助(&H)";
inline constexpr const char* helpTopics = "帮助主题";
inline constexpr const char* search = "搜索";
inline constexpr const char* about = "关于...";
inline constexpr const char* helpButton = "帮助";
inline constexpr const char* toolBar = "工具栏";

inline constexpr const char* filter = "筛选(&L):";
inline constexpr const char* noRecords = "还没有记录。\n按 Ctrl+N 增加第一条。";
inline constexpr const char* noneFiltered =
    "没有含有所筛选文字的记录。\n清空“筛选”可看到全部记录。";
inline constexpr const char* used = "已使用";
inline constexpr const char* usedIn = "已使用: {}";
/// A record and what it belongs to.
inline constexpr const char* leafInGroup = "{} ({})";
inline constexpr const char* ok = "确定";

inline constexpr const char* discardInput = "当前输入尚未保存,是否放弃?";
/// The field and how many characters it takes.
inline constexpr const char* cutToLimit = "{}最多 {} 个字,超出的部分已截去。";
inline constexpr const char* aboutProgram = "澄恒财务软件\n基础设置\n\n版本 {}";

}  // namespace chengheng::form_texts
