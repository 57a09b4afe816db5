#pragma once

/// The texts of logging on and of the program's command line. {} is a value.
namespace chengheng::logon_texts {

/// A choice of the log-on window: set of books, year.
inline constexpr const char* choice = "{} {}年度";
inline constexpr const char* locationMissing = "请选择帐套,或输入帐套的路径或服务器地址";
inline constexpr const char* operatorMissing = "请输入操作员姓名";
inline constexpr const char* logonRefused = "操作员姓名或口令不正确";
inline constexpr const char* ownPassword = "更改口令";
inline constexpr const char* oldPassword = "原口令(&O):";
inline constexpr const char* newPassword = "新口令(&N):";
inline constexpr const char* newPasswordAgain = "再输一次新口令(&A):";
inline constexpr const char* oldPasswordWrong = "原口令不正确!";
inline constexpr const char* newPasswordsDiffer = "两次输入的新口令不一致!";
inline constexpr const char* newPasswordIsOld = "新口令不能与原口令相同!";
inline constexpr const char* newPasswordWanted = "主管要求操作员“{}”先更改口令,再开始工作。";
inline constexpr const char* passwordFileOutdated = "口令已更改,口令文件“{}”中仍是原来的口令。";
inline constexpr const char* passwordChanged = "口令已更改,下次登录请用新口令。";
inline constexpr const char* passwordNotKept = "机器的内存不足,无法保存口令,口令没有更改。";
inline constexpr const char* ownRowGone = "您已不是本帐套的操作员,口令没有更改。";
inline constexpr const char* logonDelayed = "口令连续输错,请在{}秒后重试";
inline constexpr const char* logonEnded =
    "口令已连续输错{}次,而这个帐套不能写入,无法记下次数。\n请退出程序,核对口令后再试。";
inline constexpr const char* dateOutsideYear =
    "登录日期{}不在本帐套的会计年度内,请输入{}到{}之间的日期";
inline constexpr const char* operatorsUnreadable = "帐套“{}”中没有帐套参数或操作员,不能登录";

inline constexpr const char* passwordFileIsOpen =
    "口令文件“{}”其他用户也能读。\n请改为只有自己可读,例如 chmod 600。";

inline constexpr const char* help =
    "澄恒财务软件:基础设置\n"
    "\n"
    "用法:chengheng [--books 路径|postgresql://…] [--operator 姓名] [--password-file 文件]\n"
    "                [--date 年-月-日] [-ERPCONSOLE|-ERPSINGLE]\n"
    "\n"
    "选项:\n"
    "  --books 路径|地址           要打开的帐套:文件的路径(文件夹表示其中的 Nbzw.db),\n"
    "                              或服务器地址 postgresql://用户@主机:端口/数据库?schema=名称\n"
    "  --operator 姓名             操作员姓名\n"
    "  --password-file 文件        口令文件,第一行是该操作员的口令;请只让自己可读\n"
    "  --date 年-月-日             登录日期,例如 2026-01-31,应在会计年度内;省略时取今天,\n"
    "                              今天不在会计年度内时取年度内离今天最近的一天\n"
    "  -ERPCONSOLE, -ERPSINGLE     只打开期初余额录入,关闭后程序结束(不分大小写)\n"
    "  -h, --help                  显示本说明\n"
    "  --version                   显示版本\n"
    "\n"
    "同时给出 --books、--operator 和 --password-file 时不显示登录窗口,直接打开基础设置;\n"
    "登录不成时把原因写到标准错误输出并结束。否则显示登录窗口,已给出的各项先行填好。\n"
    "\n"
    "环境变量:\n"
    "  CHENGHENG_HOME              存放帐套列表和新建帐套的文件夹,省略时为\n"
    "                              $XDG_DATA_HOME/chengheng 或 ~/.local/share/chengheng\n"
    "  PGPASSFILE, PGSERVICE, PGPASSWORD\n"
    "                              数据库服务器的口令;省略时由窗口询问,写在地址里的不保存\n"
    "\n"
    "退出码:\n"
    "  0  正常结束,包括在登录窗口中取消\n"
    "  1  程序内部错误\n"
    "  2  命令行有误\n"
    "  3  给出的帐套打不开:不存在、不是帐套、已损坏、版本太新、\n"
    "     要先升级、只读、磁盘已满或连不上服务器\n"
    "  4  给出的操作员、口令或日期被拒绝,或口令文件读不出\n"
    "  5  没有图形显示\n";

inline constexpr const char* version = "chengheng {}\n";
inline constexpr const char* unknownArgument = "无法识别的参数:{}";
inline constexpr const char* valueMissing = "选项缺少内容,或同一选项给出了多次:{}";
inline constexpr const char* argumentTwice = "-ERPCONSOLE 和 -ERPSINGLE 只能给出一个";
inline constexpr const char* dateMalformed =
    "日期“{}”不正确,请按“年-月-日”的格式输入,例如 2026-01-31";
inline constexpr const char* seeHelp = "{}\n用 chengheng --help 查看说明\n";

inline constexpr const char* trigger = "触发器";
inline constexpr const char* view = "视图";
inline constexpr const char* objectSeparator = "、";
inline constexpr const char* moreObjects = "等 {} 个";
inline constexpr const char* foreignInFile =
    "帐套文件“{}”中有不属于本程序的内容:{}。\n"
    "在本程序中它们不起作用。请查明由谁放入;用 chbooks copy 另存的帐套不含这些内容。";
inline constexpr const char* foreignOnServer =
    "帐套“{}”中有不属于本程序的内容:{}。\n"
    "服务器会执行它们,可能改动写入的数据。请先联系服务器管理员查明。";

inline constexpr const char* withoutScreen =
    "没有图形显示,无法打开窗口。请在桌面环境中运行;服务器上可使用命令行工具 chbooks。";
inline constexpr const char* unexpected = "程序出现意外错误,已结束;已保存的数据不受影响。";

/// The path that books had been left under, and theirs.
inline constexpr const char* nameGivenBack =
    "上次结转中断,帐套留在临时文件“{}”中。\n已恢复为“{}”,内容没有改变。";

inline constexpr const char* logBroken =
    "操作日志被人在程序之外改动过。\n请用 chbooks log verify "
    "核对是哪一条,并与封存的记录和备份比较。";

// In the operation log.
inline constexpr const char* loggedOwnPassword = "修改本人 {} 的口令";
inline constexpr const char* logLogon = "登录";
inline constexpr const char* logLogonWithPassword = "登录并更改口令";
inline constexpr const char* logNeverLoggedOff = "{};此前从本工作站登录而没有正常退出的有:{}";
inline constexpr const char* logBetween = "、";
inline constexpr const char* logRefused = "登录被拒绝:{}";
inline constexpr const char* logLogoff = "退出";

}  // namespace chengheng::logon_texts
