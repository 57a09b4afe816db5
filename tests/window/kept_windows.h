#pragma once

#include <QTemporaryDir>

#include "screen/window_memory.h"

namespace chengheng {

/// Windows are kept in a file of their own while it lives.
class KeptWindows {
  public:
    QString file() const { return m_folder.filePath(QStringLiteral("windows.ini")); }

  private:
    QTemporaryDir m_folder;
    WindowMemory m_memory{file()};
};

}  // namespace chengheng
