#pragma once

#include <memory>
#include <string>

#include "operationlog/history/history_list.h"
#include "screen/CNxMiddleDialog.h"

class CVCF1;

namespace chengheng {
class HistoryRows;

/// What is asked about: how it is called, and the row that it is.
struct AskedHistory {
    std::string what;
    HistorySubject subject;
};

/// Shows who changed a row of the books, when, where, and what it held before and after, newest
/// first.
class HistoryWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    HistoryWindow(AskedHistory asked, QWidget* parent);
    ~HistoryWindow() override;

  protected:
    bool OnInitDialog() override;

  private:
    void buildControls();

    std::string m_what;
    HistoryList m_history;
    std::unique_ptr<HistoryRows> m_rows;
    CVCF1* m_grid = nullptr;
};

}  // namespace chengheng
