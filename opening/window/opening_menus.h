#pragma once

#include "opening/screen/opening_commands.h"
#include "opening/sheet/opening_texts.h"
#include "screen/window_commands.h"

namespace chengheng {

inline constexpr MenuItemResource openingFileItems[] = {
    {opening_command::preview, "打印预览"},
    {opening_command::print, "打印\tCtrl+P"},
    {0, ""},
    {opening_command::importFigures, "导入..."},
    {opening_command::exportFigures, "导出..."},
    {0, ""},
    {opening_command::exit, "退出"},
};
inline constexpr MenuItemResource openingEditItems[] = {
    {opening_command::adjustDirection, "调余额方向"},
    {0, ""},
    {opening_command::carryForward, opening_texts::carryForward},
    {0, ""},
    {opening_command::undo, "撤销\tCtrl+Z"},
    {opening_command::redo, "重做\tCtrl+Y"},
    {0, ""},
    {opening_command::copy, "复制\tCtrl+C"},
    {opening_command::paste, "粘贴\tCtrl+V"},
    {opening_command::clear, "清零\tDel"},
    {0, ""},
    {opening_command::auxiliary, "录入辅助期初"},
};
inline constexpr MenuItemResource openingViewItems[] = {
    {opening_command::refurbish, "刷新"},
    {opening_command::trialBalance, "试算平衡"},
    {0, ""},
    {opening_command::find, "查找\tCtrl+K"},
    {opening_command::causes, opening_texts::causesTitle},
};
inline constexpr MenuItemResource openingHelpItems[] = {
    {opening_command::help, "帮助主题"},
    {opening_command::search, "搜索"},
    {0, ""},
    {opening_command::about, "关于..."},
};
inline constexpr WindowMenu openingMenus[] = {
    {"文件(&F)", openingFileItems},
    {"编辑(&E)", openingEditItems},
    {"查看(&V)", openingViewItems},
    {"帮助(&H)", openingHelpItems},
};

/// The menu of a right click on the grid.
inline constexpr int openingContextCommands[] = {
    opening_command::undo,
    opening_command::redo,
    0,
    opening_command::copy,
    opening_command::paste,
    opening_command::clear,
    0,
    opening_command::auxiliary,
    opening_command::adjustDirection,
    0,
    opening_command::find,
    opening_command::refurbish,
    opening_command::trialBalance,
    opening_command::causes,
};

}  // namespace chengheng
