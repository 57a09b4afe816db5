#pragma once

#include "data/access/CNbCwDB.h"
#include "data/connection/database.h"

namespace chengheng {

/// What is read from the selected database during its life is read as it stands at one moment,
/// whatever others write. Nothing is written meanwhile, nor another database selected.
class ReadingMoment {
  public:
    explicit ReadingMoment(CNbCwDB& database)
        : m_status(database.onSelected(
              [](Database& selected) { return selected.engine().beginReading(); })),
          m_selected(m_status ? database.selectedDatabase() : nullptr) {}
    ~ReadingMoment() {
        // Nothing was written that could be lost.
        if (m_selected != nullptr) static_cast<void>(m_selected->engine().rollback().isDone());
    }
    ReadingMoment(const ReadingMoment&) = delete;
    ReadingMoment& operator=(const ReadingMoment&) = delete;

    /// Whether it could be begun; the data-access object knows why not.
    const Status& status() const { return m_status; }

  private:
    Status m_status;
    Database* m_selected;
};

}  // namespace chengheng
