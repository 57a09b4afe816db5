#include "books/demo/demo_data.h"

namespace chengheng::demo {
namespace {

constexpr Currency currencyTable[] = {
    {"USD",
     "美元",
     4,
     {7.0200, 7.0150, 7.0310, 7.0420, 7.0360, 7.0280, 7.0190, 7.0240, 7.0330, 7.0410, 7.0370,
      7.0290}},
    {"EUR",
     "欧元",
     4,
     {8.2500, 8.2310, 8.2440, 8.2680, 8.2750, 8.2590, 8.2420, 8.2360, 8.2510, 8.2630, 8.2700,
      8.2550}},
};

constexpr Account accountTable[] = {
    {.code = "1001", .name = nullptr, .mnemonic = "KCXJ"},
    {.code = "100101", .name = "人民币"},
    {.code = "100102", .name = "美元", .currency = "USD"},
    {.code = "1002", .name = nullptr, .mnemonic = "YHCK"},
    {.code = "100201", .name = "工商银行"},
    {.code = "10020101", .name = "人民币户"},
    {.code = "1002010101", .name = "基本存款户", .mnemonic = "GHJB"},
    {.code = "1002010102", .name = "一般存款户"},
    {.code = "10020102", .name = "外币户"},
    {.code = "1002010201", .name = "美元户", .currency = "USD"},
    {.code = "1002010202", .name = "欧元户", .currency = "EUR"},
    {.code = "100202", .name = "农业银行"},
    {.code = "1122", .name = nullptr, .letters = "B", .mnemonic = "YSZK"},
    {.code = "1123", .name = nullptr, .letters = "BC", .mnemonic = "YFZK"},
    {.code = "1221", .name = nullptr, .mnemonic = "QTYS"},
    {.code = "122101", .name = "备用金", .letters = "A"},
    {.code = "122102", .name = "押金"},
    {.code = "1405", .name = nullptr, .mnemonic = "KCSP"},
    {.code = "140501", .name = "家用电器"},
    {.code = "14050101", .name = "电饭煲", .unit = "台"},
    {.code = "14050102", .name = "电水壶", .unit = "个"},
    {.code = "140502", .name = "家纺"},
    {.code = "14050201", .name = "毛巾", .unit = "条"},
    {.code = "14050202", .name = "床品四件套", .unit = "套"},
    {.code = "1411", .name = nullptr, .letters = "C"},
    {.code = "1601", .name = nullptr, .mnemonic = "GDZC"},
    {.code = "160101", .name = "运输设备"},
    {.code = "160102", .name = "办公设备"},
    {.code = "1604", .name = nullptr, .letters = "CD"},
    {.code = "1801", .name = nullptr, .letters = "D"},
    {.code = "2202", .name = nullptr, .letters = "B", .mnemonic = "YFHK"},
    {.code = "2203", .name = nullptr, .letters = "BD"},
    {.code = "2211", .name = nullptr},
    {.code = "221101", .name = "工资"},
    {.code = "221102", .name = "社会保险费"},
    {.code = "2221", .name = nullptr, .mnemonic = "YJSF"},
    {.code = "222101", .name = "应交增值税"},
    {.code = "22210101", .name = "进项税额"},
    {.code = "22210102", .name = "销项税额"},
    {.code = "222102", .name = "未交增值税"},
    {.code = "222103", .name = "应交企业所得税"},
    {.code = "3104", .name = nullptr},
    {.code = "310401", .name = "未分配利润"},
    {.code = "5001", .name = nullptr, .mnemonic = "ZYSR"},
    {.code = "500101", .name = "家用电器"},
    {.code = "500102", .name = "家纺"},
    {.code = "5401", .name = nullptr, .mnemonic = "ZYCB"},
    {.code = "540101", .name = "家用电器"},
    {.code = "540102", .name = "家纺"},
    {.code = "5601", .name = nullptr},
    {.code = "560101", .name = "职工薪酬", .letters = "C"},
    {.code = "560102", .name = "运输费"},
    {.code = "560103", .name = "广告费"},
    {.code = "5602", .name = nullptr},
    {.code = "560201", .name = "职工薪酬", .letters = "C"},
    {.code = "560202", .name = "办公费", .letters = "C"},
    {.code = "560203", .name = "差旅费", .letters = "A"},
    {.code = "560204", .name = "业务招待费"},
    {.code = "5603", .name = nullptr},
    {.code = "560301", .name = "利息费用"},
    {.code = "560302", .name = "手续费"},
    {.code = "560303", .name = "汇兑损益"},
};

constexpr Named departmentTable[] = {
    {"01", "行政部"}, {"02", "销售部"}, {"03", "采购部"}, {"04", "仓储部"}};

constexpr Member personTable[] = {
    {"01", "0101", "陈静"}, {"01", "0102", "李明"}, {"01", "0103", "王芳"}, {"02", "0201", "周敏"},
    {"02", "0202", "孙丽"}, {"03", "0301", "吴刚"}, {"04", "0401", "郑浩"}};

constexpr Named unitClassTable[] = {{"01", "客户"}, {"02", "供应商"}};

constexpr Member unitTable[] = {{"01", "01001", "大华商场"},     {"01", "01002", "新天地百货"},
                                {"01", "01003", "滨江超市"},     {"02", "02001", "宏达电器厂"},
                                {"02", "02002", "锦绣家纺公司"}, {"02", "02003", "顺通物流公司"}};

constexpr Named projectClassTable[] = {{"01", "装修工程"}, {"02", "促销专柜"}};

constexpr Member projectItemTable[] = {{"01", "001", "南京路门店装修"},
                                       {"01", "002", "仓库改造"},
                                       {"02", "001", "年货专柜"},
                                       {"02", "002", "夏凉专柜"}};

constexpr Named projectAccountTable[] = {{"1604", "01"}, {"1801", "01"}, {"2203", "02"}};

// Receipts name cash or bank on the debit side, payments on the credit side, transfers on
// neither.
constexpr VoucherType voucherTypeTable[] = {
    {"收", "收款凭证", 1}, {"付", "付款凭证", 2}, {"转", "转帐凭证", 3}};

constexpr Settlement settlementTable[] = {{"1", "现金", false},     {"2", "现金支票", true},
                                          {"3", "转帐支票", true},  {"4", "电汇", false},
                                          {"5", "银行汇票", false}, {"6", "商业承兑汇票", false}};

// Numbers of the rights list: the bookkeeper sets up and keeps the books, the cashier sees to
// cash, bank and settlement.
constexpr int bookkeeperRights[] = {1,  2,  3,  4,  8,  9,  10, 13, 14, 15, 33, 34,
                                    41, 42, 43, 44, 45, 46, 47, 48, 50, 51, 52, 53,
                                    54, 55, 56, 65, 66, 67, 68, 73, 74, 75, 76, 77};
constexpr int cashierRights[] = {42, 44, 47, 54, 57, 58, 59, 60, 61, 62, 63, 64, 71, 72};

constexpr Operator operatorTable[] = {
    {"李明", bookkeeperRights}, {"王芳", cashierRights}, {"赵强", {}}};

constexpr Opening openingTable[] = {
    {.code = "100101", .money = 8650.00},
    {.code = "100102", .money = 3510.00, .foreign = 500.00},
    {.code = "1002010101", .money = 512380.45},
    {.code = "1002010102", .money = 186000.00},
    {.code = "1002010201", .money = 224640.00, .foreign = 32000.00},
    {.code = "1002010202", .money = 66000.00, .foreign = 8000.00},
    {.code = "122102", .money = 12000.00},
    {.code = "14050101", .money = 21600.00, .quantity = 120},
    {.code = "14050102", .money = 19650.00, .quantity = 300},
    {.code = "14050201", .money = 12600.00, .quantity = 1500},
    {.code = "14050202", .money = 31250.00, .quantity = 200},
    {.code = "160101", .money = 180000.00},
    {.code = "160102", .money = 64500.00},
    {.code = "1602", .money = 52340.00},
    {.code = "2001", .money = 200000.00},
    {.code = "221101", .money = 68400.00},
    {.code = "222102", .money = 12615.30},
    {.code = "222103", .money = 9870.00},
    {.code = "2241", .money = 5200.00},
    {.code = "3001", .money = 1000000.00},
    {.code = "3101", .money = 20000.00},
    {.code = "310401", .money = 109485.15},
};

constexpr Entry entryTable[] = {
    {.code = "1122", .digest = "应收电器货款", .money = 58500.00, .unit = "大华商场"},
    {.code = "1122", .digest = "应收家纺货款", .money = 32760.00, .unit = "新天地百货"},
    {.code = "1122", .digest = "应收毛巾货款", .money = 17550.00, .unit = "滨江超市"},
    {.code = "1123",
     .digest = "预付电饭煲货款",
     .money = 20000.00,
     .department = "采购部",
     .unit = "宏达电器厂"},
    {.code = "1123",
     .digest = "预付运费",
     .money = 6000.00,
     .department = "销售部",
     .unit = "顺通物流公司"},
    {.code = "122101",
     .digest = "采购备用金",
     .money = 3000.00,
     .department = "采购部",
     .person = "吴刚"},
    {.code = "122101",
     .digest = "销售备用金",
     .money = 2000.00,
     .department = "销售部",
     .person = "周敏"},
    {.code = "1411", .digest = "陈列架", .money = 1800.00, .department = "销售部"},
    {.code = "1411", .digest = "周转箱", .money = 2400.00, .department = "仓储部"},
    {.code = "1604",
     .digest = "仓库货架工程款",
     .money = 45000.00,
     .department = "仓储部",
     .item = "仓库改造"},
    {.code = "1801", .digest = "门店装修待摊", .money = 36000.00, .item = "南京路门店装修"},
    {.code = "2202", .digest = "应付电器货款", .money = 46800.00, .unit = "宏达电器厂"},
    {.code = "2202", .digest = "应付家纺货款", .money = 28080.00, .unit = "锦绣家纺公司"},
    {.code = "2203",
     .digest = "预收年货专柜货款",
     .money = 15000.00,
     .unit = "大华商场",
     .item = "年货专柜"},
};

constexpr VoucherLine electricReceipt[] = {{"1002010101", true, 58500.00},
                                           {"1122", false, 58500.00, "大华商场"}};
constexpr VoucherLine shopSale[] = {
    {"100101", true, 2260.00}, {"500102", false, 2000.00}, {"22210102", false, 260.00}};
constexpr VoucherLine textileReceipt[] = {{"1002010102", true, 32760.00},
                                          {"1122", false, 32760.00, "新天地百货"}};
constexpr VoucherLine supplierPayment[] = {{"2202", true, 46800.00, "宏达电器厂"},
                                           {"1002010101", false, 46800.00}};
constexpr VoucherLine entertainment[] = {{"560204", true, 860.00}, {"100101", false, 860.00}};
constexpr VoucherLine cashDrawing[] = {{"100101", true, 5000.00}, {"1002010101", false, 5000.00}};
constexpr VoucherLine bankCharge[] = {{"560302", true, 35.00}, {"1002010101", false, 35.00}};
constexpr VoucherLine creditSale[] = {{"1122", true, 22600.00, "滨江超市"},
                                      {"500101", false, 20000.00},
                                      {"22210102", false, 2600.00}};
constexpr VoucherLine taxPayment[] = {{"222102", true, 12615.30}, {"1002010101", false, 12615.30}};
constexpr VoucherLine costOfSales[] = {{"540101", true, 9000.00},
                                       {"14050101", false, 9000.00, "", 50}};

constexpr Voucher voucherTable[] = {{"收", 1, 6, "收到电器货款", electricReceipt},
                                    {"收", 2, 9, "门店零售毛巾", shopSale},
                                    {"收", 4, 20, "收到家纺货款", textileReceipt},
                                    {"付", 1, 7, "支付电器货款", supplierPayment},
                                    {"付", 2, 12, "招待客户", entertainment},
                                    {"付", 3, 15, "提取备用现金", cashDrawing},
                                    {"付", 4, 21, "银行手续费", bankCharge},
                                    {"转", 1, 10, "赊销电饭煲", creditSale},
                                    {"转", 2, 15, "缴纳增值税", taxPayment},
                                    {"转", 3, 31, "结转家用电器销售成本", costOfSales}};

constexpr Digest digestTable[] = {{"1002010101", "收到货款"},
                                  {"1002010101", "支付货款"},
                                  {"100101", "提取现金"},
                                  {"560202", "购买办公用品"}};

constexpr DefinitionLine transferTable[] = {{"540101", "结转家用电器销售成本", true, "QM(140501)"},
                                            {"14050101", "结转家用电器销售成本", false, "CE()"}};

constexpr DefinitionLine frequentTable[] = {{"100101", "提取备用现金", true, ""},
                                            {"1002010101", "提取备用现金", false, ""}};

}  // namespace

std::span<const Currency> currencies() { return currencyTable; }
std::span<const Account> accounts() { return accountTable; }
std::span<const Named> departments() { return departmentTable; }
std::span<const Member> persons() { return personTable; }
std::span<const Named> unitClasses() { return unitClassTable; }
std::span<const Member> units() { return unitTable; }
std::span<const Named> projectClasses() { return projectClassTable; }
std::span<const Member> projectItems() { return projectItemTable; }
std::span<const Named> projectAccounts() { return projectAccountTable; }
std::span<const VoucherType> voucherTypes() { return voucherTypeTable; }
std::span<const Settlement> settlements() { return settlementTable; }
std::span<const Operator> operators() { return operatorTable; }
std::span<const Opening> openings() { return openingTable; }
std::span<const Entry> entries() { return entryTable; }
std::span<const Voucher> vouchers() { return voucherTable; }
std::span<const Digest> digests() { return digestTable; }
std::span<const DefinitionLine> transferLines() { return transferTable; }
std::span<const DefinitionLine> frequentVoucherLines() { return frequentTable; }

}  // namespace chengheng::demo
