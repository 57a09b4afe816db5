#include "screen/history/history_window.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "operationlog/history/history_texts.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/empty_words.h"
#include "screen/grid/grid_model.h"
#include "screen/shown.h"
#include "session/last_failure.h"

namespace chengheng {
namespace {

namespace texts = history_texts;

constexpr QSize historyWindowSize(980, 460);

struct HistoryColumn {
    GridColumn column;
    std::string HistoryLine::*text;
};
constexpr std::array historyColumns{
    HistoryColumn{{texts::time, 19}, &HistoryLine::time},
    HistoryColumn{{texts::who, 8}, &HistoryLine::who},
    HistoryColumn{{texts::where, 10}, &HistoryLine::where},
    HistoryColumn{{texts::kind, 5}, &HistoryLine::kind},
    HistoryColumn{{texts::item, 11}, &HistoryLine::item},
    HistoryColumn{{texts::before, 12}, &HistoryLine::before},
    HistoryColumn{{texts::after, 12}, &HistoryLine::after},
    HistoryColumn{{texts::words, 20}, &HistoryLine::words},
};

std::vector<GridColumn> gridColumnsOf() {
    std::vector<GridColumn> columns;
    for (const HistoryColumn& each : historyColumns) columns.push_back(each.column);
    return columns;
}

}  // namespace

/// The lines as far as they were read; further ones come when the operator gets to their end.
class HistoryRows final : public GridModel {
  public:
    HistoryRows(HistoryList& history, IMessages& messages)
        : GridModel({}), m_history(history), m_messages(messages), m_columns(gridColumnsOf()) {
        setGridColumns(m_columns);
        m_count = static_cast<int>(m_history.lines().size());
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : m_count;
    }
    bool canFetchMore(const QModelIndex& parent) const override {
        return !parent.isValid() && !m_hasFailed && m_history.hasLog() && !m_history.isAtEnd();
    }
    void fetchMore(const QModelIndex&) override {
        m_hasFailed = !m_history.readMore();
        const int count = static_cast<int>(m_history.lines().size());
        if (count > m_count) {
            beginInsertRows({}, m_count, count - 1);
            m_count = count;
            endInsertRows();
        }
        if (m_hasFailed) tellLastFailure(m_messages);
    }

  protected:
    QString text(int row, int column) const override {
        const HistoryLine& line = m_history.lines()[static_cast<std::size_t>(row)];
        return shown(line.*historyColumns.at(static_cast<std::size_t>(column)).text);
    }

  private:
    HistoryList& m_history;
    IMessages& m_messages;
    std::vector<GridColumn> m_columns;
    int m_count = 0;
    bool m_hasFailed = false;
};

HistoryWindow::HistoryWindow(AskedHistory asked, QWidget* parent)
    : CNxMiddleDialog(parent), m_what(std::move(asked.what)), m_history(std::move(asked.subject)) {
    setWindowTitle(shown(texts::title));
}

HistoryWindow::~HistoryWindow() { delete m_grid; }

bool HistoryWindow::OnInitDialog() {
    if (!m_history.readMore()) {
        TellFailure();
        EndDialog(Rejected);
        return false;
    }
    buildControls();
    resize(historyWindowSize);
    m_grid->setFocus();
    return false;
}

void HistoryWindow::buildControls() {
    auto* heading = new QLabel(shown(m_what), this);
    heading->setTextFormat(Qt::PlainText);
    m_grid = new CVCF1(shown(texts::rows), CVCF1::Unit::row, this);
    m_rows = std::make_unique<HistoryRows>(m_history, messages());
    m_grid->setGridModel(m_rows.get());
    m_grid->setCurrentRow(0);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(heading);
    rows->addWidget(m_grid, 1);
    if (m_history.lines().empty())
        new EmptyWords(*m_grid, shown(m_history.hasLog() ? texts::nothing : texts::noLog));
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(shown(texts::close), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    rows->addWidget(buttons);
}

}  // namespace chengheng
