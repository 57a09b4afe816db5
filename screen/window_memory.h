#pragma once

#include <QString>
#include <QVariant>

class QWidget;

namespace chengheng {

/// While it lives, what operators make of their windows is kept in a file of this workstation, for
/// each operator apart; the books know nothing of it. Without a file, or without such an object,
/// nothing is kept.
class WindowMemory {
  public:
    explicit WindowMemory(const QString& file);
    ~WindowMemory();
    WindowMemory(const WindowMemory&) = delete;
    WindowMemory& operator=(const WindowMemory&) = delete;
};

/// What the operator who is logged on left under a key; not valid where that is nothing. A slash
/// in a key parts groups.
QVariant rememberedOfWindows(const QString& key);
void rememberOfWindows(const QString& key, const QVariant& value);
/// Forgets a key and all below it.
void forgetOfWindows(const QString& key);

/// A text as one part of a key.
QString partOfKey(const QString& text);

/// The key of the window that a widget is in: all windows of a kind have one.
QString keyOfWindow(const QWidget& widget);

}  // namespace chengheng
