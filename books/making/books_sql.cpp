#include "books/making/books_sql.h"

#include "accounts/chart/account_sql.h"
#include "data/sql/sql_format.h"
#include "data/tables/books.h"
#include "data/tables/operators.h"
#include "data/tables/printing.h"
#include "data/tables/record_type.h"
#include "report/output/print_templates.h"
#include "session/rights_list.h"

namespace chengheng::books_sql {
namespace {

/// Collects statements, a line each, and counts the rows a table got.
struct Batch {
    std::string text;

    template <class... Arguments>
    void add(const SqlFormat<std::type_identity_t<Arguments>...>& format,
             const Arguments&... arguments) {
        appendSql(text, format, arguments...);
        text += "\r\n";
    }
    template <class Record>
    void setLastId(int lastId) {
        add("UPDATE ABIdTable SET lLastId = %d WHERE sTable = '%s'", lastId,
            recordTypeOf<Record>().table.idRow);
    }
};

void addParameters(Batch& batch, const NewBooks& books, int setId) {
    batch.add("INSERT INTO zAccountM VALUES( %d, '%s', '%s', '%d/%d/%d', '%s', %d, %d )", setId,
              books.name, books.company, books.year, books.startMonth, 1, books.levelPattern,
              books.hasForeignCurrency ? 1 : 0, books.year);
    batch.setLastId<_zAccountMInfo>(setId);
}

void addClasses(Batch& batch, ChartTemplate chart) {
    int id = 0;
    for (const ChartClass& found : chartClasses(chart)) {
        ++id;
        batch.add("INSERT INTO zCodeClass VALUES( %d, %d, '%s', %d )", id, id, found.name,
                  found.isDebit ? 1 : 0);
    }
    batch.setLastId<_zCodeClassInfo>(id);
}

void addAccounts(Batch& batch, std::span<const _CodeInfo> accounts) {
    batch.text += account_sql::addAccounts(accounts, 0);
    batch.setLastId<_CodeInfo>(static_cast<int>(accounts.size()));
}

void addRightsList(Batch& batch) {
    int id = 0;
    for (const RightsGroup& group : rightsGroups())
        for (const char* function : group.functions)
            batch.add("INSERT INTO zAuth VALUES( %d, '%s', '%s' )", ++id,
                      std::string_view(group.name), std::string_view(function));
    batch.setLastId<_zAuthInfo>(id);
}

void addSupervisor(Batch& batch, const std::string& name, const std::string& hash) {
    batch.add("INSERT INTO Users VALUES( 1, 1, '%s', 1, '%s' )", name, hash);
    batch.add("INSERT INTO UserAuth VALUES( 1, 1, '%s' )", std::string(rightsLength, 'Y'));
    batch.setLastId<_UsersInfo>(1);
    batch.setLastId<_UserAuthInfo>(1);
}

void addPrintTemplates(Batch& batch) {
    int columnId = 0;
    int lastNumber = 0;
    for (const PrintTemplate& print : printTemplates()) {
        lastNumber = print.number;
        batch.add("INSERT INTO ZWPrintMain VALUES( %d, '%s', %d, %d )", print.number,
                  std::string_view(print.title), int{print.paper}, print.isPortrait ? 1 : 0);
        for (const TemplateColumn& column : print.columns)
            batch.add("INSERT INTO ZWPrintSub VALUES( %d, %d, '%s', '%s', %d )", ++columnId,
                      print.number, std::string_view(column.heading),
                      std::string_view(column.field), int{column.width});
    }
    batch.setLastId<_ZWPrintMainInfo>(lastNumber);
    batch.setLastId<_ZWPrintSubInfo>(columnId);
}

}  // namespace

std::string fillNewBooks(const NewBooks& books, std::span<const _CodeInfo> accounts,
                         std::int32_t setId, const std::string& hash) {
    Batch batch;
    addParameters(batch, books, setId);
    addClasses(batch, books.chart);
    addAccounts(batch, accounts);
    addRightsList(batch);
    addSupervisor(batch, books.supervisor, hash);
    addPrintTemplates(batch);
    return batch.text;
}

}  // namespace chengheng::books_sql
