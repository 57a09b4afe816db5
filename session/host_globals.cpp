#include "session/host_globals.h"

#include <utility>

#include "data/access/CNbCwDB.h"
#include "session/who_writes.h"

const char* g_lpszNbZwSetName = "";
std::int32_t g_lAccountId = 0;
const char* g_lpArgument = "";
const CDivideWInfo* g_lpLogonUserInfo = nullptr;
SystemTime g_tmLogonTime;

namespace chengheng {
namespace {

const LogonHistory noHistory;
const LogonHistory* ownHistory = &noHistory;
SessionFacts* publishedFacts = nullptr;

}  // namespace

const LogonHistory& logonHistory() { return *ownHistory; }

HostSession::HostSession(SessionFacts facts) : m_facts(std::move(facts)) {
    g_pDB = m_facts.database;
    g_lpszNbZwDBName = m_facts.databaseName.c_str();
    g_lpszNbZwSetName = m_facts.setName.c_str();
    g_lAccountId = m_facts.accountId;
    g_lpArgument = m_facts.launchArgument.c_str();
    g_lpLogonUserInfo = &m_facts.logonUser;
    g_tmLogonTime = m_facts.logonTime;
    ownHistory = &m_facts.history;
    publishedFacts = &m_facts;
    if (g_pDB != nullptr) g_pDB->keepLog(logAuthor());
}

HostSession::~HostSession() {
    g_pDB = nullptr;
    g_lpszNbZwDBName = "";
    g_lpszNbZwSetName = "";
    g_lAccountId = 0;
    g_lpArgument = "";
    g_lpLogonUserInfo = nullptr;
    g_tmLogonTime = {};
    ownHistory = &noHistory;
    publishedFacts = nullptr;
}

void HostSession::renameBooks(std::string name) {
    if (publishedFacts == nullptr) return;
    publishedFacts->setName = std::move(name);
    g_lpszNbZwSetName = publishedFacts->setName.c_str();
}

void HostSession::renameOperator(std::string name) {
    if (publishedFacts == nullptr) return;
    publishedFacts->logonUser.sUserName = std::move(name);
    if (g_pDB != nullptr) g_pDB->keepLog(logAuthor());
}

void HostSession::setSupervisor(bool isSupervisor) {
    if (publishedFacts != nullptr) publishedFacts->logonUser.lManager = isSupervisor ? 1 : 0;
}

}  // namespace chengheng
