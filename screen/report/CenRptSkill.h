#pragma once

#include "report/engine/CReport.h"

class QWidget;

/// Brings a finished report before the operator: mode 0 asks for a printer and prints, mode 1
/// shows the pages. Returns when that is over.
void CenRptSkill(CReport& report, int mode, QWidget* parent);
