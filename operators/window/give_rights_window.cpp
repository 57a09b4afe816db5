#include "operators/window/give_rights_window.h"

#include <fmt/format.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "operators/presets.h"
#include "operators/screen/division_texts.h"
#include "screen/form_style.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = division_texts;

constexpr int givingCharacters = 36;
constexpr int previewLines = 9;

}  // namespace

GiveRightsWindow::GiveRightsWindow(const OperatorRecord& record, std::vector<RightsSource> sources,
                                   QWidget* parent)
    : CNxMiddleDialog(parent), m_record(record), m_sources(std::move(sources)) {
    setWindowTitle(shown(fmt::format(texts::giveTitle, record.user.sUserName)));
    m_choice = new QComboBox;
    m_choice->setObjectName(QStringLiteral("source"));
    for (const RightsSource& source : m_sources) m_choice->addItem(shown(source.name));
    m_preview = new QLabel;
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setTextFormat(Qt::PlainText);
    m_preview->setWordWrap(true);
    m_preview->setAlignment(Qt::AlignTop);
    auto* scrolled = new QScrollArea;
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(m_preview);
    scrolled->setMinimumHeight(previewLines * fontMetrics().lineSpacing());
    auto* rows = new QFormLayout;
    rows->addRow(shown(texts::giveAs), m_choice);
    auto* column = new QVBoxLayout(this);
    column->addLayout(rows);
    column->addWidget(new QLabel(shown(texts::givePreview)));
    column->addWidget(scrolled, 1);
    column->addWidget(makeConfirmation());
    widen(this, givingCharacters);
    connect(m_choice, &QComboBox::currentIndexChanged, this, guarded([this] { showPreview(); }));
    showPreview();
    m_choice->setFocus();
}

const OperatorRights& GiveRightsWindow::rights() const {
    return m_sources[static_cast<std::size_t>(m_choice->currentIndex())].rights;
}

void GiveRightsWindow::showPreview() {
    m_preview->setText(shown(rightsDifference(m_record.rights, rights())));
}

}  // namespace chengheng
