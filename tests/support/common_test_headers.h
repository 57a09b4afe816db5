#pragma once

// What nearly every test reads, read once for all; see cmake/common_headers.h.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cmake/common_headers.h"
#include "data/access/CNbCwDB.h"
#include "tests/support/recording_messages.h"
