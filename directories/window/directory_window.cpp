#include "directories/window/directory_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

#include "directories/directory_list.h"
#include "directories/directory_rules.h"
#include "directories/directory_texts.h"
#include "directories/transfer/directory_transfer_texts.h"
#include "directories/window/directory_files.h"
#include "operationlog/history/directory_subject.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = directory_texts;

QString fieldLabel(const char* label, char key) {
    return QStringLiteral("%1(&%2):").arg(shown(label)).arg(QLatin1Char(key));
}

}  // namespace

DirectoryWindow::DirectoryWindow(const Directory& directory, QWidget* parent)
    : ListFormDialog({.title = directory.title, .helpContext = directoryHelpContext}, parent),
      m_form(messages(), directory) {}

bool DirectoryWindow::OnInitDialog() {
    const bool isFocusSet = ListFormDialog::OnInitDialog();
    if (m_startsAt) select(*m_startsAt);
    if (m_startsWithAddition) OnMenuInsert();
    return isFocusSet;
}

void DirectoryWindow::select(const ChosenRecord& wanted) {
    DirectoryRecord record = wanted.record;
    for (const DirectoryRecord& group : m_form.groups())
        if (record.group == 0 && group.code == wanted.groupCode) record.group = group.id;
    m_form.selectRecord(record);
    showAnew();
}

std::optional<ChosenRecord> DirectoryWindow::chosen() const {
    const DirectoryRecord* record = m_form.selected();
    if (record == nullptr) return std::nullopt;
    const DirectoryRecord* group = m_form.groupOf(*record);
    return ChosenRecord{*record, group == nullptr ? std::string() : group->code};
}

void DirectoryWindow::addFields() {
    m_code = addEdit(texts::code, 'U', directoryCodeField, directoryCodeWidth);
    m_name = addEdit(texts::name, 'M', directoryNameField, directoryNameWidth);
    if (const auto groups = m_form.directory().groups) addGroups(*groups);
    if (m_form.directory().hasUnitKinds) addKinds();
}

void DirectoryWindow::addGroups(DirectoryKind groups) {
    m_group = new QComboBox;
    m_group->setObjectName(QString::fromLatin1(directoryGroupField));
    m_group->setMinimumContentsLength(12);
    m_openGroups = new QPushButton(shown(texts::openGroups));
    m_openGroups->setAutoDefault(false);
    m_openGroups->setAccessibleName(shown(directoryOf(groups).title));
    addField(*m_group, fieldLabel(m_form.directory().groupLabel, 'G'), m_openGroups);
    connect(m_group, &QComboBox::currentIndexChanged, this,
            guarded([this] { inputEdited(*m_group); }));
    connect(m_openGroups, &QPushButton::clicked, this,
            guarded([this, groups] { openGroups(groups); }));
}

void DirectoryWindow::addKinds() {
    m_kind = new QComboBox;
    m_kind->setObjectName(QString::fromLatin1(directoryKindField));
    for (const char* kind : texts::unitKinds) m_kind->addItem(shown(kind));
    addField(*m_kind, fieldLabel(texts::unitKind, 'X'));
    connect(m_kind, &QComboBox::currentIndexChanged, this,
            guarded([this] { inputEdited(*m_kind); }));
}

/// The groups as the form has them, with nothing chosen that is not among them.
void DirectoryWindow::showGroups() {
    const std::vector<DirectoryRecord>& groups = m_form.groups();
    bool isShown = m_group->count() == static_cast<int>(groups.size());
    for (int place = 0; isShown && place < m_group->count(); ++place) {
        const DirectoryRecord& group = groups[static_cast<std::size_t>(place)];
        isShown = m_group->itemData(place).toInt() == group.id &&
                  m_group->itemText(place) == shown(directoryLine(group));
    }
    if (!isShown) {
        m_group->clear();
        for (const DirectoryRecord& group : groups)
            m_group->addItem(shown(directoryLine(group)), group.id);
    }
    m_group->setCurrentIndex(m_group->findData(m_form.input.group));
    m_group->setEnabled(m_form.mayChangeGroup());
}

/// It comes up with the group of the record in the form; what is chosen there takes its place.
void DirectoryWindow::openGroups(DirectoryKind groups) {
    DirectoryStart start;
    if (const DirectoryRecord* group = m_form.groupOf(m_form.input))
        start.selected = ChosenRecord{.record = *group, .groupCode = {}};
    const auto chosen = openDirectory(groups, *this, messages(), start);
    m_form.readGroups();
    if (chosen && m_form.mayChangeGroup()) m_form.input.group = chosen->record.id;
    showAnew();
    m_group->setFocus(Qt::OtherFocusReason);
}

void DirectoryWindow::DoDataExchange(bool isSaving) {
    DirectoryRecord& input = m_form.input;
    if (isSaving) {
        input.code = m_code->text().toStdString();
        input.name = m_name->text().toStdString();
        // A group that has vanished stays as it is until another is chosen.
        if (m_group != nullptr && m_group->currentIndex() >= 0)
            input.group = m_group->currentData().toInt();
        if (m_kind != nullptr) input.unitKind = static_cast<UnitKind>(m_kind->currentIndex());
        return;
    }
    m_code->showText(shown(input.code));
    m_name->showText(shown(input.name));
    if (m_group != nullptr) showGroups();
    if (m_kind != nullptr) m_kind->setCurrentIndex(static_cast<int>(input.unitKind));
}

HistorySubject DirectoryWindow::selectedHistory() {
    const DirectoryRecord& record = *m_form.selected();
    const DirectoryRecord* const group = m_form.groupOf(record);
    return directorySubject(m_form.directory().kind, record.id,
                            group == nullptr ? std::string_view() : group->code);
}

void DirectoryWindow::printRecords(ReportOutput output) {
    printList(directoryList(m_form.directory()), output, messages());
}

std::span<const MenuItemResource> DirectoryWindow::ownFileItems() const {
    static constexpr MenuItemResource items[] = {
        {importCommand, directory_transfer_texts::importCommand},
        {exportCommand, directory_transfer_texts::exportCommand},
    };
    return items;
}

bool DirectoryWindow::OnCommand(int command) {
    const Directory& directory = m_form.directory();
    if (command == importCommand)
        workOnRecords([&] { return importFromChosenFile(directory, messages(), this); });
    else if (command == exportCommand)
        exportToChosenFile(directory, messages(), this);
    else
        return ListFormDialog::OnCommand(command);
    return true;
}

}  // namespace chengheng
