#include "shell/logon_window.h"

#include <QSettings>
#include <QTimer>

#include "base/system/owned_files.h"
#include "base/system/workstation.h"
#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_texts.h"
#include "books/logon/known_books.h"
#include "books/logon/logon_texts.h"
#include "books/logon/password_file.h"
#include "books/upgrading/books_upgrade.h"
#include "data/engines/open_engine.h"
#include "data/lookups/CGetData.h"
#include "data/tables/books.h"
#include "screen/background_work.h"
#include "screen/books/books_parameters_window.h"
#include "screen/books/own_password_window.h"
#include "screen/cancellable_work.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/guarded.h"
#include "screen/log/log_window.h"
#include "session/CCheckAuth.h"
#include "session/failure_texts.h"
#include "setting/hub_status.h"
#include "shell/lock_wait_box.h"
#include "shell/new_books_window.h"
#include "shell/new_year_window.h"
#include "shell/open_books_window.h"
#include "shell/shell_texts.h"
#include "ui_logon_window.h"

namespace chengheng {
namespace {

constexpr const char* lastBooks = "lastBooks";
constexpr const char* lastOperator = "lastOperator";
constexpr int newYearRight = 35;
constexpr int carryForwardRight = 45;
constexpr int parametersRight = 40;

QSettings memoryOf(const BooksRegistry& registry) {
    return {QString::fromStdString(registry.folder() + "/shell.ini"), QSettings::IniFormat};
}

QDate dateOf(const Date& day) { return {day.year, day.month, day.day}; }

Date dateOf(const QDate& day) {
    return {static_cast<std::int16_t>(day.year()), static_cast<std::uint8_t>(day.month()),
            static_cast<std::uint8_t>(day.day())};
}

}  // namespace

LogonWindow::LogonWindow(BooksSession& session, const BooksRegistry& registry, IMessages& messages,
                         SecretStore& secrets, const LaunchOptions& options)
    : m_session(session),
      m_registry(registry),
      m_messages(messages),
      m_passwords(secrets, messages),
      m_launchArgument(options.launchArgument),
      m_ui(std::make_unique<Ui::LogonWindow>()) {
    m_ui->setupUi(this);
    setUpFields();
    loadChoices();
    showChoices(options.books.empty()
                    ? rememberedChoice()
                    : choiceOf(m_choices, m_passwords.take(locationOfBooks(options.books))));
    m_ui->operatorName->setText(options.operatorName.empty()
                                    ? memoryOf(m_registry).value(lastOperator).toString()
                                    : QString::fromStdString(options.operatorName));
    if (options.date) {
        m_isDateGiven = true;
        m_ui->date->setDate(dateOf(*options.date));
    }
}

LogonWindow::~LogonWindow() = default;

void LogonWindow::setUpFields() {
    styleHeading(m_ui->picture, m_ui->headingTitle, m_ui->headingHint);
    widen(this, 32);
    nameButtons(m_ui->buttons, shell_texts::logon);
    m_ui->date->setDate(dateOf(today()));
    new EnterMovesOn(this, {m_ui->location, m_ui->operatorName, m_ui->password});
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &LogonWindow::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &LogonWindow::reject);
    connect(m_ui->openOther, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { openOther(); }); });
    connect(m_ui->makeNew, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { makeNew(); }); });
    connect(m_ui->makeNewYear, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { makeNewYear(); }); });
    connect(m_ui->parameters, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { changeParameters(); }); });
    connect(m_ui->operationLog, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { showLog(); }); });
    connect(m_ui->ownPassword, &QPushButton::clicked, this,
            [this] { runGuarded(m_messages, windowTitle(), [this] { changePassword(); }); });
    connect(m_ui->location, &QComboBox::currentIndexChanged, this, &LogonWindow::suggestDate);
}

void LogonWindow::loadChoices() {
    std::vector<BooksSet> sets;
    m_listStatus = m_registry.read(sets);
    bool holdsPasswords = false;
    for (BooksSet& set : sets)
        for (BooksYear& year : set.years) {
            holdsPasswords = holdsPasswords || !serverPasswordIn(year.location).empty();
            year.location = m_passwords.take(year.location);
        }
    // Saving leaves passwords out that an earlier program kept.
    if (holdsPasswords) m_listStatus = RegistryChange(m_registry).save();
    m_choices = logonChoices(sets);
}

std::size_t LogonWindow::rememberedChoice() const {
    const std::string last = memoryOf(m_registry).value(lastBooks).toString().toStdString();
    const auto isLast = [&](const LogonChoice& choice) {
        return shownLocation(choice.location) == last;
    };
    const auto found = std::ranges::find_if(m_choices, isLast);
    return found == m_choices.end() ? 0 : static_cast<std::size_t>(found - m_choices.begin());
}

void LogonWindow::showChoices(std::size_t selected) {
    m_ui->location->clear();
    for (const LogonChoice& choice : m_choices) {
        m_ui->location->addItem(QString::fromStdString(choice.label));
        const QString place = QString::fromStdString(shownLocation(choice.location));
        m_ui->location->setItemData(m_ui->location->count() - 1, place, Qt::ToolTipRole);
    }
    if (!m_choices.empty()) m_ui->location->setCurrentIndex(static_cast<int>(selected));
}

void LogonWindow::suggestDate() {
    const int index = m_ui->location->currentIndex();
    if (index < 0 || m_isDateGiven) return;
    const int year = m_choices[static_cast<std::size_t>(index)].year;
    if (year != 0) m_ui->date->setDate(dateOf(daysOfYear(year).nearest(today())));
}

void LogonWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (m_wasShown) return;
    m_wasShown = true;
    QWidget* first = m_choices.empty()                      ? static_cast<QWidget*>(m_ui->makeNew)
                     : m_ui->operatorName->text().isEmpty() ? m_ui->operatorName
                                                            : m_ui->password;
    first->setFocus();
    setAttribute(Qt::WA_KeyboardFocusChange);  // so that a button that has it shows it
    if (!m_listStatus) QTimer::singleShot(0, this, &LogonWindow::tellFailureToOpenList);
}

void LogonWindow::tellFailureToOpenList() {
    m_messages.tell({.text = failureText(m_listStatus, m_registry.path(), FailureSubject::registry),
                     .icon = MessageIcon::warning});
}

void LogonWindow::openOther() {
    OpenBooksWindow window(m_messages, m_passwords, this);
    if (window.exec() != QDialog::Accepted) return;
    const _zAccountMInfo& parameters = window.parameters();
    // A list that cannot be written has been told of; the books are opened all the same.
    static_cast<void>(rememberBooks(m_registry, window.location(), parameters).isDone());
    loadChoices();
    std::size_t position = choiceOf(m_choices, window.location());
    m_choices[position].year = parameters.lYear;
    m_isDateGiven = false;
    showChoices(position);
    m_ui->operatorName->setFocus();
}

void LogonWindow::makeNew() {
    NewBooksWindow window(m_registry, m_messages, m_passwords, this);
    if (window.exec() != QDialog::Accepted) return;
    loadChoices();
    m_isDateGiven = false;
    showChoices(choiceOf(m_choices, window.created().year.location));
    m_ui->operatorName->setText(window.supervisor());
    m_ui->password->clear();
    m_ui->password->setFocus();
}

void LogonWindow::accept() {
    runGuarded(m_messages, windowTitle(), [this] { logOn(); });
}

bool chooseNewPassword(LogonRequest& request, const Refusal& wanted, QWidget* parent) {
    NewPasswordWindow window(request.operatorName, request.password, wanted.notice.text, parent);
    if (window.DoModal() != QDialog::Accepted) return false;
    request.newPassword = window.chosen();
    return true;
}

bool LogonWindow::openSession() {
    const int index = m_ui->location->currentIndex();
    LogonRequest request;
    if (index >= 0) request.location = m_choices[static_cast<std::size_t>(index)].location;
    request.operatorName = m_ui->operatorName->text().toStdString();
    request.password = m_ui->password->text().toStdString();
    request.date = dateOf(m_ui->date->date());
    request.launchArgument = m_launchArgument;
    const auto tryToLogOn = [&](const std::string& place) {
        request.location = place;
        std::optional<Refusal> refused;
        runBesidePainting([&] { refused = m_session.logOn(request); });
        return refused;
    };
    auto refusal = m_passwords.withPassword(request.location, this, tryToLogOn);
    if (refusal && refusal->kind == RefusalKind::outdated) {
        if (!upgrade(locationOfBooks(request.location))) return false;
        refusal = tryToLogOn(request.location);
    }
    if (refusal && refusal->kind == RefusalKind::newPassword) {
        if (!chooseNewPassword(request, *refusal, this)) return false;
        refusal = tryToLogOn(request.location);
        if (!refusal) m_ui->password->setText(QString::fromStdString(*request.newPassword));
    }
    if (refusal) {
        if (refusal->kind != RefusalKind::serverPassword) m_messages.tell(refusal->notice);
        return false;
    }
    if (!m_session.warning().empty())
        m_messages.tell({.text = m_session.warning(), .icon = MessageIcon::warning});
    keepListTrue();
    return true;
}

void LogonWindow::logOn() {
    if (!openSession()) return;
    m_ui->password->clear();
    rememberLogon();
    QDialog::accept();
}

bool LogonWindow::isLogonGiven(const char* wantedFor) {
    if (!m_ui->password->text().isEmpty()) return true;
    // An empty password would count as a wrong one.
    const QLineEdit* wanted =
        m_ui->operatorName->text().isEmpty() ? m_ui->operatorName : m_ui->password;
    m_messages.tell(inputRefusal(wantedFor, wanted->objectName().toUtf8().constData()).notice);
    return false;
}

void LogonWindow::changeParameters() {
    if (!isLogonGiven(shell_texts::logonWanted)) return;
    if (!openSession()) return;
    tellSuspiciousHistory();
    if (const auto refusal = rightRefusal(parametersRight))
        m_messages.tell(refusal->notice);
    else
        BooksParametersWindow(m_registry, this).DoModal();
    m_session.logOff();
    const std::string location =
        m_choices[static_cast<std::size_t>(m_ui->location->currentIndex())].location;
    loadChoices();
    showChoices(choiceOf(m_choices, location));
}

void LogonWindow::showLog() {
    if (!isLogonGiven(shell_texts::logLogonWanted)) return;
    if (!openSession()) return;
    tellSuspiciousHistory();
    if (const auto refusal = supervisorRefusal())
        m_messages.tell(refusal->notice);
    else
        LogWindow(this).DoModal();
    m_session.logOff();
    m_ui->password->setFocus();
}

void LogonWindow::makeNewYear() {
    if (!isLogonGiven(shell_texts::newYearLogonWanted)) return;
    if (!openSession()) return;
    tellSuspiciousHistory();
    const std::string ending =
        m_choices[static_cast<std::size_t>(m_ui->location->currentIndex())].location;
    std::optional<NewYearFacts> made;
    bool wantsCarry = false;
    if (const auto refusal = rightRefusal(newYearRight)) {
        m_messages.tell(refusal->notice);
    } else {
        NewYearWindow window(m_registry, m_messages, m_passwords, ending, this);
        if (window.look() && window.exec() == QDialog::Accepted) made = window.made();
        wantsCarry = window.wantsCarry();
    }
    m_session.logOff();
    loadChoices();
    if (made) m_isDateGiven = false;
    showChoices(choiceOf(m_choices, made ? made->place : ending));
    m_ui->password->setFocus();
    if (!made) return;
    const QString carried = wantsCarry ? carryIntoNewYear() : QString();
    const QString question = QString(shell_texts::newYearMade)
                                 .arg(QString::fromStdString(made->setName))
                                 .arg(made->year)
                                 .arg(QString::fromStdString(shownLocation(made->place)), carried);
    if (m_messages.ask({.text = question.toStdString(), .preset = Answer::yes}) == Answer::yes)
        logOn();
}

QString LogonWindow::carryIntoNewYear() {
    const auto line = [](const std::string& text) { return QString::fromStdString(text + '\n'); };
    if (!openSession()) return line(notCarriedIntoNewYear(carry_texts::newYearNotOpened));
    CarriedForward carried;
    std::vector<Notice> untold;
    if (const auto refusal = rightRefusal(carryForwardRight))
        untold.push_back(refusal->notice);
    else
        runCancellable(shell_texts::newYearCarrying, this, [&](const WorkTold& told) {
            carried = carryForward(m_registry, untold, told);
        });
    m_session.logOff();
    return line(carriedIntoNewYear(carried, untold));
}

/// The next log-on begins a new history, so nobody would be told of this one.
void LogonWindow::tellSuspiciousHistory() {
    if (const HubLogonLine line = hubLogonLine(); line.isWarning)
        m_messages.tell({.text = line.text, .icon = MessageIcon::warning});
}

void LogonWindow::changePassword() {
    const QString given = m_ui->password->text();
    if (!openSession()) return;
    tellSuspiciousHistory();
    // Who had to choose a new one just now has changed it.
    const bool isChosen = m_ui->password->text() != given;
    const bool isChanged = isChosen || OwnPasswordWindow(this).DoModal() == QDialog::Accepted;
    if (isChosen) m_messages.tell({.text = logon_texts::passwordChanged});
    m_session.logOff();
    if (isChanged) m_ui->password->clear();
    m_ui->password->setFocus();
}

/// Another workstation may have given the books another name.
void LogonWindow::keepListTrue() {
    const _zAccountMInfo& books = *CGetData::m_pzAccountMInfo;
    // The list only names the books; one that cannot be written hinders nobody.
    static_cast<void>(m_registry
                          .correct({books.lId, books.sName, books.sCompany, {}},
                                   {books.lYear, m_session.shownLocation()})
                          .isDone());
}

bool LogonWindow::upgrade(const std::string& location) {
    BooksUpgrade upgrade(location);
    UpgradePlan plan;
    std::optional<Refusal> refusal;
    runBesidePainting([&] { refusal = upgrade.plan(plan); });
    if (!refusal && plan.isNeeded()) {
        if (m_messages.ask({.text = plan.question()}) != Answer::yes) return false;
        LockWaitBox waitBox;
        refusal = upgrade.keepOthersOut(waitBox, LoggedOn::waitFor, runBesidePainting);
        if (!refusal) runBesidePainting([&] { refusal = upgrade.carryOut(); });
    }
    if (refusal) m_messages.tell(refusal->notice);
    const QString backup = QString::fromStdString(upgrade.backup());
    // Another may have taken the place that was asked about.
    if (!refusal && !backup.isEmpty() && upgrade.backup() != plan.backup)
        m_messages.tell({.text = QString(shell_texts::backupElsewhere).arg(backup).toStdString()});
    return !refusal;
}

void LogonWindow::rememberLogon() {
    // What is remembered only spares typing; without it nothing else suffers.
    if (!makeOwnedFolder(m_registry.folder())) return;
    QSettings memory = memoryOf(m_registry);
    memory.setValue(lastBooks, QString::fromStdString(m_session.shownLocation()));
    memory.setValue(lastOperator, m_ui->operatorName->text());
}

}  // namespace chengheng
