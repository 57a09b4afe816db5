#include "auxiliary/window/entry_plan_window.h"

#include <fmt/format.h>

#include <QPushButton>

#include "auxiliary/members/auxiliary_texts.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "screen/shown.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

constexpr QSize planWindowSize(1040, 520);

/// What a row says: the columns between its fate and what there is to remark.
constexpr std::size_t firstName = 3;

class PlannedEntries final : public PlanModel {
  public:
    PlannedEntries(const EntryPlan& plan, const AuxiliaryMember& member)
        : PlanModel(std::span<const GridColumn>()), m_plan(plan), m_member(member) {
        m_columns = {{plan_texts::rowColumn, 6, CellAlignment::number},
                     {plan_texts::fateColumn, 6, CellAlignment::centre},
                     {auxiliary_texts::summary, 20}};
        for (const DimensionWords& words : member.dimensions)
            m_columns.push_back({words.heading, 16});
        m_columns.push_back({auxiliary_texts::direction, 6, CellAlignment::centre});
        m_columns.push_back({auxiliary_texts::money, 18, CellAlignment::number});
        m_columns.push_back({plan_texts::placeColumn, 14});
        m_columns.push_back({plan_texts::remarkColumn, 36});
        setGridColumns(m_columns);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.rows.size());
    }
    bool isRefused(int row) const override { return planned(row).isRefused(); }

  protected:
    QString text(int row, int column) const override {
        const PlannedEntry& entry = planned(row);
        const auto place = static_cast<std::size_t>(column);
        const std::size_t names = m_member.dimensions.size();
        if (place >= firstName && place < firstName + names)
            return shown(nameOf(entry.entry ? entry.entry->names : entry.input.names,
                                m_member.dimensions[place - firstName].dimension));
        switch (place < firstName ? place : place - names) {
            case 0:
                return QString::number(entry.row);
            case 1:
                return shown(fateTitle(entry.fate));
            case 2:
                return shown(entry.input.summary);
            case 3:
                return shown(entry.input.isDebit ? auxiliary_texts::debit
                                                 : auxiliary_texts::credit);
            case 4:
                return shown(entry.input.money);
            case 5:
                return shown(refusedPlace(entry));
            default:
                return shown(entry.isThere ? transfer_texts::isThere : entry.reason);
        }
    }

  private:
    const PlannedEntry& planned(int row) const {
        return m_plan.rows[static_cast<std::size_t>(row)];
    }

    const EntryPlan& m_plan;
    const AuxiliaryMember& m_member;
    std::vector<GridColumn> m_columns;
};

PlanContent contentOf(const char* title, const std::string& heading, const EntryPlan& plan) {
    PlanContent content{.title = title,
                        .rowsName = plan_texts::rows,
                        .apply = plan_texts::apply,
                        .mayBeApplied = plan.mayBeApplied()};
    if (!heading.empty()) content.above.push_back(heading);
    content.above.push_back(fmt::format(
        transfer_texts::summary, plan.rows.size() - plan.refusedCount(), plan.refusedCount()));
    if (plan.repeatedCount() > 0)
        content.above.push_back(fmt::format(transfer_texts::repeated, plan.repeatedCount()));
    if (!plan.ignored.empty())
        content.below.push_back(
            fmt::format(plan_texts::ignored, fmt::join(plan.ignored, plan_texts::listSeparator)));
    content.below.emplace_back(plan.mayBeApplied() ? plan_texts::isReady : plan_texts::isRefused);
    return content;
}

}  // namespace

EntryPlanWindow::EntryPlanWindow(const char* title, const std::string& heading,
                                 const EntryPlan& plan, const AuxiliaryMember& member,
                                 QWidget* parent)
    : PlanWindow(contentOf(title, heading, plan), std::make_unique<PlannedEntries>(plan, member),
                 parent) {
    resize(planWindowSize);
    if (plan.mayBeApplied()) applyButton().setFocus();
}

}  // namespace chengheng
