#pragma once

class QWidget;

/// The host's current dialog window; null with none.
extern QWidget* g_pDlgWnd;
