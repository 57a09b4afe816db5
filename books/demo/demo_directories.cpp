#include "books/demo/demo_parts.h"
#include "books/demo/demo_sql.h"
#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "data/tables/definitions.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "data/tables/settlement.h"
#include "directories/directory.h"
#include "session/rights_list.h"

namespace chengheng {
namespace {

Status writeProjectClass(DemoBooks& books, const demo::Named& given) {
    _ProjClassInfo record;
    record.sClsCode = given.code;
    record.sClsName = given.name;
    Status status = books.addNamed(record, given.code);
    Engine& engine = books.database().selectedDatabase()->engine();
    if (status)
        status = engine.script(createTableSql(projectItemTable(given.code), engine.dialect()));
    std::int32_t id = 0;
    for (const demo::Member& item : demo::projectItems()) {
        if (std::string_view(item.group) != given.code) continue;
        books.items[item.name] = {++id, given.code};
        if (status) status = books.run(demo_sql::projectItem(given.code, id, item.code, item.name));
    }
    return status;
}

std::string rightsText(std::span<const int> functions) {
    std::string rights(rightsLength, 'N');
    for (const int function : functions) rights[static_cast<std::size_t>(function - 1)] = 'Y';
    return rights;
}

Status writeOperator(DemoBooks& books, const demo::Operator& given) {
    _UsersInfo user;
    user.lId = user.lUserId = books.database().Users_GetLastId() + 1;
    if (!books.database().lastStatus()) return books.database().lastStatus();
    user.sUserName = given.name;
    user.sPassword = hashPassword(demo::password, books.passwordCost());
    if (user.sPassword.empty()) return Status::of(Failure::full, "no memory to hash a password");
    Status status = books.addNamed(user, given.name);
    _UserAuthInfo rights;
    rights.lUserId = user.lUserId;
    rights.sAuthId = rightsText(given.rights);
    return status ? books.add(rights) : status;
}

}  // namespace

Status writeDemoDirectories(DemoBooks& books) {
    Status status = Status::done();
    for (const auto& [code, name] : demo::departments()) {
        _DeptInfo record;
        record.sDeptCode = code;
        record.sDeptName = name;
        if (status) status = books.addNamed(record, name);
        for (const demo::Member& person : demo::persons()) {
            if (std::string_view(person.group) != code) continue;
            _PersonInfo member;
            member.lDeptId = books.idOf<_DeptInfo>(name);
            member.sPersonCode = person.code;
            member.sPersonName = person.name;
            if (status) status = books.addNamed(member, person.name);
        }
    }
    for (const auto& [code, name] : demo::unitClasses()) {
        _EnterClassInfo record;
        record.sClsCode = code;
        record.sClsName = name;
        if (status) status = books.addNamed(record, code);
    }
    for (const demo::Member& unit : demo::units()) {
        _EnterInfo record;
        record.lClassId = books.idOf<_EnterClassInfo>(unit.group);
        record.sEnterCode = unit.code;
        record.sEnterName = unit.name;
        const bool isCustomer = std::string_view(unit.group) == demo::customerClass;
        record.byKind =
            static_cast<std::uint8_t>(isCustomer ? UnitKind::customer : UnitKind::supplier);
        if (status) status = books.addNamed(record, unit.name);
    }
    return status;
}

Status writeDemoProjects(DemoBooks& books) {
    Status status = Status::done();
    for (const demo::Named& projectClass : demo::projectClasses())
        if (status) status = writeProjectClass(books, projectClass);
    for (const auto& [account, projectClass] : demo::projectAccounts()) {
        _ProjCodesInfo record;
        record.lCodeId = books.accounts.at(account).lId;
        record.sItemId = projectClass;
        if (status) status = books.add(record);
    }
    return status;
}

Status writeDemoVoucherTypes(DemoBooks& books) {
    Status status = Status::done();
    for (const demo::VoucherType& given : demo::voucherTypes()) {
        _SignInfo record;
        record.sSign = given.number;
        record.sSignName = given.name;
        record.byLimit = given.restriction;
        record.sCode1 = demo::cashAccount;
        record.sCode2 = demo::bankAccount;
        if (status) status = books.add(record);
    }
    for (const demo::Settlement& given : demo::settlements()) {
        _SettleInfo record;
        record.sStlId = given.number;
        record.sSettle = given.name;
        record.bNote = given.isInChequeRegister ? 1 : 0;
        if (status) status = books.add(record);
    }
    return status;
}

Status writeDemoOperators(DemoBooks& books) {
    Status status = Status::done();
    for (const demo::Operator& given : demo::operators())
        if (status) status = writeOperator(books, given);
    return status;
}

Status writeDemoDefinitions(DemoBooks& books) {
    Status status = Status::done();
    for (const auto& [account, text] : demo::digests()) {
        __DigestInfo record;
        record.lCodeId = books.accounts.at(account).lId;
        record.sDigest = text;
        if (status) status = books.add(record);
    }
    _AutoMainInfo transfer;
    transfer.sSign = demo::transferVoucherType;
    transfer.sName = demo::transferName;
    if (status) status = books.addNamed(transfer, demo::transferName);
    for (const demo::DefinitionLine& given : demo::transferLines()) {
        _AutoSubInfo line;
        line.lTieId = books.idOf<_AutoMainInfo>(demo::transferName);
        line.lCodeId = books.accounts.at(given.code).lId;
        line.sDigest = given.digest;
        line.bDirect = given.isDebit ? 1 : 0;
        line.sFormula = given.formula;
        if (status) status = books.add(line);
    }
    for (const demo::DefinitionLine& given : demo::frequentVoucherLines()) {
        _FreqSubInfo line;
        line.lTieId = 1;
        line.lCodeId = books.accounts.at(given.code).lId;
        line.sDigest = given.digest;
        line.bDirect = given.isDebit ? 1 : 0;
        if (status) status = books.add(line);
    }
    return status;
}

}  // namespace chengheng
