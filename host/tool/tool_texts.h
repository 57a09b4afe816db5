#pragma once

#include <string>
#include <string_view>

namespace chengheng::tool_texts {

inline constexpr const char* summary = "chbooks: 澄恒帐套工具,不需要图形界面";
inline constexpr const char* footer =
    "BOOKS 是帐套文件的路径,或服务器上帐套的地址:\n"
    "  postgresql://用户@主机:端口/数据库?schema=帐套\n"
    "\n"
    "退出码:\n"
    "  0  完成\n"
    "  1  检查发现了问题\n"
    "  2  命令行有误\n"
    "  3  帐套或文件打不开:不存在、不是帐套、已损坏、版本太新、只读或连不上服务器\n"
    "  4  目标已经存在\n"
    "  5  给出的内容不合规定(科目级长、日期、口令等)\n"
    "  6  中途失败,什么都没有改变";

inline constexpr const char* optionGroup = "选项";
inline constexpr const char* commandGroup = "命令";
inline constexpr const char* helpOption = "显示本说明";
inline constexpr const char* versionOption = "显示版本";

/// What is wrong with a command line; the name is that of the parser's error.
std::string wrongUsage(std::string_view errorName, std::string_view detail);

}  // namespace chengheng::tool_texts
