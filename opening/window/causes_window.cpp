#include "opening/window/causes_window.h"

#include <fmt/format.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr QSize causesWindowSize(640, 400);

}  // namespace

CausesWindow::CausesWindow(double difference, std::vector<ImbalanceCause> causes, QWidget* parent)
    : CNxMiddleDialog(parent), m_causes(std::move(causes)) {
    setWindowTitle(shown(opening_texts::causesTitle));
    buildControls(difference);
    resize(causesWindowSize);
}

void CausesWindow::buildControls(double difference) {
    const std::string amount = ftoaWithSap(difference, 2);
    auto* label =
        new QLabel(shown(difference == 0    ? std::string(opening_texts::nothingToExplain)
                         : m_causes.empty() ? fmt::format(opening_texts::noCauses, amount)
                                            : fmt::format(opening_texts::causesHeading, amount)),
                   this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QStringList lines;
    for (const ImbalanceCause& cause : m_causes) lines.append(shown(cause.text));
    m_list = new QListView(this);
    m_list->setModel(new QStringListModel(lines, this));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setAccessibleName(shown(opening_texts::causesTitle));
    m_list->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(this);
    m_goes = buttons->addButton(shown(opening_texts::goToAccount), QDialogButtonBox::AcceptRole);
    m_goes->setDefault(true);
    buttons->addButton(shown(opening_texts::close), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { OnOK(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    connect(m_list, &QListView::doubleClicked, this, [this] { OnOK(); });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { m_goes->setEnabled(chosenPlace().has_value()); });
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(label);
    rows->addWidget(m_list, 1);
    rows->addWidget(buttons);
    m_list->setCurrentIndex(m_list->model()->index(0, 0));
    m_goes->setEnabled(chosenPlace().has_value());
    m_list->setFocus();
}

std::optional<std::size_t> CausesWindow::chosenPlace() const {
    const int row = m_list->currentIndex().row();
    return row < 0 ? std::nullopt : m_causes[static_cast<std::size_t>(row)].place;
}

void CausesWindow::OnOK() {
    if (chosenPlace()) EndDialog(Accepted);
}

}  // namespace chengheng
