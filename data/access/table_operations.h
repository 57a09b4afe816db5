#pragma once

// The record-wise operations of CNbCwDB, by table. Only its header uses these macros, and it
// takes them off again at its end.

/// Operations on a table named by record type: the list form, the one-row form and the
/// release of the table's buffer.
#define CHENGHENG_TABLE_READ(Table, Record)                                        \
    int Table##_GetInfo(Record**& rows, int& count, const char* condition) {       \
        return readList<Record>(rows, count, condition);                           \
    }                                                                              \
    int Table##_GetInfo(Record*& row, int id) { return readOne<Record>(row, id); } \
    void Table##_ReleaseAllBuffer() { release<Record>(); }

/// The text form. The rows live in the table's buffer.
#define CHENGHENG_TABLE_TEXT(Table, Record)                                  \
    int Table##_GetInfo(TextRow*& rows, int& count, const char* condition) { \
        return readText<Record>(rows, count, condition);                     \
    }

#define CHENGHENG_TABLE_WRITE(Table, Record)                                            \
    int Table##_AddNew(const Record& record, int& newId) { return add(record, newId); } \
    int Table##_Edit(const Record& record) { return edit(record); }                     \
    int Table##_Delete(int id) { return remove<Record>(id); }

#define CHENGHENG_TABLE_LAST_ID(Table, Record) \
    int Table##_GetLastId() { return lastIdOf<Record>(); }
