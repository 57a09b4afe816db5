#pragma once

/// What the chart of accounts and its dialogs show and say. {} is a value.
namespace chengheng::chart_texts {

inline constexpr const char* title = "会计科目";
inline constexpr const char* allAccounts = "全部";
inline constexpr const char* noClasses = "分类数据为空!";
inline constexpr const char* levelLengths = "科目级长:{}";
inline constexpr const char* accountCount = "科目个数:{}";
inline constexpr const char* accountUnknown = "非法的科目!";
inline constexpr const char* refreshing = "正在刷新期初数据,请稍侯.....";

inline constexpr const char* pathSeparator = " / ";

inline constexpr const char* tabs = "科目分类";
inline constexpr const char* toolBar = "工具栏";
inline constexpr const char* searchLabel = "快速查找(&Q):";
inline constexpr const char* searchHint = "编码、名称或助记码";
inline constexpr const char* searchResult = "{}/{}";
inline constexpr const char* searchNothing = "没有匹配的科目";

inline constexpr const char* findTitle = "查找科目";
inline constexpr const char* findLabel = "科目";

// The menus.
inline constexpr const char* fileMenu = "文件(&F)";
inline constexpr const char* print = "打印\tCtrl+P";
inline constexpr const char* preview = "打印预览";
inline constexpr const char* importChart = "导入...";
inline constexpr const char* exportChart = "导出...";
inline constexpr const char* exit = "退出";
inline constexpr const char* editMenu = "编辑(&E)";
inline constexpr const char* insert = "增加\tCtrl+N";
inline constexpr const char* copy = "复制\tCtrl+I";
inline constexpr const char* remove = "删除\tCtrl+D";
inline constexpr const char* modify = "修改";
inline constexpr const char* appoint = "指定科目";
inline constexpr const char* viewMenu = "查看(&V)";
inline constexpr const char* find = "查找\tCtrl+S";
inline constexpr const char* refurbish = "刷新";
inline constexpr const char* whereUsed = "使用情况";
inline constexpr const char* helpMenu = "帮助(&H)";
inline constexpr const char* help = "帮助主题";
inline constexpr const char* search = "搜索";
inline constexpr const char* about = "关于...";

// The columns of the chart.
inline constexpr const char* levelColumn = "级\n次";
inline constexpr const char* codeColumn = "科目编码";
inline constexpr const char* nameColumn = "科目名称 ";
inline constexpr const char* currencyColumn = "外币币种";
inline constexpr const char* auxiliaryColumn = "辅助核算";

// The dialogs.
inline constexpr const char* addTitle = "会计科目_增加";
inline constexpr const char* addConfirm = "确定";
inline constexpr const char* addCancel = "取消";
inline constexpr const char* modifyTitle = "会计科目_修改";
inline constexpr const char* modifyConfirm = "修改";
inline constexpr const char* modifyCancel = "返回";

// What another class means for an account that is used: code, class, direction.
inline constexpr const char* classOfUsed =
    "科目 {} "
    "已经使用。改为“{}”后,已有的余额和发生额都归入这一类,试算平衡随之变化;余额方向“{}”不变。";
inline constexpr const char* classOfUsedAbove =
    "科目 {} 已经使用。改为“{}”不改变下级科目的类型,试算平衡仍按下级科目的类型计算。";

inline constexpr const char* browseCurrency = "选择币种";

inline constexpr const char* noCurrencies = "还没有外币。\n请先在“外币汇率”中增加,再回到这里选择。";

inline constexpr const char* usedTitle = "科目使用情况";
inline constexpr const char* usedHeading = "科目 {} 及其下级科目的使用情况:";
inline constexpr const char* usedNowhere = "科目 {} 及其下级科目没有在任何地方使用。";
inline constexpr const char* usedPlaces = "使用之处";
inline constexpr const char* usedPlace = "{} ({})";
inline constexpr const char* usedMore = "共 {} 条,只列出前 {} 条。";
inline constexpr const char* usedRows = "明细";
inline constexpr const char* close = "关闭";

inline constexpr const char* designateTitle = "指定科目";
inline constexpr const char* designateCash = "现金总帐科目";
inline constexpr const char* designateBank = "银行总帐科目";
inline constexpr const char* designateNote = "显示说明";

inline constexpr const char* rangeTitle = "打印范围";
inline constexpr const char* rangeFirstCode = "起始科目(&F):";
inline constexpr const char* rangeLastCode = "终止科目(&T):";
inline constexpr const char* rangeFirstLevel = "起始级次(&L):";
inline constexpr const char* rangeLastLevel = "终止级次(&E):";
inline constexpr const char* rangeOpen = "不限";
inline constexpr const char* rangeReversed = "终止级次不能小于起始级次!";

// The columns of what holds an account, beside codeColumn.
inline constexpr const char* periodColumn = "期间";
inline constexpr const char* dateColumn = "日期";
inline constexpr const char* signColumn = "类别";
inline constexpr const char* numberColumn = "凭证号";
inline constexpr const char* digestColumn = "摘要";
inline constexpr const char* directionColumn = "方向";
inline constexpr const char* amountColumn = "金额";
inline constexpr const char* openingColumn = "期初余额";
inline constexpr const char* debitColumn = "借方发生额";
inline constexpr const char* creditColumn = "贷方发生额";
inline constexpr const char* frequentColumn = "常用凭证";
inline constexpr const char* transferColumn = "转帐名称";
inline constexpr const char* projectCodeColumn = "项目大类编码";
inline constexpr const char* projectColumn = "项目大类";

}  // namespace chengheng::chart_texts
