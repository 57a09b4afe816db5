#include "auxiliary/window/entry_fields.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDate>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "auxiliary/entries/entry_input.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "data/lookups/CGetData.h"
#include "screen/forms/limited_edit.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int dateCharacters = 10;
constexpr int nameCharacters = 60;
constexpr int amountCharacters = 40;
constexpr auto storedDate = "yyyy-MM-dd";

QLineEdit* addEdit(QFormLayout& rows, const char* label, const char* name, int limit,
                   QPushButton* button = nullptr) {
    auto* edit = new LimitedEdit(limit);
    edit->setObjectName(QString::fromLatin1(name));
    auto* caption = new QLabel(shown(label));
    caption->setBuddy(edit);
    if (button == nullptr) {
        rows.addRow(caption, edit);
        return edit;
    }
    auto* line = new QHBoxLayout;
    line->addWidget(edit, 1);
    line->addWidget(button);
    rows.addRow(caption, line);
    return edit;
}

QPushButton* makeButton(const char* text, const char* of) {
    auto* button = new QPushButton(shown(text));
    button->setAutoDefault(false);
    button->setAccessibleName(shown(std::string(text) + ' ' + of));
    return button;
}

void rightAlign(QLineEdit& edit) { edit.setAlignment(Qt::AlignRight | Qt::AlignVCenter); }

}  // namespace

void EntryFields::build(QFormLayout& rows, const AuxiliaryMember& member, QWidget& directions) {
    namespace texts = auxiliary_texts;
    pickDate = makeButton(texts::datePicker, texts::date);
    date = addEdit(rows, texts::date, entryDateField, dateCharacters, pickDate);
    sign = new QComboBox;
    sign->setObjectName(QString::fromLatin1(entrySignField));
    sign->addItem(QString(), QString());
    for (std::size_t place = 0; place < CGetData::m_csaSignTable.size(); ++place) {
        const std::string& code = CGetData::m_csaSignTable[place];
        sign->addItem(shown(code + ' ' + CGetData::m_csaSignNameTable[place]), shown(code));
    }
    auto* signLabel = new QLabel(shown(texts::voucherType));
    signLabel->setBuddy(sign);
    rows.addRow(signLabel, sign);
    number = addEdit(rows, texts::number, entryNumberField, entryNumberWidth);
    summary = addEdit(rows, texts::summary, entrySummaryField, entrySummaryWidth);
    for (const DimensionWords& words : member.dimensions) {
        QPushButton* view = makeButton(texts::namePicker, words.heading);
        QLineEdit* edit =
            addEdit(rows, words.heading, entryField(words.dimension), nameCharacters, view);
        dimensions.push_back({words.dimension, edit, view});
    }
    rows.addRow(shown(texts::direction), &directions);
    money = addEdit(rows, texts::money, entryMoneyField, amountCharacters);
    foreign = addEdit(rows, texts::foreign, entryForeignField, amountCharacters);
    quantity = addEdit(rows, texts::quantity, entryQuantityField, amountCharacters);
    for (QLineEdit* amount : {money, foreign, quantity}) rightAlign(*amount);
    orderTabs(directions);
}

void EntryFields::orderTabs(QWidget& directions) const {
    QList<QWidget*> inOrder{date, pickDate, sign, number, summary};
    for (const DimensionField& field : dimensions) inOrder << field.edit << field.view;
    for (auto* button : directions.findChildren<QAbstractButton*>()) inOrder << button;
    inOrder << money << foreign << quantity;
    for (qsizetype place = 1; place < inOrder.size(); ++place)
        QWidget::setTabOrder(inOrder[place - 1], inOrder[place]);
}

QWidget* EntryFields::named(const std::string& name) const {
    for (QWidget* field :
         std::initializer_list<QWidget*>{date, sign, number, summary, money, foreign, quantity})
        if (field->objectName() == shown(name)) return field;
    for (const DimensionField& field : dimensions)
        if (field.edit->objectName() == shown(name)) return field.edit;
    return nullptr;
}

std::string EntryFields::signCode() const { return sign->currentData().toString().toStdString(); }

/// A type that is no longer in the list is added, so that nothing stored is lost.
void EntryFields::showSign(const std::string& code) const {
    int place = sign->findData(shown(code));
    if (place < 0) {
        sign->addItem(shown(code), shown(code));
        place = sign->count() - 1;
    }
    sign->setCurrentIndex(place);
}

void pickDateFor(QLineEdit& field, QWidget& window) {
    QDialog box(&window, Qt::Popup);
    auto* calendar = new QCalendarWidget(&box);
    calendar->setLocale(QLocale(QLocale::Chinese));
    calendar->setAccessibleName(shown(auxiliary_texts::date));
    const QDate typed = QDate::fromString(field.text().trimmed(), QString::fromLatin1(storedDate));
    if (typed.isValid()) calendar->setSelectedDate(typed);
    auto* rows = new QVBoxLayout(&box);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(calendar);
    QObject::connect(calendar, &QCalendarWidget::activated, &box, &QDialog::accept);
    QObject::connect(calendar, &QCalendarWidget::clicked, &box, &QDialog::accept);
    box.move(field.mapToGlobal(QPoint(0, field.height())));
    calendar->setFocus();
    if (box.exec() == QDialog::Accepted)
        field.setText(calendar->selectedDate().toString(QString::fromLatin1(storedDate)));
    field.setFocus();
}

}  // namespace chengheng
