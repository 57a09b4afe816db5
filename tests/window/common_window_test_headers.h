#pragma once

// What nearly every test of a window reads, read once for all; see cmake/common_headers.h.

#include <QTest>

#include "cmake/common_qt_headers.h"
#include "tests/support/common_test_headers.h"
