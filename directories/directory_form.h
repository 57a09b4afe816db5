#pragma once

#include <map>
#include <vector>

#include "directories/directory_service.h"
#include "forms/list_form.h"

namespace chengheng {

/// The window of a directory without its screen.
class DirectoryForm final : public ListForm {
  public:
    DirectoryForm(IMessages& messages, const Directory& directory)
        : ListForm(messages), m_directory(directory), m_service(messages, directory) {}

    /// What stands in the fields; the window writes into it what is typed.
    DirectoryRecord input;

    const Directory& directory() const { return m_directory; }
    /// What records are grouped by, in the order of the codes.
    const std::vector<DirectoryRecord>& groups() const { return m_groups; }
    /// Reads them anew, and with others the list that names them; what was typed stays. Where that
    /// fails the operator has been told.
    void readGroups();
    /// What a record belongs to; null where that is gone.
    const DirectoryRecord* groupOf(const DirectoryRecord& record) const;
    /// An item stays in its class.
    bool mayChangeGroup() const {
        return isAdding() || m_directory.kind != DirectoryKind::projectItem;
    }
    /// The record in the form as it is stored; nothing while one is being added.
    const DirectoryRecord* selected() const { return isAdding() ? nullptr : &m_loaded; }
    /// Selects a record that is in the list; of an item both numbers count.
    bool selectRecord(const DirectoryRecord& record);
    std::string usedWords() const override;

  protected:
    std::optional<std::vector<Leaf>> readLeaves() override;
    Outcome load(int id, bool& isUsed) override;
    void clear() override;
    bool isComplete() const override;
    bool isChanged() const override { return input != m_loaded; }
    Outcome write(SaveMode mode, Leaf& saved) override;
    void holdTyped() override;
    void takeTypedBack() override;
    Outcome erase(const Leaf* leaf) override;

  private:
    struct Place {
        std::int32_t group = 0;
        std::int32_t id = 0;
        auto operator<=>(const Place&) const = default;
    };

    /// Items of different classes may have one id: they get others for the list.
    int leafIdOf(const DirectoryRecord& record);
    Leaf leafOf(const DirectoryRecord& record);
    void keep(const DirectoryRecord& record);

    const Directory& m_directory;
    DirectoryService m_service;
    std::vector<DirectoryRecord> m_groups;
    DirectoryRecord m_loaded;
    DirectoryRecord m_typed;
    DirectoryRecord m_typedOver;
    std::string m_uses;
    std::map<Place, int> m_leafIds;
    std::vector<Place> m_places;  ///< by those ids, from 1 on
};

}  // namespace chengheng
