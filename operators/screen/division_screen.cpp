#include "operators/screen/division_screen.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/system/workstation.h"
#include "operators/duties.h"
#include "operators/operator_texts.h"
#include "operators/presets.h"
#include "operators/screen/division_texts.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

const RightsGroup& groupAt(int group) { return rightsGroups()[static_cast<std::size_t>(group)]; }

std::int32_t userIdOf(const OperatorRecord& record) { return record.user.lUserId; }

}  // namespace

void DivisionScreen::readOperators(DivisionPlace wanted) {
    auto read = m_service.readAll();
    m_isRead = read.has_value();
    m_operators = m_isRead ? *std::move(read) : std::vector<OperatorRecord>();
    m_selected = nearest(wanted);
}

/// The operator of a place that has gone, else the first.
DivisionPlace DivisionScreen::nearest(const DivisionPlace& wanted) const {
    const OperatorRecord* record = recordOf(wanted.userId);
    if (record == nullptr) return {m_operators.empty() ? 0 : m_operators.front().user.lUserId};
    const bool isThere = std::ranges::any_of(
        leavesOf(*record), [&](const DivisionLeaf& leaf) { return leaf.leaf == wanted.leaf; });
    return isThere ? wanted : DivisionPlace{wanted.userId};
}

const OperatorRecord* DivisionScreen::recordOf(std::int32_t userId) const {
    const auto found = std::ranges::find(m_operators, userId, userIdOf);
    return found == m_operators.end() ? nullptr : &*found;
}

std::vector<DivisionLeaf> DivisionScreen::leavesOf(const OperatorRecord& record) const {
    if (record.isSupervisor()) return {{supervisorLeaf, division_texts::supervisor}};
    std::vector<DivisionLeaf> leaves;
    for (int group = 0; group < rightsGroupCount; ++group) {
        // The opened group stays while its functions are being cleared and checked.
        const bool isOpened = m_selected == DivisionPlace{record.user.lUserId, group};
        if (isOpened || record.rights.state(group) != GroupState::none)
            leaves.push_back({group, groupAt(group).name});
    }
    return leaves;
}

std::vector<DivisionItem> DivisionScreen::items() const {
    std::vector<DivisionItem> items;
    items.reserve(m_operators.size());
    for (const OperatorRecord& record : m_operators)
        items.push_back({record.user.lUserId, record.user.sUserName, leavesOf(record)});
    return items;
}

DivisionBoxes DivisionScreen::boxes() const {
    DivisionBoxes boxes;
    const OperatorRecord* record = selectedRecord();
    for (int index = 0; index < rightsGroupCount; ++index) {
        DivisionBox& box = boxes.at(static_cast<std::size_t>(index));
        const int group = m_selected.leaf;
        if (record != nullptr && group >= 0) {
            if (index >= functionsOf(group)) continue;
            const bool has = record->rights.grants(firstFunctionOf(group) + index);
            box = {groupAt(group).functions[static_cast<std::size_t>(index)],
                   has ? GroupState::all : GroupState::none, true, true};
            continue;
        }
        box = {groupAt(index).name, GroupState::none, true, false};
        if (record == nullptr) continue;
        box.state = record->isSupervisor() ? GroupState::all : record->rights.state(index);
        box.isEnabled = !record->isSupervisor();
    }
    return boxes;
}

std::string DivisionScreen::boxesTitle() const {
    const OperatorRecord* record = selectedRecord();
    if (record == nullptr) return division_texts::noOperator;
    const std::string& name = record->user.sUserName;
    return m_selected.leaf < 0
               ? fmt::format(division_texts::groupsOf, name)
               : fmt::format(division_texts::functionsOf, name, groupAt(m_selected.leaf).name);
}

void DivisionScreen::select(const DivisionPlace& place) { m_selected = nearest(place); }

std::string DivisionScreen::userText() {
    return fmt::format(division_texts::userAtWork, systemUserName());
}

void DivisionScreen::setBox(int box, bool isChecked) {
    const DivisionBox shown = boxes().at(static_cast<std::size_t>(box));
    if (!m_isRead || !shown.isShown || !shown.isEnabled) return;
    const bool isGranted = isChecked && shown.state == GroupState::none;
    OperatorRights wanted = selectedRecord()->rights;
    if (m_selected.leaf >= 0)
        wanted.setFunction(m_selected.leaf, box, isGranted);
    else
        wanted.setGroup(box, isGranted);
    saveRights(wanted);
}

OperatorRecord& DivisionScreen::selectedForChange() {
    return *std::ranges::find(m_operators, m_selected.userId, userIdOf);
}

std::string DivisionScreen::dutiesText() const {
    if (selectedRecord() == nullptr) return {};
    std::string words;
    for (const char* duty : incompatibleDutiesOf(*selectedRecord())) {
        if (!words.empty()) words += division_texts::betweenDuties;
        words += duty;
    }
    return words.empty() ? words : fmt::format(division_texts::duties, words);
}

std::vector<RightsSource> DivisionScreen::rightsSources() const {
    std::vector<RightsSource> sources;
    for (const RightsPreset& preset : rightsPresets())
        sources.push_back({preset.name, preset.rights()});
    for (const OperatorRecord& record : m_operators)
        if (!record.isSupervisor() && userIdOf(record) != m_selected.userId)
            sources.push_back(
                {fmt::format(division_texts::sameAs, record.user.sUserName), record.rights});
    return sources;
}

void DivisionScreen::giveRights(const OperatorRights& rights) {
    if (!canGiveRights()) return;
    m_selected.leaf = noLeaf;
    if (!changeBetween(selectedRecord()->rights, rights).isEmpty()) saveRights(rights);
}

std::string DivisionScreen::whoMay(int function) const {
    std::string names;
    for (const OperatorRecord& record : m_operators) {
        if (!record.isSupervisor() && !record.rights.grants(function)) continue;
        if (!names.empty()) names += division_texts::betweenNames;
        names += record.isSupervisor()
                     ? fmt::format(division_texts::supervisorName, record.user.sUserName)
                     : record.user.sUserName;
    }
    return fmt::format(division_texts::whoMayOperators, functionName(function),
                       names.empty() ? division_texts::nobody : names);
}

bool DivisionScreen::canMakeSupervisor() const {
    return selectedRecord() != nullptr && !selectedRecord()->isSupervisor();
}

bool DivisionScreen::canEndSupervisor() const {
    return selectedRecord() != nullptr && selectedRecord()->isSupervisor();
}

void DivisionScreen::setSupervisor(bool isSupervisor) {
    if (!(isSupervisor ? canMakeSupervisor() : canEndSupervisor())) return;
    const Outcome outcome = m_service.setSupervisor(isSupervisor, selectedForChange());
    if (outcome == Outcome::stale && m_service.mayReadAgain()) refresh();
    if (outcome == Outcome::done) m_selected = {m_selected.userId};
}

/// False when the rights are still what they were, or all operators were read anew.
bool DivisionScreen::saveRights(const OperatorRights& wanted) {
    OperatorRecord& record = selectedForChange();
    const Outcome outcome = m_service.saveRights(changeBetween(record.rights, wanted), record);
    if (outcome == Outcome::stale && m_service.mayReadAgain()) refresh();
    return outcome == Outcome::done;
}

void DivisionScreen::remove() {
    if (!canDelete()) return;
    m_selected.leaf >= 0 ? removeGroup() : removeOperator();
}

void DivisionScreen::removeOperator() {
    const OperatorRecord* record = selectedRecord();
    if (m_service.remove(record) != Outcome::done) return;
    std::erase_if(m_operators, [id = m_selected.userId](const OperatorRecord& each) {
        return userIdOf(each) == id;
    });
    m_selected = nearest({g_lpLogonUserInfo == nullptr ? 0 : g_lpLogonUserInfo->lUserId});
}

void DivisionScreen::removeGroup() {
    const DivisionPlace after = placeAfter(m_selected.leaf);
    OperatorRights wanted = selectedRecord()->rights;
    wanted.setGroup(m_selected.leaf, false);
    if (saveRights(wanted)) m_selected = nearest(after);
}

DivisionPlace DivisionScreen::placeAfter(int leaf) const {
    const std::vector<DivisionLeaf> leaves = leavesOf(*selectedRecord());
    const auto at = std::ranges::find(leaves, leaf, &DivisionLeaf::leaf);
    if (at != leaves.end() && std::next(at) != leaves.end())
        return {m_selected.userId, std::next(at)->leaf};
    if (at != leaves.begin() && at != leaves.end()) return {m_selected.userId, std::prev(at)->leaf};
    return {m_selected.userId};
}

bool DivisionScreen::mayModify() {
    if (!m_isRead) return false;
    if (selectedRecord() != nullptr) return m_service.readMark(selectedForChange());
    m_messages.tell({.text = operator_texts::nothingToModify});
    return false;
}

void DivisionScreen::take(const OperatorForm& form) {
    if (form.wantsReadingAgain()) return refresh();
    if (!form.isDone()) return;
    const _UsersInfo& user = form.record().user;
    const auto known = std::ranges::find(m_operators, user.lUserId, userIdOf);
    if (known != m_operators.end()) {
        known->user = user;
        known->wantsNewPassword = form.record().wantsNewPassword;
        return;
    }
    m_operators.push_back(form.record());
    m_selected = {user.lUserId};
}

}  // namespace chengheng
