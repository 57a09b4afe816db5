#pragma once

#include <span>
#include <vector>

#include "base/values/status.h"
#include "data/sql/value.h"

namespace chengheng {

/// The values of a command as libpq takes them: zero-terminated texts, in room that is used
/// again for the next command.
class ParameterTexts {
  public:
    /// Replaces the texts. The values must have passed checkValues().
    void fill(std::span<const Value> values);
    const char* const* texts() const { return m_texts.data(); }
    int count() const { return static_cast<int>(m_texts.size()); }
    std::size_t bytes() const { return m_bytes; }

  private:
    std::vector<char> m_room;
    std::vector<const char*> m_texts;
    std::size_t m_bytes = 0;
};

/// Refuses text that the server cannot hold: a zero byte would cut it short.
Status checkValues(std::span<const Value> values);

}  // namespace chengheng
