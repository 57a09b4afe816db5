#pragma once

#include <functional>

#include "operationlog/screen/log_screen.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// The entries of the log, which come in as they are scrolled to.
class LogEntryModel final : public GridModel {
    Q_OBJECT

  public:
    explicit LogEntryModel(LogScreen& screen, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    /// Shows the entries that were looked for.
    void showFound();

  signals:
    /// More is there, or could not be read.
    void fetched();

  protected:
    QString text(int row, int column) const override;

  private:
    LogScreen& m_screen;
};

/// What the selected entry did, cell by cell, before and after side by side.
class LogChangeModel final : public GridModel {
    Q_OBJECT

  public:
    explicit LogChangeModel(LogScreen& screen, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    void reset(const std::function<void()>& select);

  signals:
    void fetched();

  protected:
    QString text(int row, int column) const override;
    /// Beside the sign in front of the line.
    QColor background(int row, int column) const override;

  private:
    LogScreen& m_screen;
};

}  // namespace chengheng
