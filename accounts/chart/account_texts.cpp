#include "accounts/chart/account_texts.h"

#include <fmt/format.h>

namespace chengheng {

const char* placeTitle(UsePlace place) {
    switch (place) {
        case UsePlace::unposted:
            return "未记帐凭证";
        case UsePlace::posted:
            return "已记帐凭证";
        case UsePlace::sums:
            return "总帐";
        case UsePlace::frequentVouchers:
            return "常用凭证";
        case UsePlace::digests:
            return "常用摘要";
        case UsePlace::transfers:
            return "转帐定义";
        case UsePlace::projects:
            break;
    }
    return "项目档案";
}

namespace account_texts {
namespace {

const char* title(Accounting kind) {
    switch (kind) {
        case Accounting::foreign:
            return "外币核算";
        case Accounting::auxiliary:
            return "辅助核算";
        case Accounting::quantity:
            break;
    }
    return "数量核算";
}

}  // namespace

std::string parentUsed(std::string_view code, UsePlace place) {
    return fmt::format("科目 {} 在[{}]中已使用,不能增加下级科目!", code, placeTitle(place));
}

std::string used(std::string_view code, UsePlace place) {
    return fmt::format("科目 {} 在[{}]中已使用!", code, placeTitle(place));
}

std::string hasChildren(std::string_view code) {
    return fmt::format("科目 {} 有下级科目,不能修改科目编码!", code);
}

std::string changeOfUsed(std::string_view code, UsePlace place, Accounting kind) {
    return fmt::format("科目 {} 在[{}]中已使用,修改{}可能导致数据错误,是否继续?", code,
                       placeTitle(place), title(kind));
}

std::string changedMeanwhile(std::string_view code, std::string_view lines) {
    return fmt::format(
        "科目({})已被其他操作员修改,没有保存。\n{}\n\n输入已保留,核对后可以再次确定。", code,
        lines);
}

std::string deletedMeanwhile(std::string_view code) {
    return fmt::format("科目({})已经删除!", code);
}

std::string askDeletion(std::string_view code, std::string_view name) {
    return fmt::format("真的要删除科目:{}({})吗?", code, name);
}

std::string usedWithBelow(UsePlace place) {
    return fmt::format("在[{}]中已使用本科目或其下级科目", placeTitle(place));
}

std::string askDesignation(std::string_view cashCode, std::string_view bankCode) {
    return fmt::format("确定设置({})为现金总帐科目, ({})为银行总帐科目吗?", cashCode, bankCode);
}

}  // namespace account_texts
}  // namespace chengheng
