#include "shell/new_year_window.h"

#include <QFileDialog>
#include <QKeyEvent>
#include <QLayout>

#include "data/engines/open_engine.h"
#include "screen/background_work.h"
#include "screen/cancellable_work.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/guarded.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "shell/shell_texts.h"
#include "ui_new_year_window.h"

namespace chengheng {

NewYearWindow::NewYearWindow(const BooksRegistry& registry, IMessages& messages,
                             ServerPasswords& passwords, std::string ending, QWidget* parent)
    : QDialog(parent),
      m_messages(messages),
      m_passwords(passwords),
      m_books(registry),
      m_ending(std::move(ending)),
      m_ui(std::make_unique<Ui::NewYearWindow>()) {
    m_ui->setupUi(this);
    styleHeading(m_ui->picture, m_ui->headingTitle, m_ui->headingHint);
    widen(this, 42);
    nameButtons(m_ui->buttons, shell_texts::makeIt);
    new EnterMovesOn(this, {m_ui->target, m_ui->lastRates, m_ui->carry});
    connect(m_ui->browse, &QPushButton::clicked, this, &NewYearWindow::browse);
    for (QCheckBox* const choice : {m_ui->lastRates, m_ui->carry})
        connect(choice, &QCheckBox::toggled, this, &NewYearWindow::showPlan);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &NewYearWindow::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &NewYearWindow::reject);
    m_ui->target->setFocus();
}

NewYearWindow::~NewYearWindow() = default;

bool NewYearWindow::look() {
    const auto refusal = withPasswords([this](const NewYearOrder& wanted) {
        std::optional<Refusal> unplanned;
        runBesidePainting([&] { unplanned = m_books.plan(wanted, m_plan); });
        return unplanned;
    });
    // Another place may be given.
    const bool isOfPlace = refusal && refusal->notice.focusField == new_year_field::target;
    if (refusal && !isOfPlace) {
        if (refusal->kind != RefusalKind::serverPassword) m_messages.tell(refusal->notice);
        return false;
    }
    const NewYearFacts& facts = m_plan.facts;
    m_ui->headingHint->setText(QString(shell_texts::newYearHint)
                                   .arg(QString::fromStdString(facts.setName))
                                   .arg(facts.fromYear)
                                   .arg(facts.year));
    m_ui->target->setPlaceholderText(
        QString(shell_texts::defaultPlace).arg(QString::fromStdString(shownLocation(facts.place))));
    showPlan();
    // By itself a text that wraps makes the form as wide as it can.
    const int width = std::max(minimumWidth(), minimumSizeHint().width());
    resize(width, layout()->totalHeightForWidth(width));
    return true;
}

/// A server each for the books of the two years; whose password was given up is not asked for
/// because of the other.
std::optional<Refusal> NewYearWindow::withPasswords(const Work& work) {
    NewYearOrder wanted = order();
    std::optional<Refusal> refusal;
    const auto outer = m_passwords.withPassword(m_ending, this, [&](const std::string& ending) {
        wanted.books = ending;
        if (!isServerAddress(wanted.target)) return work(wanted);
        refusal = m_passwords.withPassword(wanted.target, this, [&](const std::string& target) {
            wanted.target = target;
            return work(wanted);
        });
        return std::optional<Refusal>();
    });
    return outer ? outer : refusal;
}

bool NewYearWindow::wantsCarry() const { return m_ui->carry->isChecked(); }

NewYearOrder NewYearWindow::order() const {
    return {.books = m_ending,
            .target = m_ui->target->text().trimmed().toStdString(),
            .bringsLastRates = m_ui->lastRates->isChecked()};
}

void NewYearWindow::showPlan() {
    m_plan.bringsLastRates = m_ui->lastRates->isChecked();
    m_plan.isCarriedInto = wantsCarry();
    m_ui->content->setText(QString::fromStdString(m_plan.contentText()).trimmed());
}

void NewYearWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::HelpContents)) return QDialog::keyPressEvent(event);
    showHelp(newYearHelpContext, *this);
}

void NewYearWindow::browse() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, shell_texts::chooseFolder, m_ui->target->text());
    if (!folder.isEmpty()) m_ui->target->setText(folder);
    m_ui->target->setFocus();
}

void NewYearWindow::accept() {
    runGuarded(m_messages, windowTitle(), [this] { make(); });
}

void NewYearWindow::make() {
    NewYearPlan made;
    const QString text = QString(shell_texts::newYearWorking).arg(m_plan.facts.year);
    const auto refusal = withPasswords([&](const NewYearOrder& wanted) {
        std::optional<Refusal> unmade;
        runCancellable(text, this, [&](const WorkTold& progress) {
            unmade = m_books.make(wanted, progress, made);
        });
        return unmade;
    });
    if (refusal) {
        if (refusal->kind != RefusalKind::serverPassword) m_messages.tell(refusal->notice);
        return;
    }
    m_plan = made;
    m_plan.facts.place = m_passwords.take(made.facts.place);
    QDialog::accept();
}

}  // namespace chengheng
