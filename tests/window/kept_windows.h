#pragma once

#include <QTemporaryDir>

#include "screen/window_memory.h"

namespace chengheng {

/// Windows are kept in a file of their own while it lives.
class KeptWindows {
  public:
    KeptWindows() { keepWindowsIn(file()); }
    ~KeptWindows() { keepWindowsIn({}); }
    KeptWindows(const KeptWindows&) = delete;
    KeptWindows& operator=(const KeptWindows&) = delete;

    QString file() const { return m_folder.filePath(QStringLiteral("windows.ini")); }

  private:
    QTemporaryDir m_folder;
};

}  // namespace chengheng
