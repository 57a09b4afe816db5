#pragma once

#include <QTemporaryDir>

#include "screen/window_memory.h"

namespace chengheng {

/// Windows are kept in a file of their own while it lives.
class KeptWindows {
  public:
    KeptWindows() { keepWindowsIn(m_folder.filePath(QStringLiteral("windows.ini"))); }
    ~KeptWindows() { keepWindowsIn({}); }
    KeptWindows(const KeptWindows&) = delete;
    KeptWindows& operator=(const KeptWindows&) = delete;

  private:
    QTemporaryDir m_folder;
};

}  // namespace chengheng
