#pragma once

#include <QEvent>

namespace chengheng {

/// A command of a menu or a region on its way to its window. Posted, never sent: whoever
/// presses a button, a screen reader too, is answered before the command begins.
class CommandEvent final : public QEvent {
  public:
    explicit CommandEvent(int number) : QEvent(type()), command(number) {}

    static QEvent::Type type() {
        static const auto registered = static_cast<QEvent::Type>(QEvent::registerEventType());
        return registered;
    }

    const int command;
};

/// The command that every window of the host knows.
inline constexpr int helpCommandNumber = 0xE146;

}  // namespace chengheng
