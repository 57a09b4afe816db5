#pragma once

#include <optional>
#include <vector>

#include "auxiliary/screen/auxiliary_work.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// The shown entries of an account, a row each.
class EntryModel final : public GridModel {
    Q_OBJECT

  public:
    /// The work must outlive the model.
    explicit EntryModel(const AuxiliaryWork& work);

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Shows the list as it is now.
    void showList();

  protected:
    QString text(int row, int column) const override;

  private:
    const AuxiliaryWork& m_work;
    std::vector<GridColumn> m_columns;
    std::size_t m_rows = 0;
};

/// What each combination of dimensions adds up to.
class CombinationModel final : public GridModel {
    Q_OBJECT

  public:
    explicit CombinationModel(const AuxiliaryWork& work);

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Whether entries have changed since.
    bool isOutdated() const { return m_revision != m_work.list().revision(); }
    void showTotals();
    /// What a row adds up; nothing where there is none.
    std::optional<EntryDimensions> combinationAt(int row) const;
    /// -1 where no entry is of the combination.
    int rowOf(const EntryDimensions& of) const;
    /// The name by which the entries of a row are found.
    const std::string& nameAt(int row) const;

  protected:
    QString text(int row, int column) const override;

  private:
    const AuxiliaryWork& m_work;
    std::vector<GridColumn> m_columns;
    std::vector<CombinationTotal> m_totals;
    unsigned m_revision = 0;
};

}  // namespace chengheng
