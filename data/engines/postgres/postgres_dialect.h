#pragma once

#include "data/engines/engine.h"

namespace chengheng {

const EngineDialect& postgresDialect();

}  // namespace chengheng
