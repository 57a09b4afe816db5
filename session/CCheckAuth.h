#pragma once

#include <optional>

#include "base/messages/refusal.h"

/// Whether the logged-on operator may use a function of the rights list: true for a supervisor
/// and for whoever holds the right. When it is false the operator has already been told which
/// right is missing, or why the rights could not be read.
///
///   if (!CCheckAuth(41, 1, nullptr)) return;
class CCheckAuth {
  public:
    /// The second and third argument are what callers pass along and mean nothing here.
    explicit CCheckAuth(int function, int = 1, void* = nullptr);
    operator bool() const { return m_isGranted; }

  private:
    bool m_isGranted = false;
};

namespace chengheng {

/// The same question without a word to the operator, but with one to the operation log: why the
/// function may not be used, nothing when it may. Of the kind `failed` where the books could not be
/// read.
std::optional<Refusal> rightRefusal(int function);

/// The same by what the books hold now and without a word to anybody, also for who was a supervisor
/// when he logged on.
std::optional<Refusal> storedRightRefusal(int function);
/// Why the operator is none by now; nothing when he is a supervisor.
std::optional<Refusal> supervisorRefusal();

/// Has the operation log tell of a function that was refused for want of a right.
void noteRefusal(int function, const Refusal& refusal);

}  // namespace chengheng
