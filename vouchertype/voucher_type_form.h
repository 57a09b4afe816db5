#pragma once

#include "forms/list_form.h"
#include "vouchertype/voucher_type_rules.h"
#include "vouchertype/voucher_type_service.h"

namespace chengheng {

/// The window of voucher types without its screen.
class VoucherTypeForm final : public ListForm {
  public:
    explicit VoucherTypeForm(IMessages& messages) : ListForm(messages), m_service(messages) {}

    /// What stands in the fields; the window writes into it what is typed.
    _SignInfo input;

    /// 限制 was checked or unchecked.
    void restrict(bool isRestricted) { setRestricted(input, isRestricted); }
    /// The accounts to choose from as they are now; nothing when they cannot be read.
    std::optional<std::vector<_CodeInfo>> firstLevelAccounts() {
        return m_service.firstLevelAccounts();
    }

  protected:
    std::optional<std::vector<Leaf>> readLeaves() override;
    Outcome load(int id, bool& isUsed) override;
    void clear() override { keep({}); }
    bool isComplete() const override;
    bool isChanged() const override { return input != m_loaded; }
    Outcome write(SaveMode mode, Leaf& saved) override;
    void holdTyped() override;
    void takeTypedBack() override;
    Outcome erase(const Leaf* leaf) override;

  private:
    void keep(const _SignInfo& type);

    VoucherTypeService m_service;
    _SignInfo m_loaded;
    _SignInfo m_typed;
    _SignInfo m_typedOver;
};

}  // namespace chengheng
