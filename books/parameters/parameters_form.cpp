#include "books/parameters/parameters_form.h"

#include <fmt/format.h>

#include "base/values/text.h"
#include "books/making/new_books.h"
#include "books/parameters/parameters_texts.h"
#include "forms/discard_input.h"

namespace chengheng {

bool ParametersForm::open() {
    if (m_service.read(m_facts) != Outcome::done) return false;
    input = parametersOf(m_facts.stored);
    return true;
}

bool ParametersForm::save() {
    const WantedParameters given{m_facts, input};
    ParametersPlan plan;
    if (m_service.plan(given, plan) != Outcome::done) return false;
    if (plan.changes.empty()) return true;
    if (m_messages.ask({.text = plan.question()}) != Answer::yes) return false;
    const Outcome outcome = m_service.change(given);
    if (outcome == Outcome::done) return true;
    if (outcome != Outcome::stale) return false;
    const BooksParameters before = parametersOf(m_facts.stored);
    if (m_service.read(m_facts) == Outcome::done)
        input = typedOver(parametersOf(m_facts.stored), input, before);
    return false;
}

bool ParametersForm::mayLeave() { return !isChanged() || mayDiscardInput(m_messages); }

std::string ParametersForm::foreignHint() const {
    if (m_facts.stored.bFgn == 0) return parameters_texts::currencyOff;
    if (m_facts.currencyAccounts.empty()) return parameters_texts::currencyNotKept;
    return fmt::format(parameters_texts::currencyKept, namedAccounts(m_facts.currencyAccounts));
}

std::string ParametersForm::patternHint() const {
    const std::string example = levelPatternExample(withoutBlanksAround(input.levelPattern));
    return example.empty() ? std::string(parameters_texts::patternRule)
                           : fmt::format(parameters_texts::patternHint, example);
}

std::string ParametersForm::startHint() const {
    const std::string obstacle = startMonthObstacle(m_facts);
    return obstacle.empty() ? fmt::format(parameters_texts::startFree, m_facts.stored.lYear)
                            : obstacle;
}

}  // namespace chengheng
