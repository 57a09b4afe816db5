#pragma once

// What nearly every window reads, read once for all; see common_headers.h.

#include "cmake/common_headers.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QToolBar>
