#pragma once

#include "directories/directory_form.h"
#include "directories/window/open_directory.h"
#include "screen/forms/list_form_dialog.h"

class QComboBox;
class QPushButton;

namespace chengheng {

/// The window of a directory: departments, persons, units and their classes, project classes and
/// their items.
class DirectoryWindow final : public ListFormDialog {
    Q_OBJECT

  public:
    DirectoryWindow(const Directory& directory, QWidget* parent);

    /// A record is being added as the window comes up.
    void startWithAddition() { m_startsWithAddition = true; }
    /// A record is selected as the window comes up, where it is still there.
    void startAt(const ChosenRecord& record) { m_startsAt = record; }
    /// The record selected when the window closed; nothing while one was being added.
    std::optional<ChosenRecord> chosen() const;

  protected:
    bool OnInitDialog() override;
    ListForm& form() override { return m_form; }
    void addFields() override;
    void DoDataExchange(bool isSaving) override;
    void printRecords(ReportOutput output) override;
    HistorySubject selectedHistory() override;
    std::span<const MenuItemResource> ownFileItems() const override;
    bool OnCommand(int command) override;

  private:
    static constexpr int importCommand = firstOwnCommand;
    static constexpr int exportCommand = firstOwnCommand + 1;

    void addGroups(DirectoryKind groups);
    void addKinds();
    void showGroups();
    void openGroups(DirectoryKind groups);
    void select(const ChosenRecord& wanted);

    DirectoryForm m_form;
    LimitedEdit* m_code = nullptr;
    LimitedEdit* m_name = nullptr;
    QComboBox* m_group = nullptr;  ///< its data are the ids
    QPushButton* m_openGroups = nullptr;
    QComboBox* m_kind = nullptr;  ///< by the number of the kind
    bool m_startsWithAddition = false;
    std::optional<ChosenRecord> m_startsAt;
};

}  // namespace chengheng
