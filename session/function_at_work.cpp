#include "session/function_at_work.h"

#include <utility>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

/// The names of those that live, in the order in which they began.
std::vector<const std::string*> names;

void tellOthers() {
    if (g_pDB == nullptr || g_lpLogonUserInfo == nullptr) return;
    g_pDB->setLockIdentity({g_lpLogonUserInfo->sUserName, names.empty() ? "" : *names.back()});
}

}  // namespace

FunctionAtWork::FunctionAtWork(std::string name) : m_name(std::move(name)) {
    names.push_back(&m_name);
    tellOthers();
}

FunctionAtWork::~FunctionAtWork() {
    std::erase(names, &m_name);
    tellOthers();
}

}  // namespace chengheng
