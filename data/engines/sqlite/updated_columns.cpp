#include "data/engines/sqlite/updated_columns.h"

#include <algorithm>

namespace chengheng {

UpdateListener::UpdateListener(sqlite3* connection) : m_connection(connection) {
    sqlite3_set_authorizer(connection, &UpdateListener::onAction, this);
}

UpdateListener::~UpdateListener() { sqlite3_set_authorizer(m_connection, nullptr, nullptr); }

void UpdateListener::begin() {
    m_heard = {};
    m_isClear = true;
}

UpdatedColumns UpdateListener::take() {
    if (!m_isClear) m_heard = {};
    std::ranges::sort(m_heard.places);
    return std::exchange(m_heard, {});
}

int UpdateListener::onAction(void* self, int action, const char* table, const char* column,
                             const char* /*database*/, const char* /*trigger*/) {
    if (action == SQLITE_UPDATE) static_cast<UpdateListener*>(self)->hear(table, column);
    return SQLITE_OK;
}

void UpdateListener::hear(const char* table, const char* column) {
    const TableInfo* const known = findTable(table);
    if (known == nullptr || (m_heard.table != nullptr && m_heard.table != known)) m_isClear = false;
    if (!m_isClear) return;
    m_heard.table = known;
    const auto found = std::ranges::find(known->columns, column, &ColumnInfo::name);
    if (found == known->columns.end()) {
        m_isClear = false;
        return;
    }
    const auto place = static_cast<std::size_t>(found - known->columns.begin());
    if (std::ranges::find(m_heard.places, place) == m_heard.places.end())
        m_heard.places.push_back(place);
}

}  // namespace chengheng
