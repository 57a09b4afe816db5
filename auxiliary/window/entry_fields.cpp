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
#include <utility>

#include "auxiliary/entries/entry_input.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "data/lookups/CGetData.h"
#include "opening/editing/typed_amount.h"
#include "screen/forms/limited_edit.h"
#include "screen/shown.h"
#include "screen/sum_hint.h"

namespace chengheng {
namespace {

constexpr int nameCharacters = 60;
constexpr auto storedDate = "yyyy-MM-dd";

/// A field in a row of its own, with its label.
template <class Edit>
Edit* addRow(QFormLayout& rows, const char* label, const char* name, Edit* edit,
             QPushButton* button = nullptr) {
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

QLineEdit* addEdit(QFormLayout& rows, const char* label, const char* name,
                   QPushButton* button = nullptr) {
    return addRow(rows, label, name, new QLineEdit, button);
}

/// A field whose text has a limit in the books.
LimitedEdit* addLimitedEdit(QFormLayout& rows, const char* label, const char* name, int limit,
                            IMessages& messages, QPushButton* button = nullptr) {
    LimitedEdit* edit = addRow(rows, label, name, new LimitedEdit(limit), button);
    tellCuts(*edit, label, messages);
    return edit;
}

/// The cursor stays where nothing changes.
void showIn(QLineEdit& edit, const std::string& text) {
    if (edit.text() != shown(text)) edit.setText(shown(text));
}

QPushButton* makeButton(const char* text, const char* of) {
    auto* button = new QPushButton(shown(text));
    button->setAutoDefault(false);
    button->setAccessibleName(shown(std::string(text) + ' ' + of));
    return button;
}

void rightAlign(QLineEdit& edit) { edit.setAlignment(Qt::AlignRight | Qt::AlignVCenter); }

}  // namespace

void EntryFields::build(QFormLayout& rows, const AuxiliaryMember& member, QWidget& directions,
                        IMessages& messages) {
    namespace texts = auxiliary_texts;
    pickDate = makeButton(texts::datePicker, texts::date);
    date = addEdit(rows, texts::date, entryDateField, pickDate);
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
    number = addEdit(rows, texts::number, entryNumberField);
    summary = addLimitedEdit(rows, texts::summary, entrySummaryField, entrySummaryWidth, messages);
    for (const DimensionWords& words : member.dimensions) {
        QPushButton* view = makeButton(texts::namePicker, words.heading);
        LimitedEdit* edit = addLimitedEdit(rows, words.heading, entryField(words.dimension),
                                           nameCharacters, messages, view);
        dimensions.push_back({words.dimension, edit, view});
    }
    rows.addRow(shown(texts::direction), &directions);
    money = addEdit(rows, texts::money, entryMoneyField);
    foreign = addEdit(rows, texts::foreign, entryForeignField);
    quantity = addEdit(rows, texts::quantity, entryQuantityField);
    for (const auto& [amount, measure] :
         {std::pair{money, Measure::money}, std::pair{foreign, Measure::foreign},
          std::pair{quantity, Measure::quantity}}) {
        rightAlign(*amount);
        showSums(*amount, [measure = measure](const QString& typed) {
            return shown(shownSum(typed.toStdString(), measure));
        });
    }
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

void EntryFields::show(const EntryFieldTexts& texts) const {
    showIn(*date, texts.date);
    showSign(texts.sign);
    showIn(*number, texts.number);
    summary->showText(shown(texts.summary));
    for (const DimensionField& field : dimensions)
        field.edit->showText(shown(nameOf(texts.names, field.dimension)));
    showIn(*money, texts.money);
    showIn(*foreign, texts.foreign);
    showIn(*quantity, texts.quantity);
}

void EntryFields::read(EntryFieldTexts& texts) const {
    texts.date = date->text().toStdString();
    texts.sign = sign->currentData().toString().toStdString();
    texts.number = number->text().toStdString();
    texts.summary = summary->text().toStdString();
    for (const DimensionField& field : dimensions)
        nameOf(texts.names, field.dimension) = field.edit->text().toStdString();
    texts.money = money->text().toStdString();
    texts.foreign = foreign->text().toStdString();
    texts.quantity = quantity->text().toStdString();
}

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
