#pragma once

namespace chengheng::opening_command {

// Commands of the opening balance window, by the numbers that its menus and keys send.
inline constexpr int print = 50100;
inline constexpr int preview = 50101;
inline constexpr int exit = 50102;
inline constexpr int adjustDirection = 50103;
inline constexpr int carryForward = 50104;
inline constexpr int refurbish = 50105;
inline constexpr int trialBalance = 50106;
inline constexpr int find = 50107;
inline constexpr int help = 50108;
inline constexpr int search = 50109;
inline constexpr int about = 50110;
inline constexpr int undo = 50111;
inline constexpr int redo = 50112;
inline constexpr int copy = 50113;
inline constexpr int paste = 50114;
inline constexpr int importFigures = 50115;
inline constexpr int exportFigures = 50116;
inline constexpr int causes = 50117;
inline constexpr int auxiliary = 50118;
inline constexpr int calendar = 50119;
inline constexpr int calculator = 50120;
inline constexpr int clear = 50121;
inline constexpr int previewCarry = 50122;
inline constexpr int repeatCarry = 50123;
inline constexpr int verifyCarry = 50124;
inline constexpr int history = 50125;
inline constexpr int resetColumns = 50126;

}  // namespace chengheng::opening_command
