#pragma once

/// What the operator is told about accounts.
namespace chengheng::account_texts {

inline constexpr const char* codeMissing = "必须输入科目编码";
inline constexpr const char* codeHasBlank = "科目编码不能包含空格!";
inline constexpr const char* codeNotUnique = "科目编码不唯一";
inline constexpr const char* parentMissing = "必须先定义上级科目编码";
inline constexpr const char* codeMalformed = "不符合科目编码规则";
inline constexpr const char* codeDepartsFromCategory = "科目编码首位和分类编号不符,接受此编码吗?";

}  // namespace chengheng::account_texts
