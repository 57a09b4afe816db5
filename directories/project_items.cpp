#include "directories/project_items.h"

#include <limits>
#include <unordered_map>

#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "data/tables/directories.h"
#include "data/tables/schema.h"
#include "directories/directory_sql.h"
#include "directories/directory_store.h"
#include "directories/run_batch.h"

namespace chengheng {
namespace {

using Items = std::vector<DirectoryRecord>;

Status readSelected(CNbCwDB& database, std::int32_t projectClass, const std::string& select,
                    Items& items) {
    const SelectedCells cells(database, select);
    if (!cells.isRead()) return database.lastStatus();
    items.reserve(items.size() + static_cast<std::size_t>(cells.rows()));
    for (int row = 0; row < cells.rows(); ++row)
        items.push_back({.id = cells.number<std::int32_t>(row, 0),
                         .group = projectClass,
                         .code = std::string(cells.text(row, 1)),
                         .name = std::string(cells.text(row, 2))});
    return Status::done();
}

/// What came of an operation that did not reach the database is told like what did.
Status refused(CNbCwDB& database, const Status& status) {
    return database.onSelected([&status](Database&) { return status; });
}

/// A class is gone, or its code cannot be part of a table's name.
Status whereNoTableCanBe(CNbCwDB& database) {
    return refused(database, Status::of(Failure::wrongValue, "ProjClass"));
}

/// Reads nothing where the class or its table is gone.
template <class Select>
Status readOfClass(CNbCwDB& database, std::int32_t projectClass, Items& items, Select select) {
    std::string code;
    const Status status = readClassCode(database, projectClass, code);
    if (!status || code.empty()) return status;
    return readSelected(database, projectClass, select(code), items);
}

/// Runs a statement on the table of an item's class.
template <class Statement>
Status write(CNbCwDB& database, const DirectoryRecord& item, Statement statement) {
    std::string code;
    const Status status = readClassCode(database, item.group, code);
    if (!status) return status;
    if (code.empty()) return whereNoTableCanBe(database);
    return runBatch(database, statement(code));
}

/// The tables of the classes that items are written into, each asked for once.
class ItemTables {
  public:
    struct Table {
        std::string classCode;
        std::optional<std::int32_t> lastId;  ///< once it is asked for
    };

    explicit ItemTables(CNbCwDB& database) : m_database(database) {}

    Status find(std::int32_t projectClass, Table*& table) {
        const auto [found, isNew] = m_tables.try_emplace(projectClass);
        table = &found->second;
        if (isNew) {
            Status status = readClassCode(m_database, projectClass, table->classCode);
            if (status && table->classCode.empty()) status = make(projectClass, *table);
            if (!status) return status;
        }
        return table->classCode.empty() ? whereNoTableCanBe(m_database) : Status::done();
    }

    Status takeId(Table& table, std::int32_t& id) {
        if (!table.lastId) {
            const SelectedCells cells(m_database, directory_sql::lastItemId(table.classCode));
            if (!cells.isRead()) return m_database.lastStatus();
            table.lastId = cells.rows() > 0 ? cells.number<std::int32_t>(0, 0) : 0;
        }
        if (*table.lastId == std::numeric_limits<std::int32_t>::max())
            return refused(m_database,
                           Status::of(Failure::noIdLeft, projectItemTable(table.classCode).name));
        id = ++*table.lastId;
        return Status::done();
    }

  private:
    /// Books from elsewhere may have a class without a table.
    Status make(std::int32_t projectClass, Table& table) {
        std::optional<DirectoryRecord> found;
        Status status = readRecord(m_database, DirectoryKind::projectClass, projectClass, 0, found);
        if (!status || !found || projectItemTable(found->code).name.empty()) return status;
        status = makeItemTable(m_database, found->code);
        if (status) table.classCode = found->code;
        return status;
    }

    CNbCwDB& m_database;
    std::unordered_map<std::int32_t, Table> m_tables;
};

}  // namespace

Status readHasItemTable(CNbCwDB& database, std::string_view classCode, bool& hasTable) {
    hasTable = false;
    const TableInfo table = projectItemTable(classCode);
    if (table.name.empty()) return Status::done();
    return database.onSelected(
        [&](Database& selected) { return selected.engine().hasTable(table.name, hasTable); });
}

Status makeItemTable(CNbCwDB& database, std::string_view classCode) {
    return database.onSelected([classCode](Database& selected) {
        const TableInfo table = projectItemTable(classCode);
        const EngineDialect& dialect = selected.engine().dialect();
        std::string script = createTableSql(table, dialect);
        // On a server whoever may work with the classes may work with the new table, too.
        if (dialect.shareTable != nullptr) script += dialect.shareTable(table.name, "ProjClass");
        return selected.engine().script(script);
    });
}

Status dropItemTable(CNbCwDB& database, std::string_view classCode) {
    bool isThere = false;
    const Status status = readHasItemTable(database, classCode, isThere);
    if (!status || !isThere) return status;
    return database.onSelected([classCode](Database& selected) {
        return selected.engine().script(directory_sql::dropItemTable(classCode));
    });
}

Status readClassCode(CNbCwDB& database, std::int32_t projectClass, std::string& code) {
    code.clear();
    std::optional<DirectoryRecord> found;
    Status status = readRecord(database, DirectoryKind::projectClass, projectClass, 0, found);
    bool hasTable = false;
    if (status && found) status = readHasItemTable(database, found->code, hasTable);
    if (status && hasTable) code = found->code;
    return status;
}

Status readAllItems(CNbCwDB& database, Items& items) {
    Items classes;
    Status status = readDirectory(database, DirectoryKind::projectClass, classes);
    for (const DirectoryRecord& each : classes) {
        bool hasTable = false;
        if (status) status = readHasItemTable(database, each.code, hasTable);
        if (status && hasTable)
            status = readSelected(database, each.id, directory_sql::itemsInOrder(each.code), items);
    }
    return status;
}

Status readItem(CNbCwDB& database, std::int32_t projectClass, std::int32_t id,
                std::optional<DirectoryRecord>& item) {
    Items found;
    const Status status = readOfClass(database, projectClass, found, [id](const std::string& code) {
        return directory_sql::itemOfId(code, id);
    });
    if (status && !found.empty()) item = found.front();
    return status;
}

Status readItemsCoded(CNbCwDB& database, std::int32_t projectClass, std::string_view code,
                      Items& items) {
    return readOfClass(database, projectClass, items, [code](const std::string& classCode) {
        return directory_sql::itemsCoded(classCode, code);
    });
}

Status readItemsNamed(CNbCwDB& database, std::int32_t projectClass, std::string_view name,
                      Items& items) {
    return readOfClass(database, projectClass, items, [name](const std::string& classCode) {
        return directory_sql::itemsNamed(classCode, name);
    });
}

Status readHasItems(CNbCwDB& database, std::string_view classCode, bool& hasItems) {
    hasItems = false;
    bool hasTable = false;
    const Status status = readHasItemTable(database, classCode, hasTable);
    if (!status || !hasTable) return status;
    const SelectedCells cells(database, directory_sql::anyItem(classCode));
    hasItems = cells.isRead() && cells.rows() > 0;
    return cells.isRead() ? status : database.lastStatus();
}

Status addItems(CNbCwDB& database, std::span<const DirectoryRecord> items, std::int32_t& lastId) {
    ItemTables tables(database);
    std::string batch;
    for (const DirectoryRecord& item : items) {
        ItemTables::Table* table = nullptr;
        if (const Status status = tables.find(item.group, table); !status) return status;
        if (const Status status = tables.takeId(*table, lastId); !status) return status;
        directory_sql::addItem(batch, table->classCode, lastId, item);
    }
    return runBatch(database, batch);
}

Status editItems(CNbCwDB& database, std::span<const DirectoryRecord> items) {
    ItemTables tables(database);
    std::string batch;
    for (const DirectoryRecord& item : items) {
        ItemTables::Table* table = nullptr;
        if (const Status status = tables.find(item.group, table); !status) return status;
        directory_sql::editItem(batch, table->classCode, item);
    }
    return runBatch(database, batch);
}

Status deleteItem(CNbCwDB& database, const DirectoryRecord& item) {
    return write(database, item,
                 [&](const std::string& code) { return directory_sql::deleteItem(code, item.id); });
}

}  // namespace chengheng
