#pragma once

#include "opening/screen/opening_commands.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/carry_window_texts.h"
#include "operationlog/history/history_texts.h"
#include "screen/screen_texts.h"
#include "screen/window_commands.h"

namespace chengheng {

inline constexpr MenuItemResource openingFileItems[] = {
    {opening_command::preview, opening_texts::menuPreview},
    {opening_command::print, opening_texts::menuPrint},
    {0, ""},
    {opening_command::importFigures, opening_texts::menuImport},
    {opening_command::exportFigures, opening_texts::menuExport},
    {0, ""},
    {opening_command::exit, opening_texts::menuExit},
};
inline constexpr MenuItemResource openingEditItems[] = {
    {opening_command::adjustDirection, opening_texts::menuDirection},
    {0, ""},
    {opening_command::carryForward, opening_texts::carryForward},
    {opening_command::previewCarry, carry_window_texts::previewCarry},
    {opening_command::repeatCarry, carry_window_texts::repeatCarry},
    {opening_command::verifyCarry, carry_window_texts::verifyCarry},
    {0, ""},
    {opening_command::undo, opening_texts::menuUndo},
    {opening_command::redo, opening_texts::menuRedo},
    {0, ""},
    {opening_command::copy, opening_texts::menuCopy},
    {opening_command::paste, opening_texts::menuPaste},
    {opening_command::clear, opening_texts::menuClear},
    {0, ""},
    {opening_command::auxiliary, opening_texts::menuAuxiliary},
};
inline constexpr MenuItemResource openingViewItems[] = {
    {opening_command::refurbish, opening_texts::menuRefurbish},
    {opening_command::trialBalance, opening_texts::menuTrialBalance},
    {0, ""},
    {opening_command::find, opening_texts::menuFind},
    {opening_command::causes, opening_texts::causesTitle},
    {opening_command::history, history_texts::title},
    {0, ""},
    {opening_command::resetColumns, screen_texts::resetColumns},
};
inline constexpr MenuItemResource openingHelpItems[] = {
    {opening_command::help, opening_texts::menuHelp},
    {opening_command::search, opening_texts::menuSearch},
    {0, ""},
    {opening_command::about, opening_texts::menuAbout},
};
inline constexpr WindowMenu openingMenus[] = {
    {opening_texts::fileMenu, openingFileItems},
    {opening_texts::editMenu, openingEditItems},
    {opening_texts::viewMenu, openingViewItems},
    {opening_texts::helpMenu, openingHelpItems},
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
    0,
    opening_command::history,
};

}  // namespace chengheng
