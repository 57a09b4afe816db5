#pragma once

#include <string>
#include <string_view>

// What the command-line tool prints. {} is a value.

namespace chengheng::tool_texts {

inline constexpr const char* summary = "chbooks:澄恒帐套工具,不需要图形界面";
inline constexpr const char* footer =
    "BOOKS 是帐套文件的路径,或服务器上帐套的地址:\n"
    "  postgresql://用户@主机:端口/数据库?schema=帐套\n"
    "服务器的口令由 PGPASSFILE、PGSERVICE 或 PGPASSWORD 提供,或放在 ~/.pgpass 中;\n"
    "写在地址里的口令只用这一次,不保存。\n"
    "\n"
    "退出码:\n"
    "  0  完成\n"
    "  1  检查发现了问题,试算不平衡,凭证不能用这个类别,\n"
    "     上年余额不能结转或与本年不一致,数据库角色另有写入权限,\n"
    "     操作日志或帐套已不是所记的原样\n"
    "  2  命令行有误\n"
    "  3  帐套、文件或服务器出错(不存在、不是帐套、已损坏、版本太新、要先升级、\n"
    "     只读、占用、连不上、磁盘已满),什么都没有改变\n"
    "  4  目标已经存在,没有改动它\n"
    "  5  给出的内容不合规定(科目级长、年份、口令、导入的科目等)";

inline constexpr const char* usageLabel = "用法";
inline constexpr const char* argumentsLabel = "参数";
inline constexpr const char* requiredLabel = " (必需)";
inline constexpr const char* valueLabel = " 值";
inline constexpr const char* numberLabel = " 整数";
inline constexpr const char* optionGroup = "选项";
inline constexpr const char* commandGroup = "命令";
inline constexpr const char* helpOption = "显示本说明";
inline constexpr const char* versionOption = "显示版本";
inline constexpr const char* unexpected = "命令行里多出了“{}”";
inline constexpr const char* unknownCommand = "没有“{}”这个命令";
inline constexpr const char* notNumber = "{} 应为整数,不能是“{}”";
inline constexpr const char* outOfRange = "{} 应在 {} 到 {} 之间,不能是“{}”";
inline constexpr const char* notOneOfTwo = "{} 应为 {} 或 {},不能是“{}”";
inline constexpr const char* notMonth = "{} 应为年-月,例如 2026-04,不能是“{}”";
inline constexpr const char* seeHelp = "。\n用 --help 查看用法。";
inline constexpr const char* jsonOption = "输出 JSON,供程序读取";
inline constexpr const char* booksArgument = "帐套文件的路径或服务器地址";
inline constexpr const char* newBooksArgument = "要写入的帐套文件的路径或服务器地址";
inline constexpr const char* backupFileArgument = "备份文件";
inline constexpr const char* forceFile = "替换已经存在的文件";
inline constexpr const char* forceBooks = "替换已经存在的帐套的全部内容";

inline constexpr const char* demoCommand = "建立演示帐套:一家小型商贸公司";
inline constexpr const char* demoLastYearOption = "另在此处建立已结束的上一年帐套";
inline constexpr const char* demoCreated =
    "演示帐套已建立:{}\n主管:{}  各操作员的口令:{}(仅供演示)";
inline constexpr const char* demoPasswordNoted = "口令文件:{}";
inline constexpr const char* demoPasswordFile = "demo-password.txt";

inline constexpr const char* infoCommand = "显示帐套的名称、参数和各表行数";
inline constexpr const char* infoHead =
    "帐套名称  {}\n"
    "单位名称  {}\n"
    "会计年度  {}\n"
    "启用日期  {}\n"
    "科目级长  {}\n"
    "外币核算  {}\n"
    "数据库    {} {}\n"
    "格式版本  {}\n"
    "大小      {} KB\n"
    "位置      {}\n";
inline constexpr const char* rowCounts = "各表行数\n";
inline constexpr const char* yes = "是";
inline constexpr const char* no = "否";

inline constexpr const char* checkCommand = "检查帐套的数据是否完好,逐条列出问题";
inline constexpr const char* noFaults = "{} 项检查全部通过。";
inline constexpr const char* faultCount = "{} 项检查,共发现 {} 处问题。";
inline constexpr const char* noteCount = "另有 {} 处提示,不一定是错误,请核对。";

inline constexpr const char* backupCommand = "把帐套备份到文件,备份时可以照常使用帐套";
inline constexpr const char* objectLeftOut = "{}不是本程序建立的,没有带入。";
inline constexpr const char* backedUp = "帐套“{}”已备份到“{}”,并核对无误。";
inline constexpr const char* restoreCommand = "从备份文件恢复帐套";
inline constexpr const char* restored = "已从“{}”恢复帐套“{}”,并核对无误。";
inline constexpr const char* copyCommand = "复制帐套,文件与服务器之间也可以";
inline constexpr const char* copied = "帐套“{}”已复制到“{}”,并核对无误。";

inline constexpr const char* upgradeCommand = "把较早版本的程序建立的帐套升级到本版本,升级前先备份";
inline constexpr const char* dryRunUpgrade = "只说明将要做什么,不改动帐套";
inline constexpr const char* forceUpgrade =
    "服务器上的帐套:不等列为已登录的人,用于其工作站已经关机的情形";
inline constexpr const char* upToDate = "帐套“{}”的数据格式为 {},不需要升级。";
inline constexpr const char* upgraded =
    "帐套“{}”已从数据格式 {} 升级到 {}。\n升级前的备份在“{}”,已核对无误。";
inline constexpr const char* upgradedElsewhere = "帐套“{}”刚由另一个程序升级。";

inline constexpr const char* importChartCommand = "从表格文件导入科目,与逐个增加、修改的规则相同";
inline constexpr const char* importFileArgument =
    "CSV 或 XLSX 文件,标题行中有“科目编码”和“科目名称”";
inline constexpr const char* dryRunOption = "只列出每一行的处理结果,不改动帐套";
inline constexpr const char* acceptOption = "接受所有需要确认的内容";
inline constexpr const char* plannedRow = "第 {} 行 {} {} {}\n";
inline constexpr const char* plannedQuestion = "    需确认:{}\n";
inline constexpr const char* plannedRefusal = "    {}\n";
inline constexpr const char* ignoredHeading = "不认识标题“{}”,该列没有导入。\n";
inline constexpr const char* planSummary = "新增 {} 行,修改 {} 行,不变 {} 行,拒绝 {} 行。\n";
inline constexpr const char* imported = "已导入“{}”。";
inline constexpr const char* notAccepted = "没有导入。确认无误后请加 --accept 重新执行。";
inline constexpr const char* exportChartCommand = "把科目导出为表格文件,可以原样导入";
inline constexpr const char* exportFileArgument = "要写入的文件,以 .csv 或 .xlsx 结尾;- 为标准输出";
inline constexpr const char* exported = "科目已导出到“{}”。";

inline constexpr const char* importDirectoryCommand =
    "从表格文件导入部门、个人、单位或项目目录,与逐个增加、修改的规则相同";
inline constexpr const char* directoryArgument =
    "目录:departments(部门)、persons(个人)、unit-classes(单位分类)、\n"
    "units(单位)、project-classes(项目大类)、projects(项目)";
inline constexpr const char* directoryFileArgument =
    "CSV 或 XLSX 文件,标题行中有“编码”、“名称”和所属部门、单位分类、项目大类、性质中登记的各项";
inline constexpr const char* unknownDirectory =
    "不认识目录“{}”。\n请用 departments、persons、unit-classes、units、project-classes 或 "
    "projects。";
inline constexpr const char* exportDirectoryCommand =
    "把部门、个人、单位或项目目录导出为表格文件,可以原样导入";
inline constexpr const char* directoryExported = "{}已导出到“{}”。";

inline constexpr const char* importVoucherTypesCommand =
    "从表格文件导入凭证类别,与逐个增加、修改的规则相同";
inline constexpr const char* voucherTypeFileArgument =
    "CSV 或 XLSX 文件,标题行中有“类别”,以及“名称”、“限制”、“科目一”、“科目二”";
inline constexpr const char* exportVoucherTypesCommand = "把凭证类别导出为表格文件,可以原样导入";

inline constexpr const char* importRatesCommand =
    "从表格文件导入汇率:每行一天或一个月,每种外币一列,或者每行一种外币";
inline constexpr const char* rateFileArgument =
    "CSV 或 XLSX 文件,标题行中有“日期”或“月份”,以及各外币的币符、币名(如“100日元”),\n"
    "或“币符”、“记帐汇率”、“调整汇率”、“单位”";
inline constexpr const char* ratesOfCurrency = "币符或币名";
inline constexpr const char* unitsOption = "汇率是多少单位的,如 100;文件中写明的除外";
inline constexpr const char* quotedOption =
    "home:一单位外币合多少本位币;foreign:一单位本位币合多少外币;省略时按各外币的折算方式";
inline constexpr const char* exportRatesCommand = "把一种外币的汇率导出为表格文件,可以原样导入";
inline constexpr const char* rateKindArgument = "months(固定汇率)或 days(浮动汇率)";
inline constexpr const char* ratesExported = "汇率已导出到“{}”。";

inline constexpr const char* trialBalanceCommand = "试算平衡:各类科目的期初余额、合计与结果";
inline constexpr const char* importOpeningCommand = "从表格文件导入期初余额,按科目编码对应";
inline constexpr const char* openingFileArgument =
    "CSV 或 XLSX 文件,标题行中有“科目编码”和“期初余额”等列";
inline constexpr const char* dryRunCells = "只列出每一格的处理结果,不改动帐套";
inline constexpr const char* cellSummary =
    "改动 {} 格,不变 {} 格,上级科目不计 {} 格,拒绝 {} 格。\n";
inline constexpr const char* cellsRefused = "没有导入。请修改文件后重试。";
inline constexpr const char* exportOpeningCommand = "把期初余额导出为表格文件,可以原样导入";
inline constexpr const char* openingExported = "期初余额已导出到“{}”。";

inline constexpr const char* importAuxiliaryCommand = "从表格文件导入一个辅助科目的期初明细";
inline constexpr const char* entryAccountArgument = "辅助科目的编码";
inline constexpr const char* entryFileArgument =
    "CSV 或 XLSX 文件,标题行中有“摘要”、“金额”和部门、个人、单位、项目中核算的各项";
inline constexpr const char* entrySummary = "新增 {} 行,拒绝 {} 行。\n";
inline constexpr const char* entryIsThere = "与科目中已有的明细相同,可能是重复导入";
inline constexpr const char* exportAuxiliaryCommand =
    "把一个辅助科目的期初明细导出为表格文件,可以原样导入";
inline constexpr const char* entriesExported = "期初明细已导出到“{}”。";

inline constexpr const char* dutiesOption = "同时列出各操作员的不相容职务,例如制单又审核";
inline constexpr const char* dutiesTitle = "不相容职务";
inline constexpr const char* incompatibleDuty = "操作员 {}:{}";

inline constexpr const char* printCommand = "把列表写成 PDF、XLSX 或 CSV 文件,与窗口打印的相同";
inline constexpr const char* listArgument =
    "列表:settle(结算方式)、sign(凭证类别)、sign-usage(凭证类别使用情况)、\n"
    "currency(外币)、fixed-rates(固定汇率)、\n"
    "floating-rates(浮动汇率)、accounts(会计科目)、departments(部门)、persons(个人)、\n"
    "operators(财务分工)、rights(操作员权限对照表)、\n"
    "unit-classes(单位分类)、units(单位)、project-classes(项目大类)、projects(项目)";
inline constexpr const char* pdfOption = "写成 PDF 文件;- 为标准输出";
inline constexpr const char* xlsxOption = "写成 XLSX 文件;- 为标准输出";
inline constexpr const char* csvOption = "写成 CSV 文件;- 为标准输出";
inline constexpr const char* currencyOption = "汇率列表的币符";
inline constexpr const char* monthOption = "浮动汇率的月份,1到12;省略时为全年";
inline constexpr const char* unknownList =
    "不认识列表“{}”。\n请用 "
    "settle、sign、sign-usage、currency、fixed-rates、floating-rates、accounts、\n"
    "operators、rights、departments、persons、unit-classes、units、project-classes 或 projects。";
inline constexpr const char* onePrintFile = "请用 --pdf、--xlsx、--csv 之一指定要写入的文件。";
inline constexpr const char* currencyMissing = "打印汇率时,请用 --currency 指定币符。";
inline constexpr const char* currencyUnused = "--currency 只用于汇率列表,打印列表“{}”时请去掉。";
inline constexpr const char* monthUnused = "--month 只用于 floating-rates,打印列表“{}”时请去掉。";
inline constexpr const char* currencyUnknown = "帐套中没有币符为“{}”的外币。";
inline constexpr const char* reportWritten = "“{}”已写入“{}”。";
inline constexpr const char* pdfProgramMissing =
    "没有写 PDF 文件的程序“{}”({})。\n请安装带图形界面的部分,或改用 --xlsx、--csv。";
inline constexpr const char* pdfProgramBroken = "程序“{}”中途停止,没有写成 PDF 文件。";

/// What is wrong with a command line, by the name and the words of the parser's error.
std::string usageFault(std::string_view error, std::string_view detail);

}  // namespace chengheng::tool_texts
