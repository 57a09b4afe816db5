#pragma once

#include <string>

#include "data/engine/engine.h"

namespace chengheng {

/// Expects that the operation log of books is whole and that their rows are what it says of them.
void expectSoundLog(Engine& books);
void expectSoundLogAt(const std::string& location);

}  // namespace chengheng
