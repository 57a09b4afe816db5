#pragma once

#include <utility>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// All or nothing: what happens between construction and commit() reaches the database in
/// one transaction and one disk flush, or not at all. Units nest; an inner one that is not
/// committed takes back only its own part. A unit belongs to the database that was selected
/// at its begin and ends there, even when another one is selected by then. Whoever begins a
/// change gives the words that the log has for it; only parts of a change have none.
class UnitOfWork {
  public:
    explicit UnitOfWork(CNbCwDB& database, UnitWords words = {})
        : m_database(database),
          m_words(std::move(words)),
          m_name(database.selectedName()),
          m_status(database.beginUnit()),
          m_isOpen(m_status.isDone()) {}
    ~UnitOfWork() {
        if (m_isOpen) m_database.rollbackUnit(m_name);
    }
    UnitOfWork(const UnitOfWork&) = delete;
    UnitOfWork& operator=(const UnitOfWork&) = delete;

    /// Whether the unit could be begun; nothing may be written when it could not.
    bool isOpen() const { return m_isOpen; }
    const Status& status() const { return m_status; }

    Status commit() {
        if (!m_isOpen) return m_status;
        m_isOpen = false;
        m_status = m_database.commitUnit(m_name, m_words);
        return m_status;
    }

  private:
    CNbCwDB& m_database;
    UnitWords m_words;
    std::string m_name;
    Status m_status;
    bool m_isOpen;
};

}  // namespace chengheng
