#pragma once

#include <span>

#include "accounts/screen/chart_commands.h"
#include "accounts/screen/chart_texts.h"
#include "operationlog/history/history_texts.h"
#include "screen/screen_texts.h"
#include "screen/window_commands.h"

namespace chengheng {

inline constexpr MenuItemResource chartFileItems[] = {
    {chart_command::print, chart_texts::print},
    {chart_command::preview, chart_texts::preview},
    {0, ""},
    {chart_command::importChart, chart_texts::importChart},
    {chart_command::exportChart, chart_texts::exportChart},
    {0, ""},
    {chart_command::exit, chart_texts::exit},
};
inline constexpr MenuItemResource chartEditItems[] = {
    {chart_command::insert, chart_texts::insert},   {chart_command::copy, chart_texts::copy},
    {chart_command::remove, chart_texts::remove},   {chart_command::modify, chart_texts::modify},
    {chart_command::appoint, chart_texts::appoint},
};
inline constexpr MenuItemResource chartViewItems[] = {
    {chart_command::find, chart_texts::find},
    {chart_command::refurbish, chart_texts::refurbish},
    {chart_command::whereUsed, chart_texts::whereUsed},
    {chart_command::history, history_texts::title},
    {0, ""},
    {chart_command::resetColumns, screen_texts::resetColumns},
};
inline constexpr MenuItemResource chartHelpItems[] = {
    {chart_command::help, chart_texts::help},
    {chart_command::search, chart_texts::search},
    {0, ""},
    {chart_command::about, chart_texts::about},
};
inline constexpr WindowMenu chartMenus[] = {
    {chart_texts::fileMenu, chartFileItems},
    {chart_texts::editMenu, chartEditItems},
    {chart_texts::viewMenu, chartViewItems},
    {chart_texts::helpMenu, chartHelpItems},
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
    chart_command::history,
};

}  // namespace chengheng
