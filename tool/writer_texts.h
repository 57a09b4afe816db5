#pragma once

/// What chbooks says of the operator who writes, and of who did. {} is a value.
namespace chengheng::tool_texts {

inline constexpr const char* operatorOption =
    "以这位操作员的身份写入,只能做其权限之内的事;\n省略时以帐套文件或服务器管理员的身份写入";
inline constexpr const char* operatorPasswordOption = "口令文件,第一行是该操作员的口令";
inline constexpr const char* optionEmpty = "{} 的值不能空着";
inline constexpr const char* newPasswordFirst = "请先用 chengheng 登录并更改口令,再执行本命令。";
inline constexpr const char* lastUses = "最近使用\n";
inline constexpr const char* lastUse = "  {}  {}\n";
inline constexpr const char* administratorWrote = "管理员,用命令行写入";

}  // namespace chengheng::tool_texts
