#pragma once

/// What the opening balance window shows, tells and asks. {} is a value.
namespace chengheng::opening_texts {

inline constexpr const char* title = "期初余额录入";
inline constexpr const char* browsing = "浏览,只读";

inline constexpr const char* menuPreview = "打印预览";
inline constexpr const char* menuPrint = "打印\tCtrl+P";
inline constexpr const char* menuImport = "导入...";
inline constexpr const char* menuExport = "导出...";
inline constexpr const char* menuExit = "退出";
inline constexpr const char* menuDirection = "调余额方向";
inline constexpr const char* menuUndo = "撤销\tCtrl+Z";
inline constexpr const char* menuRedo = "重做\tCtrl+Y";
inline constexpr const char* menuCopy = "复制\tCtrl+C";
inline constexpr const char* menuPaste = "粘贴\tCtrl+V";
inline constexpr const char* menuClear = "清零\tDel";
inline constexpr const char* menuAuxiliary = "录入辅助期初";
inline constexpr const char* menuRefurbish = "刷新";
inline constexpr const char* menuTrialBalance = "试算平衡";
inline constexpr const char* menuFind = "查找\tCtrl+K";
inline constexpr const char* menuHelp = "帮助主题";
inline constexpr const char* menuSearch = "搜索";
inline constexpr const char* menuAbout = "关于...";
inline constexpr const char* fileMenu = "文件(&F)";
inline constexpr const char* editMenu = "编辑(&E)";
inline constexpr const char* viewMenu = "查看(&V)";
inline constexpr const char* helpMenu = "帮助(&H)";

inline constexpr const char* mode = "状态";
inline constexpr const char* calendar = "调用会记日历";  // sic
inline constexpr const char* calculator = "调用计算器";
inline constexpr const char* carryForward = "结转上年余额";
inline constexpr const char* carrying = "正在结转上年余额,请稍候.....";
inline constexpr const char* refreshing = "正在刷新期初数据,请稍候.....";
inline constexpr const char* printTitle = "期初余额表";
inline constexpr const char* leavesOutZeros = "不打印没有金额和数量的科目(&Z)";
inline constexpr const char* linesWithoutFigures = "共 {} 行,其中 {} 行没有金额和数量。";
inline constexpr const char* debitTotal = "借方科目合计";
inline constexpr const char* creditTotal = "贷方科目合计";
inline constexpr const char* accountingYear = "会计年度:{}";
inline constexpr const char* searchLabel = "查找(&Q):";
inline constexpr const char* searchHint = "编码或名称";
inline constexpr const char* searchNothing = "没有匹配的科目";
/// The running line.
inline constexpr const char* debitSum = "借方合计:{}";
inline constexpr const char* creditSum = "贷方合计:{}";
inline constexpr const char* difference = "差额:{}";
inline constexpr const char* figuresDisagreeHere = "期初余额与年初余额和累计发生额不符";
inline constexpr const char* nothingReplaced =
    "期初余额与年初余额和累计发生额不符,录入的金额都没有改动,请核对。";
inline constexpr const char* figureFollowed = "{}由 {} 随之改为 {},按 Ctrl+Z 恢复。";
inline constexpr const char* homeProposed = "本位币期初余额按 {} 的汇率 {} 算为 {},可以改录。";
inline constexpr const char* rateMissing =
    "“{}”在 {} 没有汇率,以前也没有,本位币期初余额没有算出,请自行录入。";
/// Behind a planned cell.
inline constexpr const char* cellDisagrees = "({})";

inline constexpr const char* pasteTitle = "粘贴期初余额";
inline constexpr const char* importTitle = "导入期初余额";
inline constexpr const char* exportTitle = "导出期初余额";
inline constexpr const char* exportFile = "期初余额.xlsx";
inline constexpr const char* importedFile = "文件:{}";
inline constexpr const char* imported = "导入完成:修改 {} 个金额。";
inline constexpr const char* exported = "期初余额已导出到“{}”。";
inline constexpr const char* nothingToPaste = "没有可以录入的内容。";
/// What a paste or an import becomes.
inline constexpr const char* planCells = "录入预览";
inline constexpr const char* planSummary = "修改 {} 格,不变 {} 格,略过 {} 格,拒绝 {} 格。";
inline constexpr const char* planRefused = "有被拒绝的单元格,全部不能写入。请改正后重试。";
inline constexpr const char* planHasNothing = "没有需要写入的内容。";
inline constexpr const char* planReady = "请核对后按“写入”,所有金额将一次写入。";
inline constexpr const char* planApply = "写入";
inline constexpr const char* planCell = "单元格";
inline constexpr const char* planHeading = "栏目";
inline constexpr const char* planFate = "结果";
inline constexpr const char* planContent = "内容";
inline constexpr const char* planBefore = "原来";
inline constexpr const char* planAfter = "改为";
inline constexpr const char* planRemark = "说明";
inline constexpr const char* fateChanged = "修改";
inline constexpr const char* fateUnchanged = "不变";
inline constexpr const char* fateIgnored = "略过";
inline constexpr const char* fateRefused = "拒绝";
inline constexpr const char* causesTitle = "不平衡的可能原因";
inline constexpr const char* causesHeading = "差额为 {},可能的原因(仅供参考):";
inline constexpr const char* nothingToExplain = "期初余额借贷平衡,没有差额。";
inline constexpr const char* noCauses = "差额为 {},没有找到可能的原因。";
inline constexpr const char* goToAccount = "转到科目";
inline constexpr const char* close = "关闭";

inline constexpr const char* code = "科目编码";
inline constexpr const char* name = "科目名称";
inline constexpr const char* direction = "借/贷";
inline constexpr const char* unit = "币别/计量";
inline constexpr const char* yearStart = "年初余额";
inline constexpr const char* accumulatedDebit = "累计借方";
inline constexpr const char* accumulatedCredit = "累计贷方";
inline constexpr const char* opening = "期初余额";
inline constexpr const char* id = "编号";
inline constexpr const char* type = "类型";
inline constexpr const char* isEnd = "末级";
inline constexpr const char* grade = "级次";
inline constexpr const char* marker = "类别";
inline constexpr const char* foreign = "外币";
inline constexpr const char* quantity = "数量";
inline constexpr const char* auxiliary = "辅助";

inline constexpr const char* debit = "借";
inline constexpr const char* credit = "贷";
inline constexpr const char* homeCurrency = "本位币";

inline constexpr const char* parentLegend = "非末级科目";
inline constexpr const char* endLegend = "末级科目";
inline constexpr const char* auxiliaryLegend = "辅助科目";
inline constexpr const char* disagreeingLegend = "期初不符";

inline constexpr const char* unitAndProject = "项目往来";
inline constexpr const char* departmentAndUnit = "部门往来";
inline constexpr const char* departmentAndProject = "部门项目";
inline constexpr const char* person = "个人往来";
inline constexpr const char* department = "部门核算";
inline constexpr const char* project = "项目核算";
inline constexpr const char* unitDealings = "单位往来";

inline constexpr const char* level = "平";
inline constexpr const char* className = "{} = ";
inline constexpr const char* classLine = "{}\t{:.2f}\r\n\r\n";
inline constexpr const char* totalLine = "合计 = {}\t{:.2f}";
inline constexpr const char* balanced = "试算结果平衡";
inline constexpr const char* notBalanced = "试算结果不平衡,差额为{:.2f}";
inline constexpr const char* closePrompt = "期初余额试算不平衡,差额为{:.2f},是否退出?";
/// Asked when the sums of the accounts above could not be saved.
inline constexpr const char* closeUnsaved = "上级科目的期初余额没有保存,是否仍然退出?";

inline constexpr const char* vouchersMeanwhile =
    "帐套中已有凭证,期初余额只能浏览,本次操作没有保存。";
inline constexpr const char* chartMeanwhile =
    "科目已被其他工作站修改,本次操作没有保存,表格已重新读入。";
inline constexpr const char* givenUp = "已取消,没有改动。";
inline constexpr const char* tooLarge =
    "数值太大,期初余额最大为9,999,999,999,999.99,本次操作没有保存。";

inline constexpr const char* onlyTopLevel = "只能在总帐科目调整余额方向!";
inline constexpr const char* hasOpening = "该科目已有期初数据,不能调整余额方向!";
inline constexpr const char* directionCaption = "调整余额方向";
inline constexpr const char* askDirection = "是否调整 {}({}) 科目的余额方向?\n\t    {}--->{}";

inline constexpr const char* personsFirst = "请先定义个人目录";
inline constexpr const char* departmentsFirst = "请先定义部门目录";
inline constexpr const char* projectClassesFirst = "请先定义项目大类";
inline constexpr const char* unitsFirst = "请先定义单位目录";

inline constexpr const char* figureChange = "{} {} → {}";
inline constexpr const char* cellReason = "{} {}(“{}”)";
inline constexpr const char* currencyHeading = "外币币别";
inline constexpr const char* unitHeading = "计量单位";
inline constexpr const char* noHeadings =
    "没有找到标题行。标题行应有“科目编码”和至少一列金额,如“期初余额”。";
inline constexpr const char* onlyBrowsing = "期初余额只能浏览";
inline constexpr const char* sumOfOthers = "上级科目由下级科目汇总";
inline constexpr const char* keepsNoCurrency = "科目不核算外币";
inline constexpr const char* keepsNoQuantity = "科目不核算数量";
inline constexpr const char* typedAuxiliary = "辅助科目的期初余额请在辅助期初中录入";
inline constexpr const char* tooLargeCell = "数值太大,最大为9,999,999,999,999.99";
inline constexpr const char* sum = "= {}";
inline constexpr const char* noSumYet = "= ?";
inline constexpr const char* noNumber = "不是数字";
inline constexpr const char* decimalComma = "不是数字:小数点应为“.”,不能用“,”";
/// In the line below the grid: what was typed, and why it is no number.
inline constexpr const char* takenAsZero = "“{}”{}。已按 0 录入,按 Ctrl+Z 恢复原来的金额。";
inline constexpr const char* countsAsZero = "“{}”{}。按 0 计算,金额没有改变。";
inline constexpr const char* belowSheet = "超出了表格的最后一行";
inline constexpr const char* noFigureColumn = "这一列不能录入";
inline constexpr const char* codeMissing = "没有科目编码";
inline constexpr const char* noSuchAccount = "没有这个科目";
inline constexpr const char* codeTwice = "科目在第 {} 行已经出现";
inline constexpr const char* otherDirection = "余额方向与科目不符";
inline constexpr const char* otherCurrency = "币别与科目不符";
inline constexpr const char* otherUnit = "计量单位与科目不符";

inline constexpr const char* wrongSide = "{} {}:余额 {} 正好是差额的一半,方向可能录反了。";
inline constexpr const char* equalsDifference =
    "{} {}:余额 {} 正好等于差额,可能重复录入,或者对方科目漏录了。";
inline constexpr const char* misplacedDigits = "{} {}:余额 {} 的数字位置可能有误,改为 {} 则平衡。";
inline constexpr const char* missingOnSide =
    "{} {}:余额 {} 与差额相等而方向相反,同样金额的一笔可能漏录了。";
inline constexpr const char* figuresDisagree = "{} {}:期初余额与年初余额和累计发生额不符。";
inline constexpr const char* divisibleByNine =
    "差额 {} 能被9整除,可能有相邻的数字颠倒或小数点错位。";
inline constexpr const char* notCounted = "{} {}:所属类别“{}”不参加试算,余额 {} 没有计入。";
inline constexpr const char* detailsDiffer = "{} {}:余额 {} 与辅助明细的合计 {} 不符。";

}  // namespace chengheng::opening_texts
