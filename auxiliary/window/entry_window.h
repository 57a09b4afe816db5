#pragma once

#include <functional>
#include <optional>

#include "auxiliary/screen/entry_form.h"
#include "auxiliary/window/entry_fields.h"
#include "screen/CNxMiddleDialog.h"

class QRadioButton;

namespace chengheng {

/// The record dialog: one opening entry is typed or modified. It stays open until what it hands
/// over has been written.
class EntryWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// Writes an entry; false when it could not be written, which the operator has been told.
    using Writer = std::function<bool(AuxiliaryEntry entry)>;

    /// The form outlives the window.
    EntryWindow(EntryForm& form, Writer write, QWidget* parent);

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(bool isSaving) override;

  private:
    void buildControls();
    QWidget* buildDirections();
    void connectDimension(const DimensionField& field);
    void settle(Dimension dimension);
    void browse(const DimensionField& field);
    enum class MayAdd { no, yes };

    std::optional<DimensionChoice> pick(Dimension dimension, std::vector<DimensionChoice> choices,
                                        MayAdd mayAdd);
    void goTo(const std::string& field);
    void giveUp(bool isByButton);

    EntryForm& m_form;
    Writer m_write;
    EntryFields m_fields;
    QRadioButton* m_debit = nullptr;
    QRadioButton* m_credit = nullptr;
};

}  // namespace chengheng
