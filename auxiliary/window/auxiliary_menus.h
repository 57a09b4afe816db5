#pragma once

#include "auxiliary/members/auxiliary_texts.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "operationlog/history/history_texts.h"
#include "screen/window_commands.h"

namespace chengheng {

// The commands of the window of auxiliary opening balances, by the numbers under which menus and
// tool bar send them.
namespace auxiliary_command {
inline constexpr int preview = 1;
inline constexpr int print = 2;
inline constexpr int exit = 3;
inline constexpr int add = 4;
inline constexpr int modify = 5;
inline constexpr int remove = 6;
inline constexpr int undo = 7;
inline constexpr int redo = 8;
inline constexpr int find = 9;
inline constexpr int refresh = 10;
inline constexpr int copy = 11;
inline constexpr int help = 12;
inline constexpr int search = 13;
inline constexpr int paste = 14;
inline constexpr int importFile = 15;
inline constexpr int exportFile = 16;
inline constexpr int history = 17;
}  // namespace auxiliary_command

inline constexpr MenuItemResource auxiliaryFileItems[] = {
    {auxiliary_command::preview, auxiliary_texts::menuPreview},
    {auxiliary_command::print, auxiliary_texts::menuPrint},
    {0, ""},
    {auxiliary_command::importFile, transfer_texts::menuImport},
    {auxiliary_command::exportFile, transfer_texts::menuExport},
    {0, ""},
    {auxiliary_command::exit, auxiliary_texts::menuExit},
};
inline constexpr MenuItemResource auxiliaryEditItems[] = {
    {auxiliary_command::add, auxiliary_texts::menuAdd},
    {auxiliary_command::modify, auxiliary_texts::menuModify},
    {auxiliary_command::remove, auxiliary_texts::menuRemove},
    {0, ""},
    {auxiliary_command::undo, auxiliary_texts::menuUndo},
    {auxiliary_command::redo, auxiliary_texts::menuRedo},
    {0, ""},
    {auxiliary_command::copy, auxiliary_texts::menuCopy},
    {auxiliary_command::paste, transfer_texts::menuPaste},
};
inline constexpr MenuItemResource auxiliaryViewItems[] = {
    {auxiliary_command::find, auxiliary_texts::menuFind},
    {auxiliary_command::refresh, auxiliary_texts::menuRefresh},
    {auxiliary_command::history, history_texts::title},
};
inline constexpr MenuItemResource auxiliaryHelpItems[] = {
    {auxiliary_command::help, auxiliary_texts::menuHelp},
    {auxiliary_command::search, auxiliary_texts::menuSearch},
};
inline constexpr WindowMenu auxiliaryMenus[] = {
    {auxiliary_texts::fileMenu, auxiliaryFileItems},
    {auxiliary_texts::editMenu, auxiliaryEditItems},
    {auxiliary_texts::viewMenu, auxiliaryViewItems},
    {auxiliary_texts::helpMenu, auxiliaryHelpItems},
};

inline constexpr ToolButton auxiliaryToolButtons[] = {
    {auxiliary_command::add, "add"},
    {auxiliary_command::modify, "modify"},
    {auxiliary_command::remove, "delete"},
    {0, ""},
    {auxiliary_command::undo, "undo"},
    {auxiliary_command::redo, "redo"},
    {0, ""},
    {auxiliary_command::find, "find"},
    {auxiliary_command::refresh, "refresh"},
    {0, ""},
    {auxiliary_command::print, "print"},
    {auxiliary_command::preview, "preview", auxiliary_texts::toolPreview},
    {auxiliary_command::exit, "exit"},
};

/// The menu of a right click on the entries.
inline constexpr int auxiliaryContextCommands[] = {
    auxiliary_command::add,     auxiliary_command::modify, auxiliary_command::remove, 0,
    auxiliary_command::copy,    auxiliary_command::paste,  auxiliary_command::find,   0,
    auxiliary_command::history,
};

}  // namespace chengheng
