#include "vouchertype/window/trial_pane.h"

#include <QAbstractListModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "screen/colours.h"
#include "screen/form_style.h"
#include "screen/guarded.h"
#include "screen/shown.h"
#include "vouchertype/screen/trial_screen_texts.h"
#include "vouchertype/window/trial_grid.h"

namespace chengheng {

/// What is said of the voucher, a row each.
class TrialWordModel final : public QAbstractListModel {
  public:
    explicit TrialWordModel(const TrialScreen& screen) : m_screen(screen) {}

    void show() {
        beginResetModel();
        endResetModel();
    }
    const TrialWord* wordAt(const QModelIndex& index) const {
        const auto place = static_cast<std::size_t>(index.row());
        return index.isValid() && place < m_screen.words().size() ? &m_screen.words()[place]
                                                                  : nullptr;
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_screen.words().size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const TrialWord* word = wordAt(index);
        if (word == nullptr) return {};
        if (role == Qt::DisplayRole) return shown(word->text);
        return role == Qt::ForegroundRole ? QVariant(colourOf(word->kind)) : QVariant();
    }

  private:
    static QColor colourOf(TrialWord::Kind kind) {
        switch (kind) {
            case TrialWord::Kind::fault:
            case TrialWord::Kind::refused:
                return colours::seal;
            case TrialWord::Kind::allowed:
                return colours::teal;
            case TrialWord::Kind::note:
                break;
        }
        return colours::quietInk;
    }

    const TrialScreen& m_screen;
};

TrialPane::TrialPane(IMessages& messages, QWidget* parent)
    : QWidget(parent),
      m_messages(messages),
      m_screen(messages),
      m_grid(new TrialGrid(m_screen, this)),
      m_words(std::make_unique<TrialWordModel>(m_screen)),
      m_list(new QListView(this)) {
    auto* hint = new QLabel(shown(trial_screen_texts::hint));
    styleHint(hint);
    auto* paste = new QPushButton(shown(trial_screen_texts::paste));
    auto* clearing = new QPushButton(shown(trial_screen_texts::clear));
    auto* bar = new QHBoxLayout;
    bar->addWidget(hint, 1);
    for (QPushButton* button : {paste, clearing}) {
        button->setAutoDefault(false);
        bar->addWidget(button);
    }
    m_list->setObjectName(QStringLiteral("trialWords"));
    m_list->setAccessibleName(shown(trial_screen_texts::results));
    m_list->setModel(m_words.get());
    m_list->setWordWrap(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* column = new QVBoxLayout(this);
    column->addLayout(bar);
    column->addWidget(m_grid, 1);
    column->addWidget(m_list, 1);

    const auto guard = [this](void (TrialPane::*work)()) {
        return [this, work] { guarded(work); };
    };
    connect(m_grid, &TrialGrid::changed, this, guard(&TrialPane::showWords));
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            guard(&TrialPane::blameChosen));
    connect(clearing, &QPushButton::clicked, this, guard(&TrialPane::clear));
    connect(paste, &QPushButton::clicked, this, guard(&TrialPane::paste));
    setTabOrder(m_grid, m_list);
    setTabOrder(m_list, paste);
    setTabOrder(paste, clearing);
}

TrialPane::~TrialPane() = default;

void TrialPane::guarded(void (TrialPane::*work)()) {
    runGuarded(m_messages, window()->windowTitle(), [this, work] { (this->*work)(); });
}

void TrialPane::typesChanged() {
    if (isVisible()) refresh();
}

void TrialPane::enter() {
    if (!m_grid->currentIndex().isValid()) m_grid->goTo({});
    m_grid->setFocus(Qt::OtherFocusReason);
}

void TrialPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) guarded(&TrialPane::refresh);
}

void TrialPane::refresh() {
    m_screen.refresh();
    showWords();
}

/// The type that is chosen stays so, by its place.
void TrialPane::showWords() {
    const int chosen = m_list->currentIndex().row();
    m_grid->lines().show();
    m_words->show();
    m_list->setCurrentIndex(m_words->index(chosen));
    blameChosen();
}

void TrialPane::blameChosen() {
    const TrialWord* word = m_words->wordAt(m_list->currentIndex());
    m_grid->lines().blame(word == nullptr ? std::vector<int>() : word->lines);
}

void TrialPane::paste() {
    m_grid->pasteClipboard();
    m_grid->setFocus();
}

void TrialPane::clear() {
    m_screen.clear();
    showWords();
    m_grid->goTo({});
    m_grid->setFocus();
}

}  // namespace chengheng
