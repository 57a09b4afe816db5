#include "vouchertype/window/preset_wizard.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "screen/form_style.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/shown.h"
#include "session/last_failure.h"
#include "vouchertype/preset/preset_texts.h"

namespace chengheng {

namespace {

constexpr int widthCharacters = 36;
// Of the longest preview, so that the window keeps its size and stays on the screen.
constexpr int previewLines = 7;

struct Way {
    PresetSet set;
    const char* caption;
    const char* name;
};
constexpr Way ways[] = {
    {PresetSet::receiptsAndPayments, preset_texts::receiptsAndPayments, "receiptsAndPayments"},
    {PresetSet::cashAndBank, preset_texts::cashAndBank, "cashAndBank"},
    {PresetSet::fiveKinds, preset_texts::fiveKinds, "fiveKinds"},
    {PresetSet::custom, preset_texts::custom, "custom"},
};

}  // namespace

PresetWizard::PresetWizard(QWidget* parent)
    : CNxMiddleDialog(parent), m_atWork(preset_texts::title), m_service(messages()) {
    setWindowTitle(shown(preset_texts::title));
}

bool PresetWizard::OnInitDialog() {
    m_sheets = new QStackedWidget(this);
    m_sheets->addWidget(buildClassifying());
    m_sheets->addWidget(buildWays());
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_sheets, 1);
    column->addWidget(buildButtons());
    widen(this, widthCharacters);
    showPage();
    return false;
}

QWidget* PresetWizard::buildClassifying() {
    auto* group = new QGroupBox(shown(preset_texts::classifyingGroup));
    auto* column = new QVBoxLayout(group);
    column->addWidget(new QLabel(shown(preset_texts::classifyingQuestion)));
    m_classified = addChoice(*column, preset_texts::classified, "classified");
    addChoice(*column, preset_texts::unclassified, "unclassified");
    m_classified->setChecked(true);
    column->addStretch();
    return group;
}

QWidget* PresetWizard::buildWays() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(new QLabel(shown(preset_texts::waysOfClassifying)));
    for (const Way& way : ways) m_ways.push_back(addChoice(*column, way.caption, way.name));
    m_ways.front()->setChecked(true);
    m_preview = new QLabel;
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setTextFormat(Qt::PlainText);
    m_preview->setWordWrap(true);
    styleHint(m_preview);
    m_preview->setAlignment(Qt::AlignTop);
    m_preview->setMinimumHeight(previewLines * m_preview->fontMetrics().lineSpacing());
    column->addWidget(m_preview);
    column->addStretch();
    return page;
}

QWidget* PresetWizard::buildButtons() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins({});
    row->addStretch();
    m_back = addButton(preset_texts::back, "back", &PresetWizard::goBack);
    m_next = addButton(preset_texts::next, "next", &PresetWizard::goOn);
    m_finish = addButton(preset_texts::finish, "finish", &PresetWizard::finish);
    auto* cancelling = addButton(preset_texts::cancel, "cancel", &PresetWizard::cancel);
    for (QPushButton* button : {m_back, m_next, m_finish, cancelling}) row->addWidget(button);
    return bar;
}

QPushButton* PresetWizard::addButton(const char* caption, const char* name,
                                     void (PresetWizard::*work)()) {
    auto* button = new QPushButton(shown(caption), this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, guarded([this, work] { (this->*work)(); }));
    return button;
}

QRadioButton* PresetWizard::addChoice(QVBoxLayout& column, const char* caption, const char* name) {
    auto* choice = new QRadioButton(shown(caption));
    choice->setObjectName(QLatin1String(name));
    column.addWidget(choice);
    connect(choice, &QRadioButton::toggled, this, guarded([this] { follow(); }));
    return choice;
}

void PresetWizard::follow() {
    if (m_finish == nullptr) return;  // the pages are being built
    m_pages.isClassified = m_classified->isChecked();
    for (qsizetype at = 0; at < m_ways.size(); ++at)
        if (m_ways[at]->isChecked()) m_pages.way = ways[at].set;
    showButtons();
    if (m_pages.page() == 2) showPreview();
}

void PresetWizard::goBack() {
    m_pages.goBack();
    showPage();
}

void PresetWizard::goOn() {
    m_pages.goOn();
    showPage();
}

void PresetWizard::finish() {
    if (m_service.finish(m_pages.chosen()) == Outcome::done) EndDialog(finished);
}

void PresetWizard::showPage() {
    m_sheets->setCurrentIndex(m_pages.page() - 1);
    showButtons();
    if (m_pages.page() == 2) showPreview();
    for (QRadioButton* choice : m_sheets->currentWidget()->findChildren<QRadioButton*>())
        if (choice->isChecked()) choice->setFocus(Qt::TabFocusReason);
}

void PresetWizard::showButtons() {
    m_back->setEnabled(m_pages.canGoBack());
    m_next->setVisible(m_pages.canGoOn());
    m_finish->setVisible(m_pages.canFinish());
    (m_pages.canGoOn() ? m_next : m_finish)->setDefault(true);
}

void PresetWizard::showPreview() {
    const auto accounts = m_service.accounts();
    QStringList lines;
    if (accounts)
        for (const std::string& line : presetPreview(m_pages.way, *accounts)) lines << shown(line);
    else
        lines << shown(lastFailureText());
    m_preview->setText(lines.join('\n'));
}

bool PresetWizard::OnHelpInfo() {
    showHelp(voucherTypeHelpContext, *this);
    return true;
}

}  // namespace chengheng
