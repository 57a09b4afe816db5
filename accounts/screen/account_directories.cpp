#include "accounts/screen/account_directories.h"

#include "accounts/screen/chart_texts.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/directories.h"

namespace chengheng {
namespace {

template <class Record>
Status readEntries(std::string Record::*code, std::string Record::*name,
                   std::vector<DirectoryEntry>& entries) {
    const RowLease<Record> lease(*g_pDB, nullptr);
    if (!lease.isRead()) return g_pDB->lastStatus();
    for (const Record* record : lease.rows()) entries.push_back({record->*code, record->*name});
    return Status::done();
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

Status readDirectory(AccountDirectory directory, std::vector<DirectoryEntry>& entries) {
    switch (directory) {
        case AccountDirectory::persons:
            return readEntries(&_PersonInfo::sPersonCode, &_PersonInfo::sPersonName, entries);
        case AccountDirectory::departments:
            return readEntries(&_DeptInfo::sDeptCode, &_DeptInfo::sDeptName, entries);
        case AccountDirectory::projects:
            return readEntries(&_ProjClassInfo::sClsCode, &_ProjClassInfo::sClsName, entries);
        case AccountDirectory::units:
            return readEntries(&_EnterInfo::sEnterCode, &_EnterInfo::sEnterName, entries);
    }
    return Status::done();
}

}  // namespace chengheng
