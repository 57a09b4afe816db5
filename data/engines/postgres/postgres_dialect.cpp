#include "data/engines/postgres/postgres_dialect.h"

namespace chengheng {
namespace {

std::string columnDeclaration(ColumnType type) {
    switch (type) {
        case ColumnType::integer:
            return "integer NOT NULL DEFAULT 0";
        case ColumnType::nullableInteger:
            return "integer DEFAULT NULL";
        case ColumnType::byte:
        case ColumnType::flag:
            return "smallint NOT NULL DEFAULT 0";
        case ColumnType::real:
            return "double precision NOT NULL DEFAULT 0";
        case ColumnType::single:
            return "real NOT NULL DEFAULT 0";
        case ColumnType::date:
            return "date NOT NULL DEFAULT '1899-12-31'";
        case ColumnType::text:
            break;
    }
    // Codes are ordered and compared byte by byte, on every server alike.
    return "text COLLATE \"C\" NOT NULL DEFAULT ''";
}

}  // namespace

const EngineDialect& postgresDialect() {
    static constexpr EngineDialect dialect{"", " FOR UPDATE", columnDeclaration};
    return dialect;
}

}  // namespace chengheng
