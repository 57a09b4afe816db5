#pragma once

/// What the operator is told about a layout file. {} is a value.
namespace chengheng::layout_texts {

inline constexpr const char* faultyFile = "版面文件“{}”第{}行有误:{}。\n没有打印。";
inline constexpr const char* missingFile =
    "找不到版面文件“{}”。\n请重新安装程序,或把版面文件放回原处。";
inline constexpr const char* unreadableFile = "无法读取版面文件“{}”。\n详细信息:{}";
inline constexpr const char* noRoomOnPaper =
    "打印模板的纸上,除去版面文件“{}”的页边、页眉、标题和页脚后,没有地方放表格。\n没有打印。";

inline constexpr const char* notUtf8 = "不是UTF-8文字";
inline constexpr const char* noVersion = "第一个内容应该是“rpn 1”";
inline constexpr const char* newerVersion = "版本“{}”太新,本程序只认识“rpn 1”";
inline constexpr const char* sectionOpen = "“{}”缺少右方括号";
inline constexpr const char* unknownSection = "不认识段“[{}]”";
inline constexpr const char* sectionTwice = "段“[{}]”出现了两次";
inline constexpr const char* noSection = "“{}”不在任何段中";
inline constexpr const char* noEquals = "“{}”没有等号";
inline constexpr const char* unknownSetting = "段“[{}]”中没有“{}”这一项";
inline constexpr const char* settingTwice = "“{}”在本段中出现了两次";
inline constexpr const char* notNumber = "“{}”应该是{}到{}之间的数";
inline constexpr const char* notWholeNumber = "“{}”应该是{}到{}之间的整数";
inline constexpr const char* notMargins = "“{}”应该是上、右、下、左四个数,以空格分开";
inline constexpr const char* notPaper = "“{}”应该是A3、A4、A5、B5之一,或“宽 x 高”(毫米)";
inline constexpr const char* notYesOrNo = "“{}”应该是yes或no";
inline constexpr const char* notOverflow = "“{}”应该是ellipsis或wrap";
inline constexpr const char* notFont = "“{}”应该是字体(song或hei)、字号(5到72)、可加bold";
inline constexpr const char* unknownFact =
    "“{{{}}}”不认识,可以用title、company、books、operator、date、page、pages";
inline constexpr const char* braceOpen = "“{}”缺少右花括号";
inline constexpr const char* noRoom = "除去页边、页眉、标题和页脚后,纸上没有地方放表格";

}  // namespace chengheng::layout_texts
