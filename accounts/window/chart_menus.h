#pragma once

#include <span>

#include "accounts/screen/chart_commands.h"
#include "screen/window_commands.h"

namespace chengheng {

inline constexpr MenuItemResource chartFileItems[] = {
    {chart_command::print, "打印\tCtrl+P"},  {chart_command::preview, "打印预览"},    {0, ""},
    {chart_command::importChart, "导入..."}, {chart_command::exportChart, "导出..."}, {0, ""},
    {chart_command::exit, "退出"},
};
inline constexpr MenuItemResource chartEditItems[] = {
    {chart_command::insert, "增加\tCtrl+N"}, {chart_command::copy, "复制\tCtrl+I"},
    {chart_command::remove, "删除\tCtrl+D"}, {chart_command::modify, "修改"},
    {chart_command::appoint, "指定科目"},
};
inline constexpr MenuItemResource chartViewItems[] = {
    {chart_command::find, "查找\tCtrl+S"},
    {chart_command::refurbish, "刷新"},
    {chart_command::whereUsed, "使用情况"},
};
inline constexpr MenuItemResource chartHelpItems[] = {
    {chart_command::help, "帮助主题"},
    {chart_command::search, "搜索"},
    {0, ""},
    {chart_command::about, "关于..."},
};
inline constexpr WindowMenu chartMenus[] = {
    {"文件(&F)", chartFileItems},
    {"编辑(&E)", chartEditItems},
    {"查看(&V)", chartViewItems},
    {"帮助(&H)", chartHelpItems},
};

inline constexpr ToolButton chartToolButtons[] = {
    {0, ""},
    {chart_command::print, "print"},
    {chart_command::preview, "preview"},
    {0, ""},
    {chart_command::insert, "add"},
    {chart_command::remove, "delete"},
    {chart_command::modify, "modify"},
    {chart_command::appoint, "designate"},
    {0, ""},
    {chart_command::copy, "copy"},
    {chart_command::find, "find"},
    {0, ""},
    {chart_command::help, "help"},
    {chart_command::exit, "exit"},
    {0, ""},
};

/// The menu of a right click on the grid.
inline constexpr int chartContextCommands[] = {
    chart_command::insert,
    chart_command::copy,
    chart_command::modify,
    chart_command::remove,
    0,
    chart_command::find,
    0,
    chart_command::whereUsed,
};

}  // namespace chengheng
