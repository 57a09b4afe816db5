#pragma once

namespace chengheng::chart_command {

// Commands of the chart of accounts, by the numbers that its menus and the host send.
inline constexpr int print = 50000;
inline constexpr int preview = 50001;
inline constexpr int insert = 50002;
inline constexpr int remove = 50003;
inline constexpr int modify = 50004;
inline constexpr int appoint = 50005;
inline constexpr int copy = 50006;
inline constexpr int find = 50007;
inline constexpr int help = 50009;
inline constexpr int exit = 50010;
inline constexpr int refurbish = 50011;
inline constexpr int search = 50012;
inline constexpr int about = 50013;
inline constexpr int allAccounts = 50014;  ///< the first tab; the others follow it
inline constexpr int lastTab = 50019;
inline constexpr int importChart = 50020;
inline constexpr int exportChart = 50021;
inline constexpr int whereUsed = 50022;
inline constexpr int history = 50023;
inline constexpr int resetColumns = 50024;

}  // namespace chengheng::chart_command
