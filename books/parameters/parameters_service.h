#pragma once

#include "books/parameters/parameter_plan.h"
#include "session/record_change.h"

namespace chengheng {

/// Reads and changes the parameters of the open set of books. Whatever does not give `done` has
/// told why.
class ParametersService {
  public:
    /// The list names the books where it has them; null: there is none.
    ParametersService(IMessages& messages, const BooksRegistry* registry)
        : m_messages(messages), m_registry(registry) {}

    Outcome read(ParameterFacts& facts);
    /// What would become of a change, after its checks; without changes where nothing is another.
    Outcome plan(const WantedParameters& given, ParametersPlan& plan);
    /// Writes parameters that differ from those of the facts, after the same checks on the books
    /// as they are by then, and publishes them. Parameters that another workstation has changed
    /// since the facts were read are left as they are.
    Outcome change(const WantedParameters& given);

  private:
    UntoldOutcome readFacts(ParameterFacts& facts);
    UntoldOutcome write(const WantedParameters& given, _zAccountMInfo& record);
    void publish(const _zAccountMInfo& record, const std::string& location);

    IMessages& m_messages;
    const BooksRegistry* m_registry;
};

}  // namespace chengheng
