#pragma once

#include <functional>
#include <span>

#include "operationlog/screen/log_screen.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// Rows that come in as they are scrolled to.
class ReadOnModel : public GridModel {
    Q_OBJECT

  public:
    int rowCount(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

  signals:
    /// More is there, or could not be read.
    void fetched();

  protected:
    ReadOnModel(std::span<const GridColumn> columns, LogScreen& screen, QObject* parent)
        : GridModel(columns, parent), m_screen(screen) {}

    LogScreen& screen() const { return m_screen; }
    /// Has the grid take so many rows behind the last one, which `add` brings into the screen.
    void append(std::size_t count, const std::function<void()>& add);

  private:
    virtual std::size_t rows() const = 0;
    virtual bool hasMore() const = 0;
    virtual void readOn() = 0;

    LogScreen& m_screen;
};

/// The entries of the log.
class LogEntryModel final : public ReadOnModel {
    Q_OBJECT

  public:
    explicit LogEntryModel(LogScreen& screen, QObject* parent = nullptr);

    /// Shows the entries that were looked for.
    void showFound();

  protected:
    QString text(int row, int column) const override;

  private:
    std::size_t rows() const override { return screen().entries().size(); }
    bool hasMore() const override { return screen().hasMore(); }
    void readOn() override;
};

/// What the selected entry did, cell by cell, before and after side by side.
class LogChangeModel final : public ReadOnModel {
    Q_OBJECT

  public:
    explicit LogChangeModel(LogScreen& screen, QObject* parent = nullptr);

    void reset(const std::function<void()>& select);

  protected:
    QString text(int row, int column) const override;
    /// Beside the sign in front of the line.
    QColor background(int row, int column) const override;

  private:
    std::size_t rows() const override { return screen().changes().size(); }
    bool hasMore() const override { return screen().hasMoreChanges(); }
    void readOn() override;
};

}  // namespace chengheng
