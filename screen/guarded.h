#pragma once

#include <QString>
#include <exception>
#include <utility>

#include "base/messages/messages.h"

namespace chengheng {

/// Tells with the stop icon that something unexpected ended the work of a window.
void tellUnexpected(IMessages& messages, const QString& windowTitle, const char* reason);

/// Runs a window's work and keeps exceptions from leaving it: the toolkit's event loop does not
/// survive them. False when the work was ended by one, which the operator has then been told.
template <class Work>
bool runGuarded(IMessages& messages, const QString& windowTitle, Work&& work) {
    try {
        std::forward<Work>(work)();
        return true;
    } catch (const std::exception& error) {
        tellUnexpected(messages, windowTitle, error.what());
    } catch (...) {
        tellUnexpected(messages, windowTitle, nullptr);
    }
    return false;
}

}  // namespace chengheng
