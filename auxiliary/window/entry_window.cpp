#include "auxiliary/window/entry_window.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "auxiliary/members/auxiliary_texts.h"
#include "directories/window/open_directory.h"
#include "screen/enter_moves_on.h"
#include "screen/forms/limited_edit.h"
#include "screen/grid/picker_window.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

const char* headingOf(const AuxiliaryMember& member, Dimension dimension) {
    for (const DimensionWords& words : member.dimensions)
        if (words.dimension == dimension) return words.heading;
    return "";
}

std::vector<PickerRow> rowsOf(const std::vector<DimensionChoice>& choices) {
    const std::vector<std::string> codes = codesToPickFrom(choices);
    std::vector<PickerRow> rows;
    rows.reserve(choices.size());
    for (std::size_t place = 0; place < choices.size(); ++place)
        rows.push_back({codes[place], choices[place].name});
    return rows;
}

/// -1 where the record may not be named here.
int placeOf(const ChosenRecord& chosen, const std::vector<DimensionChoice>& choices) {
    const auto found = std::ranges::find_if(choices, [&chosen](const DimensionChoice& choice) {
        return choice.id == chosen.record.id &&
               (choice.itemClass.empty() || choice.itemClass == chosen.groupCode);
    });
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

}  // namespace

EntryWindow::EntryWindow(EntryForm& form, Writer write, QWidget* parent)
    : CNxMiddleDialog(parent), m_form(form), m_write(std::move(write)) {
    setWindowTitle(shown(form.title()));
    setMinimumWidth(entryDialogCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
}

bool EntryWindow::OnInitDialog() {
    buildControls();
    UpdateData(false);
    m_fields.date->setFocus();
    m_fields.date->selectAll();
    return false;
}

QWidget* EntryWindow::buildDirections() {
    auto* directions = new QWidget(this);
    m_debit = new QRadioButton(shown(auxiliary_texts::debitChoice), directions);
    m_credit = new QRadioButton(shown(auxiliary_texts::creditChoice), directions);
    auto* line = new QHBoxLayout(directions);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_debit);
    line->addWidget(m_credit);
    line->addStretch(1);
    return directions;
}

void EntryWindow::buildControls() {
    auto* rows = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    rows->addLayout(fields);
    m_fields.build(*fields, m_form.member(), *buildDirections(), messages());
    m_fields.foreign->setEnabled(m_form.account().hasForeign);
    m_fields.quantity->setEnabled(m_form.account().hasQuantity);
    auto* buttons = new QDialogButtonBox(this);
    auto* confirm = buttons->addButton(shown(screen_texts::confirm), QDialogButtonBox::AcceptRole);
    confirm->setDefault(true);
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    rows->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { OnOK(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, guarded([this] { giveUp(true); }));
    connect(m_fields.pickDate, &QPushButton::clicked, this,
            guarded([this] { pickDateFor(*m_fields.date, *this); }));
    for (const DimensionField& field : m_fields.dimensions) connectDimension(field);

    QList<QWidget*> inOrder{m_fields.date, m_fields.sign, m_fields.number, m_fields.summary};
    for (const DimensionField& field : m_fields.dimensions) inOrder.append(field.edit);
    inOrder.append({m_fields.money, m_fields.foreign, m_fields.quantity});
    inOrder.removeIf([](QWidget* field) { return !field->isEnabled(); });
    new EnterMovesOn(this, inOrder);
}

void EntryWindow::connectDimension(const DimensionField& field) {
    connect(field.edit, &QLineEdit::editingFinished, this,
            guarded([this, dimension = field.dimension] { settle(dimension); }));
    connect(field.view, &QPushButton::clicked, this, guarded([this, field] { browse(field); }));
}

/// A code becomes a name when its field is left; which of equal names is meant is asked later.
void EntryWindow::settle(Dimension dimension) {
    if (isEnded()) return;
    UpdateData();
    m_form.settle(dimension, [](Dimension, const std::vector<DimensionChoice>&) {
        return std::optional<DimensionChoice>();
    });
    UpdateData(false);
}

void EntryWindow::browse(const DimensionField& field) {
    UpdateData();
    if (auto choices = m_form.choices(field.dimension)) {
        const auto chosen = pick(field.dimension, *choices, MayAdd::yes);
        if (chosen) m_form.choose(field.dimension, *chosen);
    }
    UpdateData(false);
    field.edit->setFocus();
    field.edit->selectAll();
}

std::optional<DimensionChoice> EntryWindow::pick(Dimension dimension,
                                                 std::vector<DimensionChoice> choices,
                                                 MayAdd mayAdd) {
    PickerWindow picker(shown(headingOf(m_form.member(), dimension)), rowsOf(choices), this);
    const auto readAnew =
        [&](const std::optional<ChosenRecord>& chosen) -> std::optional<PickerChange> {
        auto anew = m_form.choices(dimension);
        if (!anew) return std::nullopt;
        choices = std::move(*anew);
        return PickerChange{rowsOf(choices), chosen ? placeOf(*chosen, choices) : -1};
    };
    const auto at = [&choices](std::size_t position) {
        const DimensionChoice& choice = choices[position];
        return ChosenRecord{.record = {.id = choice.id}, .groupCode = choice.itemClass};
    };
    if (mayAdd == MayAdd::yes)
        offerDirectory(picker, directoryKindOf(dimension), messages(), {readAnew, at});
    const int chosen = picker.choose();
    if (chosen < 0) return std::nullopt;
    return choices[static_cast<std::size_t>(chosen)];
}

void EntryWindow::DoDataExchange(bool isSaving) {
    EntryInput& input = m_form.input;
    if (isSaving) {
        m_fields.read(input);
        input.isDebit = m_debit->isChecked();
        return;
    }
    m_fields.show(input);
    (input.isDebit ? m_debit : m_credit)->setChecked(true);
}

void EntryWindow::OnOK() {
    UpdateData();
    const auto entry =
        m_form.accept([this](Dimension dimension, const std::vector<DimensionChoice>& choices) {
            return pick(dimension, choices, MayAdd::no);
        });
    UpdateData(false);
    if (entry && m_write(*entry)) return EndDialog(Accepted);
    if (!entry) goTo(m_form.focusField());
}

void EntryWindow::goTo(const std::string& field) {
    QWidget* wanted = m_fields.named(field);
    if (wanted == nullptr) return;
    wanted->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(wanted)) edit->selectAll();
}

void EntryWindow::OnCancel() { giveUp(false); }

void EntryWindow::giveUp(bool isByButton) {
    UpdateData();
    if (m_form.mayGiveUp(isByButton)) EndDialog(Rejected);
}

}  // namespace chengheng
