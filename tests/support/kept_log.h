#pragma once

#include <string>
#include <vector>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// The operation log of the selected books, kept from now on.
class KeptLog {
  public:
    explicit KeptLog(CNbCwDB& database);

    /// The entries since the last question: "57 增加结算方式 1 现金", the function first.
    std::vector<std::string> news();

  private:
    CNbCwDB& m_database;
    long m_seen = 0;
};

}  // namespace chengheng
