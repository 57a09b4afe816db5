#pragma once

#include "data/engine/engine.h"

namespace chengheng {

const EngineDialect& postgresDialect();

}  // namespace chengheng
