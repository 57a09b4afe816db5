#pragma once

#include "auxiliary/screen/entry_list.h"
#include "auxiliary/window/entry_fields.h"
#include "screen/dialog_frame.h"

namespace chengheng {

/// Asks for what is searched among the entries. An empty field fits everything.
class FindEntryWindow final : public DialogFrame {
    Q_OBJECT

  public:
    /// The search is where it was left the last time, and holds what was asked for afterwards.
    FindEntryWindow(const AuxiliaryMember& member, EntrySearch& search, QWidget* parent);

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(bool isSaving) override;

  private:
    void buildControls();

    const AuxiliaryMember& m_member;
    EntrySearch& m_search;
    EntryFields m_fields;
    QCheckBox* m_debit = nullptr;
    QCheckBox* m_credit = nullptr;
};

}  // namespace chengheng
