#pragma once

#include "data/tables/settlement.h"
#include "forms/list_form.h"
#include "settle/settle_rules.h"
#include "settle/settle_service.h"

namespace chengheng {

/// The settlement-method window without its screen.
class SettleForm final : public ListForm {
  public:
    explicit SettleForm(IMessages& messages) : ListForm(messages), m_service(messages) {}

    /// What stands in the fields; the window writes into it what is typed.
    SettleInput input;

  protected:
    std::optional<std::vector<Leaf>> readLeaves() override;
    Outcome load(int id, bool& isUsed) override;
    void clear() override { keep({}); }
    bool isComplete() const override;
    bool isChanged() const override { return input != settleInput(m_loaded); }
    Outcome write(SaveMode mode, Leaf& saved) override;
    void holdTyped() override;
    void takeTypedBack() override;
    Outcome erase(const Leaf* leaf) override { return m_service.remove(leaf, m_loaded); }

  private:
    void keep(const _SettleInfo& method);

    SettleService m_service;
    _SettleInfo m_loaded;
    SettleInput m_typed;
    SettleInput m_typedOver;
};

}  // namespace chengheng
