#include "screen/current_dialog.h"

QWidget* g_pDlgWnd = nullptr;
