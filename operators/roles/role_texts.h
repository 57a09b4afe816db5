#pragma once

/// What is told about the roles of operators on a server. {} is a value.
namespace chengheng::role_texts {

inline constexpr const char* onlyOnServer =
    "帐套“{}”是文件,没有数据库角色。\n数据库角色只用于服务器上的帐套。";
inline constexpr const char* mayNotMakeRoles =
    "数据库用户“{}”不能建立、修改角色,什么都没有改变。\n"
    "请用帐套的所有者连接,并由服务器管理员给它 CREATEROLE 权限。";
inline constexpr const char* notOwner =
    "数据库用户“{}”不是表“{}”的所有者,不能分配它的权限,什么都没有改变。\n"
    "请用帐套在服务器上的所有者连接。";

inline constexpr const char* fileMissing = "找不到口令文件“{}”。\n请检查路径是否正确。";
inline constexpr const char* fileUnreadable = "无法读取口令文件“{}”。\n请检查文件权限。";
inline constexpr const char* lineUnreadable =
    "口令文件第 {} 行看不懂,什么都没有改变。\n每行应为:操作员,制表符,口令。";
inline constexpr const char* passwordEmpty =
    "口令文件第 {} 行:操作员“{}”没有口令,什么都没有改变。\n没有口令的操作员不能登录服务器。";
inline constexpr const char* operatorTwice =
    "口令文件第 {} 行:操作员“{}”出现了两次,什么都没有改变。";
inline constexpr const char* operatorUnknown =
    "口令文件第 {} 行:帐套中没有操作员“{}”,什么都没有改变。";
inline constexpr const char* passwordDiffers =
    "口令文件第 {} 行:不是操作员“{}”在帐套中的口令,什么都没有改变。";

inline constexpr const char* command =
    "为服务器上的帐套的每位操作员建立数据库角色,权限与财务分工一致;权限改过后再运行一次";
inline constexpr const char* passwordsOption =
    "口令文件:每行一位操作员,操作员、制表符、口令;口令须与帐套中的相同";
inline constexpr const char* dropOption = "删除本帐套的全部角色,撤销为它们所作的一切";
inline constexpr const char* dryRunOption = "只列出将要做什么,不改动服务器";

inline constexpr const char* made = "新建 {}(操作员 {})\n";
inline constexpr const char* kept = "不变 {}(操作员 {})\n";
inline constexpr const char* changed = "修改 {}(操作员 {})\n";
inline constexpr const char* renamed = "改名 {} → {}(操作员 {})\n";
inline constexpr const char* dropped = "删除 {}\n";
inline constexpr const char* readsTables = "    读取 {} 个表\n";
inline constexpr const char* readsNoMore = "    不再读取 {} 个表\n";
inline constexpr const char* grants = "    增加 {}:{}\n";
inline constexpr const char* revokes = "    取消 {}:{}\n";
inline constexpr const char* otherRows = "    可用的行有变化\n";
inline constexpr const char* passwordSet = "    口令:取自口令文件\n";
inline constexpr const char* passwordMissing = "    口令:没有给出,用 --passwords 给出后才能登录\n";
inline constexpr const char* adding = "增加";
inline constexpr const char* changing = "修改";
inline constexpr const char* deleting = "删除";
inline constexpr const char* betweenUses = "、";

inline constexpr const char* summary = "{} 个角色:新建 {},改名 {},修改 {},不变 {},删除 {}。";
inline constexpr const char* nothingDone = "没有改动服务器(--dry-run)。";
inline constexpr const char* furtherUse = "注意:角色另外还有写入权限(来自 PUBLIC 或其他角色):{}";

/// What the operation log says.
inline constexpr const char* logged = "使数据库角色与操作员一致";
inline constexpr const char* loggedEnd = "删除本帐套的数据库角色";

}  // namespace chengheng::role_texts
