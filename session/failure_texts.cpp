#include "session/failure_texts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "data/engines/open_engine.h"
#include "session/lock_wait_text.h"
#include "session/table_rights.h"

namespace chengheng {
namespace {

/// The file or address takes the place of {}.
using PlaceText = fmt::format_string<std::string>;

struct FailureText {
    Failure failure;
    PlaceText file;
    PlaceText server;
};

constexpr std::array bookTexts{
    FailureText{Failure::missing,
                "找不到帐套文件“{}”。\n请检查路径是否正确;文件若已丢失,请用备份恢复。",
                "服务器上找不到帐套“{}”。\n请检查地址中的数据库名和 schema 名是否正确。"},
    FailureText{Failure::foreign, "文件“{}”不是帐套文件,没有打开。\n请选择帐套文件 Nbzw.db。",
                "“{}”中存放的不是帐套,没有打开。\n请检查地址中的数据库名和 schema 名。"},
    FailureText{
        Failure::damaged,
        "帐套文件“{}”已损坏,没有作任何改动。\n请先另外保存一份该文件,再用最近的备份恢复。",
        "服务器报告帐套“{}”的数据已损坏,没有作任何改动。\n请联系服务器管理员,用最近的备份恢复。"},
    FailureText{Failure::readOnly,
                "没有权限读写帐套文件“{}”。\n请检查文件和所在文件夹的属主、权限以及磁盘是否只读。",
                "服务器拒绝写入帐套“{}”。\n请联系服务器管理员,检查用户权限以及服务器是否只读。"},
    FailureText{Failure::newerVersion,
                "帐套文件“{}”由更新版本的程序建立,本程序不能打开。\n请升级本程序后再打开。",
                "帐套“{}”由更新版本的程序建立,本程序不能打开。\n请升级本程序后再打开。"},
    FailureText{Failure::olderVersion,
                "帐套文件“{}”由较早版本的程序建立,要先升级才能使用。\n"
                "请在登录窗口中打开它,或运行 chbooks upgrade。",
                "帐套“{}”由较早版本的程序建立,要先升级才能使用。\n"
                "请在登录窗口中打开它,或运行 chbooks upgrade。"},
    FailureText{Failure::unreachable, "无法打开帐套文件“{}”。\n请检查路径是否正确。",
                "无法连接服务器“{}”。\n请检查地址、端口、用户名、口令和网络,并确认服务器已启动。"},
    FailureText{
        Failure::lost,
        "读写帐套文件“{}”时中断,本次操作没有完成,已保存的数据不受影响。\n请检查磁盘后重试。",
        "与服务器“{}”的连接中断,本次操作没有完成,已保存的数据不受影响。\n"
        "请检查网络和服务器后重试,程序会自动重新连接。"},
    FailureText{Failure::full, "磁盘空间不足,帐套文件“{}”没有改动。\n请清理磁盘空间后重试。",
                "服务器“{}”的磁盘空间不足,数据没有改动。\n请联系服务器管理员清理空间后重试。"},
    FailureText{Failure::busy, "帐套文件“{}”正被其他程序占用。\n请稍后重试。",
                "服务器上的帐套“{}”正被其他用户占用。\n请稍后重试。"},
    FailureText{Failure::unreadable, "帐套文件“{}”的操作语句无法识别,数据没有改动。",
                "帐套“{}”的操作语句无法识别,数据没有改动。"},
    FailureText{Failure::refused,
                "对帐套文件“{}”的操作被拒绝,数据没有改动。\n请检查路径是否正确、文件是否已存在。",
                "服务器拒绝了对帐套“{}”的操作,数据没有改动。\n请检查地址、用户权限以及 schema "
                "是否已存在。"},
    FailureText{Failure::notPermitted, "没有对帐套文件“{}”作本次操作的权限,数据没有改动。",
                "服务器拒绝了对帐套“{}”的操作:所用的数据库用户没有这项权限,数据没有改动。"},
    FailureText{Failure::notOpen, "帐套文件“{}”没有打开。\n请先打开帐套。",
                "帐套“{}”没有打开。\n请先打开帐套。"},
    FailureText{Failure::crossedWait,
                "帐套文件“{}”的两个操作互相等待,本次操作已取消。\n请稍后重试。",
                "帐套“{}”的两个工作站互相等待,本次操作已取消。\n请稍后重试。"},
    FailureText{Failure::cancelled, "对帐套文件“{}”的等待已取消。", "对帐套“{}”的等待已取消。"},
    FailureText{Failure::wrongValue,
                "帐套文件“{}”中有不合规定的数据,没有读入,也没有作任何改动。\n"
                "请用 chbooks check 查明,再用最近的备份恢复。",
                "帐套“{}”中有不合规定的数据,没有读入,也没有作任何改动。\n"
                "请用 chbooks check 查明,再用最近的备份恢复。"},
    FailureText{Failure::notStorable,
                "要写入帐套文件“{}”的数值超出规定的范围,没有写入,数据没有改动。",
                "要写入帐套“{}”的数值超出规定的范围,没有写入,数据没有改动。"},
    FailureText{Failure::noIdLeft,
                "帐套文件“{}”的记录编号已经用完,数据没有改动。\n请用 chbooks check 查明。",
                "帐套“{}”的记录编号已经用完,数据没有改动。\n请用 chbooks check 查明。"},
    FailureText{Failure::passwordNeeded, "打开帐套文件“{}”需要口令。",
                "服务器“{}”需要口令,或者口令不正确。\n"
                "在窗口中会要求输入;命令行请用 PGPASSFILE、PGSERVICE 或 PGPASSWORD 提供口令。"},
    FailureText{Failure::unconfirmed,
                "文件“{}”已经写好,但系统没有确认它已存到磁盘上。\n请检查磁盘,并核对该文件。",
                "与服务器“{}”的连接在保存的最后一步中断,不知道本次操作是否已经保存。\n"
                "请检查网络和服务器,先核对数据,再决定是否重做。"},
};

constexpr PlaceText registryDamaged =
    "帐套列表文件“{}”已损坏,没有改动它。\n请修复或移走该文件;帐套本身不受影响,仍可按路径打开。";
constexpr PlaceText registryNewer =
    "帐套列表文件“{}”由更新版本的程序建立,没有改动它。\n请升级本程序。";
constexpr PlaceText registryUnconfirmed =
    "帐套列表文件“{}”已经写好,但系统没有确认它已存到磁盘上。\n请检查磁盘。";
constexpr PlaceText registryOther =
    "无法读写帐套列表文件“{}”。\n请检查所在文件夹的权限和磁盘空间。";
constexpr PlaceText passwordFileMissing = "找不到口令文件“{}”。\n请检查路径是否正确。";
constexpr PlaceText passwordFileOther =
    "无法读取口令文件“{}”。\n请检查文件权限;口令应写在第一行,不超过 1024 个字节。";
constexpr const char* rightsLine =
    "\n写入“{}”要有{}权限。权限刚改过时,请管理员再运行一次 chbooks server-roles。";
constexpr const char* ownersTableLine = "\n“{}”只有帐套在服务器上的所有者才能写入。";
constexpr const char* ownersWorkLine =
    "\n增加、删除项目大类等要建立、删除表的操作,只有帐套在服务器上的所有者才能做。";
constexpr const char* detailLine = "\n详细信息:{}";

PlaceText formatFor(Failure failure, bool isServer, FailureSubject subject) {
    if (subject == FailureSubject::passwordFile)
        return failure == Failure::missing ? passwordFileMissing : passwordFileOther;
    if (subject == FailureSubject::registry) {
        if (failure == Failure::damaged) return registryDamaged;
        if (failure == Failure::unconfirmed) return registryUnconfirmed;
        return failure == Failure::newerVersion ? registryNewer : registryOther;
    }
    const auto found = std::ranges::find(bookTexts, failure, &FailureText::failure);
    if (found == bookTexts.end()) return "{}";
    return isServer ? found->server : found->file;
}

/// Failures that say what is the matter by themselves; of the others a helper needs the
/// engine's own words.
bool isClearWithoutDetail(Failure failure) {
    constexpr std::array clear{Failure::missing,      Failure::foreign, Failure::newerVersion,
                               Failure::olderVersion, Failure::notOpen, Failure::crossedWait,
                               Failure::cancelled};
    return std::ranges::find(clear, failure) != clear.end();
}

/// What a refusal of the server asks for, as far as its words name the table.
std::string permissionText(std::string_view detail) {
    const std::string table = tableInWords(detail);
    const bool isOfProjects = table == "ProjClass" || table.starts_with("projitems");
    if (table.empty()) return ownersWorkLine;
    const std::string rights = grantingRights(table, toWrite);
    std::string text = rights.empty() ? fmt::format(ownersTableLine, tableTitle(table))
                                      : fmt::format(rightsLine, tableTitle(table), rights);
    return isOfProjects ? text + ownersWorkLine : text;
}

/// On one line, for a message box.
std::string oneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char letter) { return letter == '\n' || letter == '\r'; }, ' ');
    while (line.ends_with(' ')) line.pop_back();
    return line;
}

}  // namespace

std::string failureText(const Status& status, std::string_view location, FailureSubject subject) {
    const PlaceText format = formatFor(status.failure, isServerAddress(location), subject);
    std::string text = fmt::format(format, shownLocation(location));
    const std::string detail = oneLine(status.detail);
    if (status.failure == Failure::notPermitted) text += permissionText(detail);
    if (!detail.empty() && !isClearWithoutDetail(status.failure))
        text += fmt::format(detailLine, detail);
    return text;
}

Refusal failureRefusalOf(const Status& status, std::string_view location, const char* field) {
    Refusal refusal = failureRefusal(failureText(status, location), field);
    if (status.failure == Failure::passwordNeeded) refusal.kind = RefusalKind::serverPassword;
    if (status.failure == Failure::unconfirmed) refusal.kind = RefusalKind::unconfirmed;
    return refusal;
}

}  // namespace chengheng
