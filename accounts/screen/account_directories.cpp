#include "accounts/screen/account_directories.h"

#include "accounts/screen/chart_texts.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"

namespace chengheng {
namespace {

using Entries = std::optional<std::vector<DirectoryEntry>>;

template <class Record>
Entries read(std::string Record::*code, std::string Record::*name) {
    const RowLease<Record> lease(*g_pDB, nullptr);
    if (!lease.isRead()) return std::nullopt;
    std::vector<DirectoryEntry> entries;
    for (const Record* record : lease.rows()) entries.push_back({record->*code, record->*name});
    return entries;
}

}  // namespace

const char* titleOf(AccountDirectory directory) {
    switch (directory) {
        case AccountDirectory::persons:
            return chart_texts::persons;
        case AccountDirectory::departments:
            return chart_texts::departments;
        case AccountDirectory::projects:
            return chart_texts::projects;
        case AccountDirectory::units:
            return chart_texts::units;
    }
    return "";
}

Entries readDirectory(AccountDirectory directory) {
    switch (directory) {
        case AccountDirectory::persons:
            return read(&_PersonInfo::sPersonCode, &_PersonInfo::sPersonName);
        case AccountDirectory::departments:
            return read(&_DeptInfo::sDeptCode, &_DeptInfo::sDeptName);
        case AccountDirectory::projects:
            return read(&_ProjClassInfo::sClsCode, &_ProjClassInfo::sClsName);
        case AccountDirectory::units:
            return read(&_EnterInfo::sEnterCode, &_EnterInfo::sEnterName);
    }
    return std::nullopt;
}

}  // namespace chengheng
