#pragma once

#include <string>

#include "books/parameters/parameters_service.h"

namespace chengheng {

/// The window of the parameters without a screen: what is typed over what is stored.
class ParametersForm {
  public:
    ParametersForm(IMessages& messages, const BooksRegistry* registry)
        : m_messages(messages), m_service(messages, registry) {}

    /// Reads the parameters; false when they cannot be read, which has been told.
    bool open();
    /// Asks about the change with what it touches, and makes it. False when nothing was written:
    /// then what was typed stays, over the parameters as they are by now.
    bool save();
    bool isChanged() const { return input != parametersOf(m_facts.stored); }
    /// Whether there is nothing to lose, or the operator gives it up.
    bool mayLeave();

    const ParameterFacts& facts() const { return m_facts; }

    // What stands below the fields.

    std::string foreignHint() const;
    std::string patternHint() const;
    std::string startHint() const;

    BooksParameters input;

  private:
    IMessages& m_messages;
    ParametersService m_service;
    ParameterFacts m_facts;
};

}  // namespace chengheng
