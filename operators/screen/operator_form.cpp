#include "operators/screen/operator_form.h"

#include "operators/screen/division_texts.h"
#include "session/host_globals.h"
#include "session/rights/password_advice.h"

namespace chengheng {

OperatorForm::OperatorForm(IMessages& messages, PasswordCost cost) : m_service(messages, cost) {}

OperatorForm::OperatorForm(IMessages& messages, const OperatorRecord& record, PasswordCost cost)
    : input{.name = record.user.sUserName,
            .password = {},
            .confirmation = {},
            .wantsNewPassword = record.wantsNewPassword},
      m_service(messages, cost),
      m_record(record),
      m_opened(input),
      m_hasPassword(!isPasswordOf(record.user.sPassword, "")) {}

const char* OperatorForm::title() const {
    return isAddition() ? division_texts::additionTitle : division_texts::modificationTitle;
}

bool OperatorForm::canWantNewPassword() const {
    return g_lpLogonUserInfo == nullptr || g_lpLogonUserInfo->lUserId != m_record.user.lUserId;
}

std::string OperatorForm::note() const {
    if (input.password.empty() && !input.confirmation.empty()) return {};
    if (input.password.empty() && m_hasPassword) return division_texts::passwordStays;
    return passwordAdvice(input.password, operatorName(input));
}

bool OperatorForm::confirm() {
    if (!canConfirm()) return false;
    const Outcome outcome =
        isAddition() ? m_service.add(input, m_record) : m_service.modify(input, m_record);
    m_isDone = outcome == Outcome::done;
    if (outcome == Outcome::stale) m_wantsReadingAgain = m_service.mayReadAgain();
    return m_isDone || m_wantsReadingAgain;
}

}  // namespace chengheng
